// Outlines as the system tells them.
#include "platform/gdi/glyph_outline.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/native_gdi.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace
{

// A font that is selected for questions.
class CAskedFont
{
public:
    explicit CAskedFont(const LOGFONTA& font)
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_font.Attach(CreateFaceFont(&font));
        m_pOld = m_dc.SelectObject(&m_font);
    }
    ~CAskedFont() { m_dc.SelectObject(m_pOld); }
    CAskedFont(const CAskedFont&) = delete;
    CAskedFont& operator=(const CAskedFont&) = delete;

    TEXTMETRICA Metrics() const
    {
        TEXTMETRICA metrics{};
        m_dc.GetTextMetrics(&metrics);
        return metrics;
    }
    int UnitsPerEm() const
    {
        OUTLINETEXTMETRICA metrics{};
        metrics.otmSize = sizeof metrics;
        const UINT nSize = GetOutlineTextMetricsA(m_dc.GetSafeHdc(), sizeof metrics, &metrics);
        return nSize != 0 && metrics.otmEMSquare != 0 ? static_cast<int>(metrics.otmEMSquare)
                                                      : 2048;
    }
    HDC Handle() const { return m_dc.GetSafeHdc(); }

private:
    CDC m_dc;
    CFont m_font;
    CFont* m_pOld = nullptr;
};

// A face without its size, and the font of it whose pixels are its units.
struct CFaceEntry
{
    int m_nUnitsPerEm = 2048;
    std::optional<CAskedFont> m_units;
};

using CFaceKey = std::tuple<std::string, bool, bool, BYTE, BYTE>;

std::map<int, CFaceEntry>& Faces()
{
    static auto* const s_pFaces = new std::map<int, CFaceEntry>;
    return *s_pFaces;
}

int FaceNumber(const LOGFONTA& font)
{
    static auto* const s_pNumbers = new std::map<CFaceKey, int>;
    const CFaceKey key(font.lfFaceName, font.lfWeight > 550, font.lfItalic != 0, font.lfCharSet,
                       font.lfPitchAndFamily);
    const auto [it, bNew] = s_pNumbers->try_emplace(key, static_cast<int>(s_pNumbers->size()));
    if (!bNew)
        return it->second;
    CFaceEntry& entry = Faces()[it->second];
    LOGFONTA units = font;
    units.lfWidth = 0;
    units.lfHeight = -entry.m_nUnitsPerEm;
    entry.m_nUnitsPerEm = CAskedFont(units).UnitsPerEm();
    units.lfHeight = -entry.m_nUnitsPerEm;
    entry.m_units.emplace(units);
    return it->second;
}

// How much wider than its face a font with a width of its own is; the system gives up beyond a
// hundred times the height.
double WidthRatio(const LOGFONTA& font, int nHeight)
{
    const int nAsked = std::abs(font.lfWidth);
    if (nAsked == 0 || nHeight <= 0 || (nAsked + nHeight - 1) / nHeight > 100)
        return 1;
    LOGFONTA natural = font;
    natural.lfWidth = 0;
    return static_cast<double>(nAsked) /
           std::max<int>(CAskedFont(natural).Metrics().tmAveCharWidth, 1);
}

COutlinePoint Point(const POINTFX& point)
{
    const auto halves = [](const FIXED& n)
    {
        return n.value * 2 + (n.fract >= 0x8000 ? 1 : 0);
    };
    return { halves(point.x), halves(point.y) };
}

COutlinePoint Middle(COutlinePoint a, COutlinePoint b)
{
    return { (a.x + b.x) / 2, (a.y + b.y) / 2 };
}

void AddCurve(CGlyphOutline& outline, const TTPOLYCURVE& curve)
{
    const POINTFX* p = curve.apfx;
    const int nCount = curve.cpfx;
    for (int i = 0; i < nCount; ++i)
    {
        if (curve.wType == TT_PRIM_LINE)
        {
            outline.LineTo(Point(p[i]));
        }
        else if (curve.wType == TT_PRIM_QSPLINE && i + 1 < nCount)
        {
            outline.CurveTo(Point(p[i]), i + 2 == nCount ? Point(p[i + 1])
                                                         : Middle(Point(p[i]), Point(p[i + 1])));
        }
        else if (curve.wType == TT_PRIM_CSPLINE && i % 3 == 0 && i + 2 < nCount)
        {
            outline.CubicTo(Point(p[i]), Point(p[i + 1]), Point(p[i + 2]));
        }
    }
}

}  // namespace

CGlyphFont FindGlyphFont(const LOGFONTA& font)
{
    const CAskedFont asked(font);
    const TEXTMETRICA metrics = asked.Metrics();
    CGlyphFont found;
    found.m_nFace = FaceNumber(font);
    const int nPpem =
        font.lfHeight < 0 ? -font.lfHeight : metrics.tmHeight - metrics.tmInternalLeading;
    found.m_fUnitY = static_cast<double>(nPpem) / Faces()[found.m_nFace].m_nUnitsPerEm;
    found.m_fUnitX = found.m_fUnitY * WidthRatio(font, metrics.tmHeight);
    found.m_nAscent = metrics.tmAscent;
    found.m_nHeight = metrics.tmHeight;
    return found;
}

CGlyphOutline ReadGlyphOutline(const CGlyphFont& font, BYTE nCode)
{
    CGlyphOutline outline;
    const MAT2 identity = { { 0, 1 }, { 0, 0 }, { 0, 0 }, { 0, 1 } };
    const HDC hDC = Faces()[font.m_nFace].m_units->Handle();
    GLYPHMETRICS metrics{};
    const auto ask = [&](DWORD nSize, void* pBuffer)
    {
        return GetGlyphOutlineA(hDC, nCode, GGO_NATIVE | GGO_UNHINTED, &metrics, nSize, pBuffer,
                                &identity);
    };
    const DWORD nSize = ask(0, nullptr);
    if (nSize == GDI_ERROR || nSize == 0)
        return outline;
    std::vector<BYTE> buffer(nSize);
    if (ask(nSize, buffer.data()) == GDI_ERROR)
        return outline;
    for (DWORD n = 0; n + sizeof(TTPOLYGONHEADER) <= nSize;)
    {
        const auto* pContour = reinterpret_cast<const TTPOLYGONHEADER*>(&buffer[n]);
        outline.MoveTo(Point(pContour->pfxStart));
        DWORD nCurve = n + sizeof *pContour;
        while (nCurve < n + pContour->cb)
        {
            const auto* pCurve = reinterpret_cast<const TTPOLYCURVE*>(&buffer[nCurve]);
            AddCurve(outline, *pCurve);
            nCurve += offsetof(TTPOLYCURVE, apfx) + pCurve->cpfx * sizeof(POINTFX);
        }
        n += pContour->cb;
    }
    return outline;
}
