// Any bytes as a formula: parsed, measured, painted on a bitmap and on a metafile, written in all
// forms, deleted.
#include <cstdint>

#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "quiet_host.h"
#include "service/formula_out.h"

namespace
{
void PaintOnMetafile(CFormulaOut& formula)
{
    const RECT frame = { 0, 0, 1000, 1000 };
    CClientDC screen(nullptr);
    CMetaFileDC dc;
    dc.CreateEnhanced(&screen, nullptr, &frame, "Formula\0Image\0");
    dc.SetAttribDC(screen);
    formula.DrawTree(&dc, CRect(0, 0, 0, 0));
    DeleteEnhMetaFile(dc.CloseEnhanced());
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    CFormulaOut formula;
    formula.FormTree(CString(reinterpret_cast<const char*>(pData), static_cast<int>(nSize)));
    const CMemoryPicture picture(64, 32);
    formula.DrawTree(CDC::FromHandle(picture), CRect(0, 0, 64, 32));
    PaintOnMetafile(formula);
    WriteForms(formula.m_Tree.GetRootNode());
    return 0;
}
