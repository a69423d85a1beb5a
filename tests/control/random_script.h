// Scripts for the control by chance, the same for the same seed everywhere.
#pragma once

#include <string>
#include <vector>

#include "control/script/script_event.h"

struct CRandomScript
{
    const char* pszText;
    bool bBoxed;  // placeholders have an area
    int nWidth;
    int nHeight;
    std::vector<CScriptEvent> events;
};

CRandomScript MakeRandomScript(unsigned nSeed);

std::string ScriptText(const std::vector<CScriptEvent>& events);
