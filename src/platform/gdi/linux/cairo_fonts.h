// Realised fonts as cairo draws them.
#pragma once

#include "platform/gdi/linux/cairo_handles.h"
#include "platform/gdi/linux/draw_target.h"

#include <limits>
#include <optional>

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

// The font at its size under a matrix of the context, owned by a process-wide cache; use it at
// once. Null if its file cannot be read or its size is beyond what can be drawn.
cairo_scaled_font_t* FindScaledFont(const CRealizedFont& font, CHinting hinting);
// Likewise for a context whose matrix is not the identity; not cached here, but by cairo.
CScaledFontPtr MakeScaledFont(const CRealizedFont& font, CHinting hinting,
                              const cairo_matrix_t& matrix);

// Bytes of a font and the place of the first one, on the base line; device pixels.
struct CGlyphRun
{
    const CRealizedFont& m_font;
    std::span<const BYTE> m_text;
    POINT m_origin;
    const INT* m_pDx;            // as in CTextRun
    std::optional<RECT> m_clip;  // beside that of the device context
};

// Horizontal places that glyphs have to reach to be seen.
struct CGlyphBounds
{
    double m_fLeft = -std::numeric_limits<double>::infinity();
    double m_fRight = std::numeric_limits<double>::infinity();
};

// Draws the glyphs with the font, colour and clip that are set. As outlines: nothing of theirs is
// kept for the next time.
void DrawGlyphs(cairo_t* pCairo, const CDeviceContext& dc, const CGlyphRun& run,
                const CGlyphBounds& bounds, bool bAsOutlines);
