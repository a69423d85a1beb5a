// Gestures written down, one a line: what a script of the formula control is made of.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/base/types.h"

enum EScriptEvent
{
    EVENT_SIZE,  // width, height
    EVENT_PAINT,
    EVENT_MOVE,     // x, y; "left": with the left button down
    EVENT_PRESS,    // x, y
    EVENT_RELEASE,  // x, y
    EVENT_DOUBLE,   // x, y
    EVENT_KEY,      // code; "ctrl", "shift"
    EVENT_CHAR,     // code
    EVENT_BLUR,
    EVENT_HSCROLL,  // code, tracking position
    EVENT_VSCROLL,
    EVENT_WHEEL,  // delta
    EVENT_CUT,
    EVENT_COPY,
    EVENT_PASTE,
    EVENT_ALL,
    EVENT_DELETE,
    EVENT_READONLY,  // 0 or 1
    EVENT_CLIP,      // bytes, or none
    EVENT_ENTER,     // x, y; "ctrl"
    EVENT_OVER,
    EVENT_LEAVE,
    EVENT_DROP,  // x, y
    EVENT_COUNT
};

struct CScriptEvent
{
    EScriptEvent nType = EVENT_PAINT;
    int nFirst = 0;  // the numbers of the line; 0 where one may be left out
    int nSecond = 0;
    bool bLeft = false;
    bool bControl = false;
    bool bShift = false;
    std::optional<std::vector<BYTE>> bytes;
};

// A drag over the control, from outside or its own.
constexpr bool IsDragEvent(EScriptEvent nType)
{
    return nType >= EVENT_ENTER && nType <= EVENT_DROP;
}

// No value for a line that is none.
std::optional<CScriptEvent> ParseScriptEvent(std::string_view strLine);

// Blank lines and comments.
bool IsSkippedScriptLine(std::string_view strLine);
