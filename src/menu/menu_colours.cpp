// Colours of items, frames and titles.
#include "menu/menu_colours.h"

#include "menu/colour.h"

#include <algorithm>
#include <iterator>

COLORREF HighlightColour(const CMenuSystem& system)
{
    const COLORREF highlight = system.Colour(COLOR_HIGHLIGHT);
    const COLORREF window = system.Colour(COLOR_WINDOW);
    if (system.m_bHighContrast)
        return highlight;
    if (system.HasFewColours())
        return window;
    return !system.m_bTheme && IsBright(highlight) ? TintColour(window, highlight)
                                                   : MixColours(window, highlight);
}

CFlatColours FlatColours(const CMenuSystem& system,
                         const std::function<COLORREF(COLORREF)>& nearest)
{
    const COLORREF menu = system.Colour(COLOR_MENU);
    const COLORREF window = system.Colour(COLOR_WINDOW);
    const CFlatColours colours = { system.HasFewColours() ? system.Colour(COLOR_BTNFACE)
                                                          : TintColour(menu, window),
                                   TintColour(window, menu) };
    return nearest(colours.m_column) == nearest(colours.m_body) ? CFlatColours{ menu, window }
                                                                : colours;
}

CGradientColours ThemeGradient(COLORREF crTheme)
{
    struct CKnown
    {
        COLORREF base;
        CGradientColours colours;
    };
    static constexpr CKnown s_aKnown[] = {
        // base        light     middle    dark      frame
        { 0xAADADA, { 0xDEF7F4, 0xACDED1, 0x91C6B7, 0x588060 } },
        { 0xE5D7D7, { 0xFAF4F3, 0xECE2E1, 0xB59799, 0x947C7C } },
        { 0xF5C2A3, { 0xFEECDD, 0xF9DBC4, 0xE2A981, 0x9C613B } },
    };
    const auto* pKnown = std::ranges::find(s_aKnown, crTheme, &CKnown::base);
    if (pKnown != std::end(s_aKnown))
        return pKnown->colours;
    return { LightenColour(crTheme, 140), LightenColour(crTheme, 115), DarkenColour(crTheme, 40),
             DarkenColour(crTheme, 110) };
}

CGradientColours PlainGradient(COLORREF light, COLORREF dark)
{
    return { light, BlendColours(light, dark, 100), dark, DarkenColour(dark, 50) };
}

CGradientColours GradientColours(const CMenuSystem& system, COLORREF light, COLORREF dark)
{
    return system.m_bTheme ? ThemeGradient(system.m_crTheme) : PlainGradient(light, dark);
}

CFrameColours FlatFrameColours(const CMenuSystem& system, COLORREF column, bool bGradientFrame)
{
    const COLORREF menu = system.Colour(COLOR_MENU);
    const COLORREF window = system.Colour(COLOR_WINDOW);
    return { system.m_bHighContrast ? system.Colour(COLOR_BTNTEXT) : DarkenColour(menu, 128),
             TintColour(window, menu), bGradientFrame ? window : column };
}

COLORREF ItemTextColour(const CMenuSystem& system, bool bSelected, bool bDisabled)
{
    if (bDisabled)
        return system.Colour(COLOR_GRAYTEXT);
    if (!system.m_bHighContrast)
        return system.Colour(COLOR_MENUTEXT);
    if (!bSelected)
        return system.Colour(COLOR_WINDOWTEXT);
    // Some schemes of high contrast highlight in the very colour of texts.
    const COLORREF text = system.Colour(COLOR_MENUTEXT);
    return text == HighlightColour(system) ? system.Colour(COLOR_HIGHLIGHTTEXT) : text;
}

COLORREF BarColour(const CMenuSystem& system)
{
    return system.Colour(system.m_bFlatBar ? MENU_COLOUR_BAR : COLOR_MENU);
}

CTitleColours TitleColours(const CMenuSystem& system, const CTitleColours& chosen)
{
    const auto orElse = [](COLORREF colour, COLORREF other)
    {
        return colour != NO_TITLE_COLOUR ? colour : other;
    };
    return { orElse(chosen.m_start, system.Colour(COLOR_ACTIVECAPTION)),
             orElse(chosen.m_end,
                    TintColour(system.Colour(COLOR_WINDOW), system.Colour(COLOR_MENU))),
             orElse(chosen.m_text, system.Colour(COLOR_CAPTIONTEXT)) };
}
