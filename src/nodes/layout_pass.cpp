// The pass that is running.
#include "nodes/layout_pass.h"

bool CLayoutPass::s_bPlainRecursion = false;
const CDC* CLayoutPass::s_pDC = nullptr;
ULONGLONG CLayoutPass::s_nCurrent = 0;
ULONGLONG CLayoutPass::s_nLast = 0;
