// Systems to draw menus for.
#pragma once

#include <algorithm>

#include "menu/menu_system.h"

// The classic colours; nothing else on.
inline CMenuSystem ClassicSystem()
{
    static constexpr COLORREF s_aColours[] = {
        0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000,  //  0
        0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0xD77800, 0xFFFFFF, 0xC8D0D4,  //  8
        0x808080, 0x6D6D6D, 0x000000, 0xC8D0D4, 0xFFFFFF,                                // 16
    };
    CMenuSystem system;
    std::ranges::copy(s_aColours, system.m_colours.begin());
    system.m_colours[MENU_COLOUR_BAR] = 0xC8D0D4;
    return system;
}

inline CMenuSystem WithFewColours()
{
    CMenuSystem system = ClassicSystem();
    system.m_nColours = 256;
    return system;
}

inline CMenuSystem HighContrast(COLORREF paper, COLORREF ink, COLORREF highlight)
{
    CMenuSystem system = ClassicSystem();
    system.m_bHighContrast = true;
    for (const int nIndex : { COLOR_MENU, COLOR_WINDOW, COLOR_BTNFACE, COLOR_HIGHLIGHTTEXT })
        system.m_colours[static_cast<std::size_t>(nIndex)] = paper;
    for (const int nIndex : { COLOR_MENUTEXT, COLOR_WINDOWTEXT, COLOR_BTNTEXT })
        system.m_colours[static_cast<std::size_t>(nIndex)] = ink;
    system.m_colours[COLOR_HIGHLIGHT] = highlight;
    return system;
}
// Here texts are as black as the highlight.
inline CMenuSystem HighContrastWhite()
{
    return HighContrast(0xFFFFFF, 0x000000, 0x000000);
}
inline CMenuSystem HighContrastBlack()
{
    return HighContrast(0x000000, 0xFFFFFF, 0x800080);
}

inline CMenuSystem Themed()
{
    CMenuSystem system = ClassicSystem();
    system.m_bTheme = true;
    system.m_crTheme = 0xF5C2A3;
    return system;
}
