// Codes of keys, mouse buttons, scroll bars and drags, as window messages carry them. On Windows
// they are the system's.
#pragma once

#include "platform/base/types.h"

#ifdef _WIN32

#include <oleidl.h>

#else

// Scroll bars of a window
constexpr int SB_HORZ = 0;
constexpr int SB_VERT = 1;
constexpr int SB_BOTH = 3;

// What a scroll message asks for
constexpr UINT SB_LINEUP = 0;
constexpr UINT SB_LINEDOWN = 1;
constexpr UINT SB_PAGEUP = 2;
constexpr UINT SB_PAGEDOWN = 3;
constexpr UINT SB_THUMBPOSITION = 4;
constexpr UINT SB_THUMBTRACK = 5;
constexpr UINT SB_TOP = 6;
constexpr UINT SB_BOTTOM = 7;

// Bits of the state that comes with mouse messages and drags
constexpr UINT MK_LBUTTON = 0x0001;
constexpr UINT MK_CONTROL = 0x0008;

// Keys
constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_INSERT = 0x2D;
constexpr UINT VK_DELETE = 0x2E;

constexpr UINT WHEEL_PAGESCROLL = 0xFFFFFFFFU;
constexpr int WHEEL_DELTA = 120;

constexpr DWORD DROPEFFECT_NONE = 0;
constexpr DWORD DROPEFFECT_COPY = 1;
constexpr DWORD DROPEFFECT_MOVE = 2;

#endif

// DROPEFFECT_NONE, or bits of DROPEFFECT_COPY, _MOVE and, on Windows, _LINK and _SCROLL.
using DROPEFFECT = DWORD;
