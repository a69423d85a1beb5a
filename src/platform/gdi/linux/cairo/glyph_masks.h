// Pictures of glyphs, made by cairo once and kept for the bitmaps of the whole process: the pens of
// a text stand on whole pixels, so that a glyph always looks the same.
#pragma once

#include "platform/gdi/linux/bitmaps/pixel_rows.h"
#include "platform/gdi/linux/cairo/cairo_fonts.h"

#include <array>
#include <memory>
#include <vector>

// How far each pixel is covered, 0 to 255.
struct CGlyphMask
{
    RECT m_box{};  // about the pen; empty: nothing is to be seen
    std::vector<BYTE> m_coverage;
};

// The glyphs of one font.
class CFontMasks
{
public:
    // pFont is the realised font's.
    CFontMasks(const CRealizedFont& font, CScaledFontPtr pFont)
        : m_font(font), m_pFont(std::move(pFont))
    {
    }
    const CGlyphMask& Mask(BYTE byte)
    {
        const auto& pMask = m_apMasks[byte];
        return pMask ? *pMask : MakeMask(byte);
    }

private:
    const CGlyphMask& MakeMask(BYTE byte);

    const CRealizedFont& m_font;
    CScaledFontPtr m_pFont;
    std::array<std::unique_ptr<CGlyphMask>, 256> m_apMasks;
};

// Larger fonts have no masks, which would take much memory: their glyphs are drawn as outlines.
constexpr double MASK_SIZE_LIMIT = 256;

// Valid until the next call; null for a font that cannot be drawn. The size of the font has to lie
// within the limit.
CFontMasks* FindFontMasks(const CRealizedFont& font, CHinting hinting);

// Blends the colour into a row, as far as each pixel is covered.
void BlendRow(std::span<CPixel> row, const BYTE* pCoverage, CPixel colour);
