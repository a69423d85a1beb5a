// Making, keeping and blending the pictures of glyphs.
#include "platform/gdi/linux/cairo/glyph_masks.h"

#include "platform/gdi/linux/fonts/font_cache.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace
{

// A host that zooms meets a new size at each step. When either limit is passed, all are dropped:
// what is in use comes back at its next drawing.
constexpr std::size_t s_nFontsLimit = 256;
constexpr std::size_t s_nBytesLimit = std::size_t{ 16 } << 20;

// Of a font that is drawn in shades (0) and in two colours (1).
struct CMaskEntry
{
    std::unique_ptr<CFontMasks> m_apMasks[2];
    bool m_abTried[2] = {};
};

struct CMaskCache
{
    std::unordered_map<const CRealizedFont*, CMaskEntry> m_fonts;
    unsigned m_nGeneration = 0;
    std::size_t m_nBytes = 0;

    void DropIfFull()
    {
        if (m_nGeneration == CFontCache::Generation() && m_fonts.size() < s_nFontsLimit &&
            m_nBytes < s_nBytesLimit)
            return;
        m_fonts.clear();
        m_nBytes = 0;
        m_nGeneration = CFontCache::Generation();
    }
};

CMaskCache& MaskCache()
{
    static auto* const s_pCache = new CMaskCache;  // outlives every device context
    return *s_pCache;
}

// The part of an image of one byte a pixel that is not empty.
RECT InkBox(const BYTE* pData, int nStride, int nWidth, int nHeight)
{
    RECT box{ nWidth, nHeight, 0, 0 };
    for (int y = 0; y < nHeight; ++y)
    {
        for (int x = 0; x < nWidth; ++x)
        {
            if (pData[y * nStride + x])
            {
                box = { std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                        y + 1 };
            }
        }
    }
    return box;
}

// Each channel times n / 255, rounded as cairo rounds it: red and blue in one go, then green.
constexpr CPixel Scale(CPixel pixel, unsigned n)
{
    CPixel redBlue = (pixel & 0xFF00FF) * n + 0x800080;
    redBlue = (redBlue + (redBlue >> 8 & 0xFF00FF)) >> 8 & 0xFF00FF;
    CPixel green = (pixel >> 8 & 0xFF) * n + 0x80;
    green = (green + (green >> 8)) & 0xFF00;
    return redBlue | green;
}

}  // namespace

const CGlyphMask& CFontMasks::MakeMask(BYTE byte)
{
    auto pMask = std::make_unique<CGlyphMask>();
    cairo_glyph_t glyph{ m_font.Glyph(byte), 0, 0 };
    cairo_text_extents_t extents{};
    cairo_scaled_font_glyph_extents(m_pFont.get(), &glyph, 1, &extents);
    // Hinting moves edges by a pixel, and synthetic bold is not in the extents.
    constexpr int nMargin = 4;
    const int nLeft = static_cast<int>(std::floor(extents.x_bearing)) - nMargin;
    const int nTop = static_cast<int>(std::floor(extents.y_bearing)) - nMargin;
    const int nWidth = static_cast<int>(std::ceil(extents.width)) + 2 * nMargin + 1;
    const int nHeight = static_cast<int>(std::ceil(extents.height)) + 2 * nMargin + 1;
    const CSurfacePtr pSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, nWidth, nHeight));
    {
        const CCairoPtr pCairo(cairo_create(pSurface.get()));
        cairo_set_scaled_font(pCairo.get(), m_pFont.get());
        glyph.x = -nLeft;
        glyph.y = -nTop;
        cairo_show_glyphs(pCairo.get(), &glyph, 1);
    }
    cairo_surface_flush(pSurface.get());
    if (const BYTE* pData = cairo_image_surface_get_data(pSurface.get()))
    {
        const int nStride = cairo_image_surface_get_stride(pSurface.get());
        const RECT ink = InkBox(pData, nStride, nWidth, nHeight);
        for (int y = ink.top; y < ink.bottom; ++y)
        {
            pMask->m_coverage.insert(pMask->m_coverage.end(), pData + y * nStride + ink.left,
                                     pData + y * nStride + ink.right);
        }
        if (!pMask->m_coverage.empty())
        {
            pMask->m_box = { ink.left + nLeft, ink.top + nTop, ink.right + nLeft,
                             ink.bottom + nTop };
        }
    }
    MaskCache().m_nBytes += sizeof(CGlyphMask) + pMask->m_coverage.size();
    m_apMasks[byte] = std::move(pMask);
    return *m_apMasks[byte];
}

CFontMasks* FindFontMasks(const CRealizedFont& font, CHinting hinting)
{
    CMaskCache& cache = MaskCache();
    cache.DropIfFull();
    CMaskEntry& entry = cache.m_fonts[&font];
    const int n = hinting == CHinting::twoColours ? 1 : 0;
    if (!entry.m_abTried[n])
    {
        entry.m_abTried[n] = true;
        cairo_matrix_t identity;
        cairo_matrix_init_identity(&identity);
        if (CScaledFontPtr pFont = MakeScaledFont(font, hinting, identity))
            entry.m_apMasks[n] = std::make_unique<CFontMasks>(font, std::move(pFont));
    }
    return entry.m_apMasks[n].get();
}

void BlendRow(std::span<CPixel> row, const BYTE* pCoverage, CPixel colour)
{
    for (CPixel& pixel : row)
    {
        const unsigned nCover = *pCoverage++;
        if (nCover == 0)
            continue;
        if (nCover == 0xFF)
        {
            pixel = colour;
            continue;
        }
        pixel = Scale(colour, nCover) + Scale(pixel, 0xFF - nCover);
    }
}
