// A text on the device: bytes of a font, and where each of them goes.
#pragma once

#include "platform/base/rounding.h"
#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/fonts/font_cache.h"

#include <limits>
#include <optional>

// Device pixels.
struct CGlyphRun
{
    const CRealizedFont& m_font;
    std::span<const BYTE> m_text;
    POINT m_origin;              // of the first byte, on the base line
    const INT* m_pDx;            // as in CTextRun
    std::optional<RECT> m_clip;  // beside that of the device context
};

// Places of pens from which a glyph can be seen, ends included.
struct CPenBounds
{
    std::int64_t m_nLeft = std::numeric_limits<std::int64_t>::min();
    std::int64_t m_nRight = std::numeric_limits<std::int64_t>::max();
};

// Calls f(byte, x) for the bytes whose pens lie within the bounds; x is the pen's place.
template <class F>
void WalkGlyphs(const CDeviceContext& dc, const CGlyphRun& run, const CPenBounds& bounds, F f)
{
    std::int64_t nAdvance = 0;  // so far: pixels, or the caller's units
    for (std::size_t i = 0; i < run.m_text.size(); ++i)
    {
        const BYTE byte = run.m_text[i];
        const std::int64_t x =
            run.m_origin.x +
            (run.m_pDx ? dc.Mapping().ToDeviceWidth(SaturateToInt(nAdvance)) : nAdvance);
        nAdvance += run.m_pDx ? run.m_pDx[i] : run.m_font.Advance(byte);
        if (x >= bounds.m_nLeft && x <= bounds.m_nRight)
            f(byte, x);
    }
}
