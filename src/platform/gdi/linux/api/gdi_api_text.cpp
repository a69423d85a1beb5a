// The C functions for text: extents, metrics, drawing.
#include "platform/base/rounding.h"
#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/fonts/font_cache.h"

#include <cstring>

namespace
{

std::span<const BYTE> Bytes(LPCSTR pszText, std::size_t nCount)
{
    return { reinterpret_cast<const BYTE*>(pszText), nCount };
}

SIZE TextExtent(HDC hDC, std::span<const BYTE> text)
{
    const CRealizedFont& font = hDC->Font();
    const CMapping& mapping = hDC->Mapping();
    return { mapping.ToLogicalWidth(font.TextWidth(text)), mapping.ToLogicalHeight(font.Height()) };
}

// Where a text of that extent stands in the rectangle; halves are cut towards zero, each by itself.
POINT PlaceInRect(const RECT& rect, SIZE extent, UINT nFormat)
{
    POINT point{ rect.left, rect.top };
    if (nFormat & DT_CENTER)
        point.x = SaturateToInt((std::int64_t{ rect.left } + rect.right - extent.cx) / 2);
    else if (nFormat & DT_RIGHT)
        point.x = SaturateToInt(std::int64_t{ rect.right } - extent.cx);
    if (nFormat & DT_VCENTER)
    {
        // Not half of the difference: of an odd height and an odd text that is another pixel.
        point.y =
            SaturateToInt(rect.top + (std::int64_t{ rect.bottom } - rect.top) / 2 - extent.cy / 2);
    }
    else if (nFormat & DT_BOTTOM)
    {
        point.y = SaturateToInt(std::int64_t{ rect.bottom } - extent.cy);
    }
    return point;
}

}  // namespace

// Returns the distance from the rectangle's top to the end of the text. Neither an empty nor an
// inverted rectangle ends the call early, and y is not turned round in a mapping whose axis points
// up: layouts rely on both.
int DrawTextA(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat)
{
    constexpr UINT nOnePlainLine = DT_SINGLELINE | DT_NOPREFIX;
    if (!hDC || !pRect || (!pszText && nCount != 0) || (nFormat & nOnePlainLine) != nOnePlainLine)
        return 0;
    if (nCount < 0)
        nCount = static_cast<int>(std::strlen(pszText));
    SIZE extent = TextExtent(hDC, Bytes(pszText, static_cast<std::size_t>(nCount)));
    const POINT place = PlaceInRect(*pRect, extent, nFormat);
    if (nCount > 0)
    {
        ExtTextOutA(hDC, place.x, place.y, nFormat & DT_NOCLIP ? 0 : ETO_CLIPPED, pRect, pszText,
                    static_cast<UINT>(nCount), nullptr);
    }
    if (nFormat & DT_EXTERNALLEADING)
    {
        extent.cy = SaturateToInt(std::int64_t{ extent.cy } +
                                  hDC->Mapping().ToLogicalHeight(hDC->Font().ExternalLeading()));
    }
    return SaturateToInt(std::int64_t{ place.y } - pRect->top + extent.cy);
}

BOOL ExtTextOutA(HDC hDC, int x, int y, UINT nOptions, const RECT* pRect, LPCSTR pszText,
                 UINT nCount, const INT* pDx)
{
    if (!hDC || (!pszText && nCount > 0))
        return FALSE;
    if (!pRect)
        nOptions &= ~(ETO_OPAQUE | ETO_CLIPPED);
    if (nCount == 0 && !(nOptions & ETO_OPAQUE))
        return TRUE;  // nothing to be seen
    CTextRun run{ { x, y }, nOptions, pRect, Bytes(pszText, nCount), pDx };
    CDrawTarget* pTarget = hDC->Target();
    return !pTarget || pTarget->ExtTextOut(*hDC, run);
}

BOOL GetTextExtentPoint32A(HDC hDC, LPCSTR pszText, int nCount, SIZE* pSize)
{
    if (!hDC || !pSize || nCount < 0 || (!pszText && nCount > 0))
        return FALSE;
    // No characters have no height either: whoever wants the font's asks for its metrics.
    *pSize = nCount == 0 ? SIZE{ 0, 0 }
                         : TextExtent(hDC, Bytes(pszText, static_cast<std::size_t>(nCount)));
    return TRUE;
}

BOOL GetTextMetricsA(HDC hDC, TEXTMETRICA* pMetrics)
{
    if (!hDC || !pMetrics)
        return FALSE;
    const CRealizedFont& font = hDC->Font();
    const CFontFace& face = font.Face();
    const LOGFONTA& asked = hDC->State().m_pFont->LogFont();
    const CMapping& mapping = hDC->Mapping();

    TEXTMETRICA metrics{};
    metrics.tmHeight = mapping.ToLogicalHeight(font.Height());
    metrics.tmAscent = mapping.ToLogicalHeight(font.Ascent());
    metrics.tmDescent = mapping.ToLogicalHeight(font.Descent());
    metrics.tmInternalLeading = mapping.ToLogicalHeight(font.InternalLeading());
    metrics.tmExternalLeading = mapping.ToLogicalHeight(font.ExternalLeading());
    metrics.tmAveCharWidth = mapping.ToLogicalWidth(font.AverageWidth());
    metrics.tmMaxCharWidth = mapping.ToLogicalWidth(font.MaxWidth());
    metrics.tmWeight = asked.lfWeight >= LIGHTEST_BOLD ? FW_BOLD : FW_NORMAL;
    metrics.tmDigitizedAspectX = hDC->Device().m_nDpiX;
    metrics.tmDigitizedAspectY = hDC->Device().m_nDpiY;
    metrics.tmFirstChar = 0x20;
    metrics.tmLastChar = 0xFF;
    metrics.tmDefaultChar = 0x1F;
    metrics.tmBreakChar = 0x20;
    metrics.tmItalic = asked.lfItalic ? 0xFF : 0;
    metrics.tmUnderlined = asked.lfUnderline;
    metrics.tmStruckOut = asked.lfStrikeOut;
    metrics.tmPitchAndFamily = static_cast<BYTE>(TMPF_VECTOR | TMPF_TRUETYPE |
                                                 (face.m_bFixedPitch ? 0 : TMPF_FIXED_PITCH) |
                                                 (asked.lfPitchAndFamily & 0xF0));
    metrics.tmCharSet = TakesPrivateCodes(face, asked.lfCharSet) ? SYMBOL_CHARSET : ANSI_CHARSET;
    *pMetrics = metrics;
    return TRUE;
}
