// A drawing on a cairo context whose units are the pixels of the picture.
#pragma once

#include <cairo.h>

#include "picture/placement.h"
#include "platform/gdi/linux/cairo/cairo_fonts.h"

void PaintMarks(cairo_t* pCairo, const CDrawing& drawing, const CPlacement& placement);
void PaintLines(cairo_t* pCairo, const CDrawing& drawing, const CPlacement& placement);

// The fonts of a drawing as the context draws them now; null where one cannot be drawn.
std::vector<CScaledFontPtr> ScaledFonts(cairo_t* pCairo, const CDrawing& drawing, CHinting hinting);

// From here on the units of the context are pixels of the screen from the formula's corner, as its
// fonts want it.
void EnterTextSpace(cairo_t* pCairo, const CPlacement& placement);

// Sets font and colour for a text and gives its glyphs; none if its font cannot be drawn.
std::vector<cairo_glyph_t> PrepareText(cairo_t* pCairo, const CDrawing& drawing,
                                       const CDrawnText& text,
                                       const std::vector<CScaledFontPtr>& fonts);

void SetColour(cairo_t* pCairo, COLORREF colour);
