// Scripts for the control by chance, the same for the same seed everywhere.
#pragma once

#include <string>

#include "platform/base/geometry.h"

struct CRandomScript
{
    const char* pszText;
    bool bBoxed;  // placeholders have an area
    CSize size;   // of the window
    std::string strLines;
};

CRandomScript MakeRandomScript(unsigned nSeed);
