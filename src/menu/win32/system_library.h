// Libraries of the system that menus can do without: opened when first asked for.
#pragma once

#include "menu/menu_system.h"

// With one rectangle of two colours, from the left or from the top; FALSE where the system has no
// such drawing.
BOOL FillGradientBySystem(HDC hDC, const RECT& rect, COLORREF first, COLORREF last, bool bVertical);

// Whether a visual theme is active, and the colour that it gives to active captions.
bool ReadVisualTheme(COLORREF* pColour);
