// Marks, bars and glyphs of a drawing as calls of cairo.
#include "picture/linux/cairo_drawing.h"

#include "platform/gdi/linux/fonts/font_cache.h"

void SetColour(cairo_t* pCairo, COLORREF colour)
{
    cairo_set_source_rgb(pCairo, GetRValue(colour) / 255.0, GetGValue(colour) / 255.0,
                         GetBValue(colour) / 255.0);
}

namespace
{
void FillRect(cairo_t* pCairo, const CRect& rect, COLORREF colour)
{
    SetColour(pCairo, colour);
    cairo_rectangle(pCairo, rect.left, rect.top, rect.Width(), rect.Height());
    cairo_fill(pCairo);
}
}  // namespace

void PaintMarks(cairo_t* pCairo, const CDrawing& drawing, const CPlacement& placement)
{
    for (const CDrawnMark& mark : drawing.marks)
        FillRect(pCairo, placement.Place(mark.rect), mark.colour);
}

void PaintLines(cairo_t* pCairo, const CDrawing& drawing, const CPlacement& placement)
{
    for (const CDrawnLine& line : drawing.lines)
    {
        if (line.IsHorizontal() || line.IsVertical())
        {
            FillRect(pCairo, placement.PlaceBar(line), line.colour);
            continue;
        }
        SetColour(pCairo, line.colour);
        cairo_set_line_width(pCairo, placement.Pen());
        cairo_move_to(pCairo, placement.X(line.x1), placement.Y(line.y1));
        cairo_line_to(pCairo, placement.X(line.x2), placement.Y(line.y2));
        cairo_stroke(pCairo);
    }
}

std::vector<CScaledFontPtr> ScaledFonts(cairo_t* pCairo, const CDrawing& drawing, CHinting hinting)
{
    cairo_matrix_t matrix;
    cairo_get_matrix(pCairo, &matrix);
    std::vector<CScaledFontPtr> fonts;
    for (const CDrawnFont& font : drawing.fonts)
    {
        const CRealizedFont& realized = CFontCache::Find(
            font.glyphs.m_nFace, font.description.lfHeight, font.description.lfWidth);
        fonts.push_back(MakeScaledFont(realized, hinting, matrix));
    }
    return fonts;
}

void EnterTextSpace(cairo_t* pCairo, const CPlacement& placement)
{
    cairo_translate(pCairo, placement.Origin().x, placement.Origin().y);
    cairo_scale(pCairo, placement.Scale(), placement.Scale());
}

std::vector<cairo_glyph_t> PrepareText(cairo_t* pCairo, const CDrawing& drawing,
                                       const CDrawnText& text,
                                       const std::vector<CScaledFontPtr>& fonts)
{
    std::vector<cairo_glyph_t> glyphs;
    const CScaledFontPtr& pFont = fonts[text.nFont];
    if (!pFont)
        return glyphs;
    SetColour(pCairo, text.colour);
    cairo_set_scaled_font(pCairo, pFont.get());
    const CFontFace& face = FontFaceById(drawing.fonts[text.nFont].glyphs.m_nFace);
    for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
    {
        const CDrawnGlyph& glyph = drawing.glyphs[n];
        glyphs.push_back({ face.m_anGlyphs[glyph.nCode],
                           static_cast<double>(text.origin.x) + glyph.nOffset,
                           static_cast<double>(text.origin.y) });
    }
    return glyphs;
}
