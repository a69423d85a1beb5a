// What menus take from the system: a value, so that drawing can be asked for any system.
#pragma once

#include <array>

#include "platform/gdi/gdi.h"

enum class EWindowsVersion
{
    old,
    ntBelow4,
    windows95,
    windows98,
    windowsMe,
    nt4,
    windows2000,
    later
};
// Of the family that is not NT, the minor number tells the members apart.
EWindowsVersion ClassifyWindows(bool bNT, int nMajor, int nMinor);

// Beyond the indices that drawings need elsewhere.
constexpr int MENU_COLOUR_BAR = 30;

struct CMenuSystem
{
    static constexpr int COLOURS = MENU_COLOUR_BAR + 1;

    COLORREF Colour(int nIndex) const { return m_colours[static_cast<std::size_t>(nIndex)]; }
    bool HasFewColours() const { return m_nColours <= 256; }

    std::array<COLORREF, COLOURS> m_colours{};  // by COLOR_ index
    int m_nColours = 64000;                     // of the screen
    int m_nMenuHeight = 19;                     // SM_CYMENU, pixels
    bool m_bHighContrast = false;
    bool m_bDropShadow = true;  // the system draws shadows of menus
    bool m_bHidesPrefixes = false;
    bool m_bFlatBar = false;  // bars have a colour of their own
    bool m_bTheme = false;    // a visual theme is active
    COLORREF m_crTheme = 0;   // its colour
    bool m_bWine = false;
    EWindowsVersion m_version = EWindowsVersion::later;
};

// Of what NUMCOLORS tells: -1 stands for more than it can count.
int CountColours(int nNumColours);
