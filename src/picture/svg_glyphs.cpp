// Curves of a face, scaled and rounded once, as relative steps of a path.
#include "picture/svg_glyphs.h"

#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <tuple>

#include "picture/svg_path.h"

namespace
{
constexpr size_t s_nFontsLimit = 512;

using CFontKey = std::tuple<int, double, double, double>;

std::map<CFontKey, CSvgFont>& Fonts()
{
    static auto* const s_pFonts = new std::map<CFontKey, CSvgFont>;
    return *s_pFonts;
}

// FNV-1a.
std::uint64_t HashOf(const std::string& strText)
{
    std::uint64_t nHash = 0xCBF29CE484222325;
    for (const char ch : strText)
        nHash = (nHash ^ static_cast<unsigned char>(ch)) * 0x100000001B3;
    return nHash;
}

// From half font units to hundredths of a pixel.
class CToHundredths
{
public:
    CToHundredths(const CGlyphFont& font, double fScale)
        : m_fX(font.m_fUnitX * fScale / 2),
          m_fY(-font.m_fUnitY * fScale / 2),
          m_fSlant(font.m_fSlant),
          m_fShift(font.m_fThicken)  // the stroke reaches to both sides, and is to reach to one
    {
    }
    COutlinePoint operator()(COutlinePoint point) const
    {
        return { static_cast<int>(std::lround((point.x + m_fSlant * point.y + m_fShift) * m_fX)),
                 static_cast<int>(std::lround((point.y + m_fShift) * m_fY)) };
    }

private:
    double m_fX;
    double m_fY;
    double m_fSlant;
    double m_fShift;
};

// Follows an outline; the pen stands on whole hundredths, so that no error grows along the way.
class CTracer
{
public:
    CTracer(CSvgGlyph& glyph, const CToHundredths& place)
        : m_glyph(glyph), m_path(glyph.strSteps), m_place(place)
    {
    }

    void Trace(const CGlyphOutline& outline)
    {
        const COutlinePoint* p = outline.m_points.data();
        const size_t nSteps = outline.m_steps.size();
        for (size_t n = 0; n < nSteps; ++n)
        {
            const bool bLast = n + 1 == nSteps || outline.m_steps[n + 1] == COutlineStep::move;
            switch (outline.m_steps[n])
            {
                case COutlineStep::move:
                    Start(m_place(*p++));
                    break;
                case COutlineStep::line:
                    Line(m_place(*p++), bLast);
                    break;
                case COutlineStep::curve:
                    Curve(m_place(p[0]), m_place(p[1]));
                    p += 2;
                    break;
                case COutlineStep::cubic:
                    Cubic(m_place(p[0]), m_place(p[1]), m_place(p[2]));
                    p += 3;
                    break;
            }
            if (bLast)
                m_path.Close();
        }
    }

private:
    // Closing a contour leads the pen back to its start.
    void Start(COutlinePoint to)
    {
        if (m_bFirst)
        {
            m_glyph.nFirstX = to.x;
            m_glyph.nFirstY = to.y;
        }
        else
        {
            m_path.MoveBy(to.x - m_start.x, to.y - m_start.y);
        }
        m_bFirst = false;
        m_start = m_pen = to;
    }
    void Line(COutlinePoint to, bool bLast)
    {
        if (to == m_pen || (bLast && to == m_start))
            return;
        m_path.LineBy(to.x - m_pen.x, to.y - m_pen.y);
        m_pen = to;
    }
    void Curve(COutlinePoint control, COutlinePoint to)
    {
        m_path.CurveBy(control.x - m_pen.x, control.y - m_pen.y, to.x - m_pen.x, to.y - m_pen.y);
        m_pen = to;
    }
    void Cubic(COutlinePoint first, COutlinePoint second, COutlinePoint to)
    {
        m_path.CubicBy(first.x - m_pen.x, first.y - m_pen.y, second.x - m_pen.x, second.y - m_pen.y,
                       to.x - m_pen.x, to.y - m_pen.y);
        m_pen = to;
    }

    CSvgGlyph& m_glyph;
    CSvgPath m_path;
    const CToHundredths& m_place;
    COutlinePoint m_start{};
    COutlinePoint m_pen{};
    bool m_bFirst = true;
};
}  // namespace

CSvgFont& CSvgFont::Find(const CGlyphFont& font, double fScale)
{
    const CFontKey key(font.m_nFace, font.m_fUnitX, font.m_fUnitY, fScale);
    return Fonts().try_emplace(key, font, fScale).first->second;
}

void CSvgFont::Tidy()
{
    if (Fonts().size() > s_nFontsLimit)
        Fonts().clear();
}

const CSvgGlyph& CSvgFont::Glyph(BYTE nCode)
{
    std::unique_ptr<CSvgGlyph>& pGlyph = m_apGlyphs[nCode];
    if (!pGlyph)
        pGlyph = std::make_unique<CSvgGlyph>(MakeGlyph(nCode));
    return *pGlyph;
}

CSvgGlyph CSvgFont::MakeGlyph(BYTE nCode) const
{
    CSvgGlyph glyph;
    const CGlyphShape& shape = FindGlyphShape(m_font, nCode);
    if (!shape.HasInk())
        return glyph;
    const CToHundredths place(m_font, m_fScale);
    CTracer(glyph, place).Trace(shape.outline);
    glyph.nHash = HashOf(std::to_string(glyph.nFirstX) + ' ' + std::to_string(glyph.nFirstY) +
                         glyph.strSteps);
    return glyph;
}
