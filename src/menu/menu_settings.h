// What a program may choose for all its menus, beside their style.
#pragma once

#include "platform/base/types.h"

struct CMenuSettings
{
    bool m_bDarkenedIcons = true;       // icons are darkened, but for the one under the mouse
    int m_nDarkening = 50;              // of 255
    bool m_bDisabledSelectable = true;  // disabled items take the highlight
    bool m_bShortcuts = true;           // texts of accelerators are shown
    BYTE m_nOpacity = 255;              // of the windows of menus; 255: not layered at all
    bool m_bAnyMenu = true;             // windows of plain menus of the thread are taken over too
};
