// The C functions for text: extents, metrics, drawing.
#include "platform/gdi/linux/device_context.h"
#include "platform/gdi/linux/font_cache.h"
#include "platform/gdi/linux/rounding.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

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

// The text without its marks: of "&x" the x stays, of "&&" one "&".
std::string WithoutPrefixes(std::string_view text)
{
    std::string strPlain;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == '&' && ++i == text.size())
            break;
        strPlain += text[i];
    }
    return strPlain;
}

// Where a text of that extent stands in the rectangle; halves are cut towards zero, each by itself.
POINT PlaceInRect(const RECT& rect, SIZE extent, UINT nFormat)
{
    POINT point{ rect.left, rect.top };
    if (nFormat & DT_CENTER)
        point.x = SaturateToInt((std::int64_t{ rect.left } + rect.right - extent.cx) / 2);
    else if (nFormat & DT_RIGHT)
        point.x = SaturateToInt(std::int64_t{ rect.right } - extent.cx);
    if (!(nFormat & DT_SINGLELINE))
        return point;
    if (nFormat & DT_VCENTER)
        point.y =
            SaturateToInt(rect.top + (std::int64_t{ rect.bottom } - rect.top) / 2 - extent.cy / 2);
    else if (nFormat & DT_BOTTOM)
        point.y = SaturateToInt(std::int64_t{ rect.bottom } - extent.cy);
    return point;
}

// The parts between line breaks.
std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    std::size_t nEnd = 0;
    while ((nEnd = text.find_first_of("\r\n")) != text.npos)
    {
        lines.push_back(text.substr(0, nEnd));
        text.remove_prefix(nEnd + (text.substr(nEnd, 2) == "\r\n" ? 2 : 1));
    }
    lines.push_back(text);
    return lines;
}

// One line in the rectangle; returns its extent, with the distance to a next line where that is
// asked for.
SIZE DrawLine(HDC hDC, std::string_view line, const RECT& rect, UINT nFormat, POINT& place)
{
    SIZE extent = TextExtent(hDC, Bytes(line.data(), line.size()));
    place = PlaceInRect(rect, extent, nFormat);
    if (!line.empty() && !(nFormat & DT_CALCRECT))
        ExtTextOutA(hDC, place.x, place.y, nFormat & DT_NOCLIP ? 0 : ETO_CLIPPED, &rect,
                    line.data(), static_cast<UINT>(line.size()), nullptr);
    if (nFormat & DT_EXTERNALLEADING)
        extent.cy = SaturateToInt(std::int64_t{ extent.cy } +
                                  hDC->Mapping().ToLogicalHeight(hDC->Font().ExternalLeading()));
    return extent;
}

}  // namespace

// Returns the distance from the rectangle's top to the end of the text. The marks of a text without
// DT_NOPREFIX are taken out, and nothing is underlined.
int DrawTextA(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat)
{
    if (!hDC || !pRect || (!pszText && nCount != 0))
        return 0;
    std::string_view text(pszText ? pszText : "",
                          nCount >= 0 ? static_cast<std::size_t>(nCount) : std::strlen(pszText));
    std::string strPlain;
    if (!(nFormat & DT_NOPREFIX) && text.find('&') != text.npos)
        text = strPlain = WithoutPrefixes(text);

    POINT place{};
    SIZE extent{};
    if (nFormat & DT_SINGLELINE)
        extent = DrawLine(hDC, text, *pRect, nFormat, place);
    else
    {
        RECT rect = *pRect;
        for (std::string_view line : SplitLines(text))
        {
            SIZE size = DrawLine(hDC, line, rect, nFormat, place);
            rect.top = SaturateToInt(std::int64_t{ rect.top } + size.cy);
            extent = { std::max(extent.cx, size.cx),
                       SaturateToInt(std::int64_t{ rect.top } - pRect->top) };
        }
        place.y = pRect->top;
    }
    if (nFormat & DT_CALCRECT)
    {
        place = { pRect->left, pRect->top };
        pRect->right = SaturateToInt(std::int64_t{ pRect->left } + extent.cx);
        pRect->bottom = SaturateToInt(std::int64_t{ pRect->top } + extent.cy);
    }
    return SaturateToInt(std::int64_t{ place.y } - pRect->top + extent.cy);
}

BOOL TextOutA(HDC hDC, int x, int y, LPCSTR pszText, int nCount)
{
    if (nCount < 0 && pszText)
        nCount = static_cast<int>(std::strlen(pszText));
    return ExtTextOutA(hDC, x, y, 0, nullptr, pszText, static_cast<UINT>(std::max(nCount, 0)),
                       nullptr);
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
    bool bDone = !pTarget || pTarget->ExtTextOut(*hDC, run);
    if (nCount > 0 && (hDC->State().m_nTextAlign & TA_UPDATECP))
    {
        LONG& nX = hDC->ChangeState().m_ptCurrent.x;
        nX = SaturateToInt(std::int64_t{ nX } + hDC->Mapping().ToLogicalWidth(hDC->TextWidth(run)));
    }
    return bDone;
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
    metrics.tmWeight = asked.lfWeight > 550 ? FW_BOLD : FW_NORMAL;
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

BOOL GetCharWidth32A(HDC hDC, UINT nFirst, UINT nLast, INT* pWidths)
{
    if (!hDC || !pWidths || nFirst > nLast || nLast > 0xFF)
        return FALSE;
    const CRealizedFont& font = hDC->Font();
    for (UINT n = nFirst; n <= nLast; ++n)
        *pWidths++ = hDC->Mapping().ToLogicalWidth(font.Advance(static_cast<BYTE>(n)));
    return TRUE;
}

int GetTextFaceA(HDC hDC, int nCount, LPSTR pszFace)
{
    if (!hDC)
        return 0;
    const char* pszName = hDC->State().m_pFont->LogFont().lfFaceName;
    int nLength = static_cast<int>(std::strlen(pszName));
    if (!pszFace)
        return nLength + 1;
    if (nCount <= 0)
        return 0;
    int nCopied = std::min(nLength, nCount - 1);
    std::memcpy(pszFace, pszName, static_cast<std::size_t>(nCopied));
    pszFace[nCopied] = '\0';
    return nCopied + 1;
}
