// The colours that styles make of those of the system.
#pragma once

#include <functional>

#include "menu/menu_system.h"

// Behind the selected item of the flat styles.
COLORREF HighlightColour(const CMenuSystem& system);

struct CFlatColours
{
    COLORREF m_column;  // behind icons
    COLORREF m_body;    // behind texts
};
// nearest tells what a device shows in a colour's place.
CFlatColours FlatColours(const CMenuSystem& system,
                         const std::function<COLORREF(COLORREF)>& nearest);

struct CGradientColours
{
    COLORREF m_light;
    COLORREF m_middle;
    COLORREF m_dark;
    COLORREF m_frame;
    friend bool operator==(const CGradientColours&, const CGradientColours&) = default;
};
// Of a visual theme.
CGradientColours ThemeGradient(COLORREF crTheme);
// Without one.
CGradientColours PlainGradient(COLORREF light, COLORREF dark);
// Of the one or the other: light and dark are the style's own.
CGradientColours GradientColours(const CMenuSystem& system, COLORREF light, COLORREF dark);

// The lines of the flat frame.
struct CFrameColours
{
    COLORREF m_outer;
    COLORREF m_inner;
    COLORREF m_innerLeft;
};
CFrameColours FlatFrameColours(const CMenuSystem& system, COLORREF column, bool bGradientFrame);

// The text of an item.
COLORREF ItemTextColour(const CMenuSystem& system, bool bSelected, bool bDisabled);
// Of a bar, where no item is selected.
COLORREF BarColour(const CMenuSystem& system);

// A title whose record leaves a colour open.
struct CTitleColours
{
    COLORREF m_start;
    COLORREF m_end;
    COLORREF m_text;
};
constexpr COLORREF NO_TITLE_COLOUR = 0xFF000000;
// chosen has NO_TITLE_COLOUR where the style's own is meant.
CTitleColours TitleColours(const CMenuSystem& system, const CTitleColours& chosen);
