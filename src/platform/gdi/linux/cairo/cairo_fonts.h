// Realised fonts as cairo draws them.
#pragma once

#include "platform/gdi/linux/bitmaps/cairo_handles.h"
#include "platform/gdi/linux/context/draw_target.h"

class CRealizedFont;

// How outlines become pixels: in shades, or in the two colours that a bitmap of one bit has; or not
// at all, where the device has no pixels.
enum class CHinting
{
    shades,
    twoColours,
    outlines
};
constexpr int HINTINGS = 3;

// The font at its size under a matrix. Null if its file cannot be read or its size is beyond what
// can be drawn.
CScaledFontPtr MakeScaledFont(const CRealizedFont& font, CHinting hinting,
                              const cairo_matrix_t& matrix);

struct CGlyphRun;
struct CPenBounds;

// Draws the glyphs with the font, colour and clip that are set. As outlines: nothing of theirs is
// kept for the next time.
void DrawGlyphs(cairo_t* pCairo, const CDeviceContext& dc, const CGlyphRun& run,
                const CPenBounds& bounds, bool bAsOutlines);
