// Sizes and places of the windows of menus whose frame the skin draws. Pixels.
#pragma once

#include "menu/menu_system.h"
#include "platform/base/geometry.h"

struct CFrameSizes
{
    CSize m_topLeft;
    CSize m_bottomRight;  // with room for a shadow where the system has none
};
CFrameSizes FrameSizes(bool bDropShadow);

// The window in the place of the one that the system would have with a frame of its own.
CRect MenuWindowRect(const CRect& asked, bool bDropShadow);
CRect ClientInside(const CRect& window, const CFrameSizes& sizes);
// What the frame encloses: without the system's shadow, the room for ours is outside.
CRect FrameInside(const CRect& window, bool bDropShadow);

// Darkening of 255 of a pixel of the window's shadow: nLine counts 1 to 4 from the outer edge,
// nPlace along it, from 0, of nLength.
int WindowShadowDarkness(int nLine, int nPlace, int nLength);
