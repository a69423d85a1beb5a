// The document as one text: head, metadata, shapes that recur, then what uses them.
#include "picture/svg.h"

#include <cmath>
#include <cstdio>
#include <unordered_map>

#include "picture/carried_text.h"
#include "picture/svg_glyphs.h"
#include "picture/svg_path.h"

namespace
{
constexpr int s_nUnit = 100;                // coordinates in a pixel
constexpr int s_nLargestSide = 10'000'000;  // of which coordinates are still whole numbers
// What a glyph costs, in characters, beside its steps: drawn where it stands, drawn by its name,
// and given a name.
constexpr size_t s_nPlainCost = 24;
constexpr size_t s_nUseCost = 52;
constexpr size_t s_nNameCost = 42;

int Hundredths(double f)
{
    return static_cast<int>(std::lround(f * s_nUnit));
}

std::string Number(double f)
{
    char szText[32];
    std::snprintf(szText, sizeof szText, "%.3f", f);
    std::string strText = szText;
    strText.erase(strText.find_last_not_of('0') + 1);
    if (strText.back() == '.')
        strText.pop_back();
    return strText == "-0" ? "0" : strText;
}

std::string ColourText(COLORREF colour)
{
    char szText[8];
    std::snprintf(szText, sizeof szText, "#%02x%02x%02x", GetRValue(colour), GetGValue(colour),
                  GetBValue(colour));
    return szText;
}

class CSvgWriter
{
public:
    CSvgWriter(const CDrawing& drawing, const CPlacement& placement, const CPictureOptions& options)
        : m_drawing(drawing), m_placement(placement), m_options(options)
    {
        CSvgFont::Tidy();
        for (const CDrawnFont& font : drawing.fonts)
            m_fonts.push_back(&CSvgFont::Find(font.glyphs, placement.Scale() * s_nUnit));
    }

    std::string Write(const std::vector<CNodeBox>& boxes)
    {
        CountGlyphs();
        m_strSvg.reserve(512 + m_nPlainBytes);
        WriteHead();
        WriteShared();
        m_strSvg += "<g transform=\"scale(.01)\"";
        if (m_options.bPageColour)
            m_strSvg += " fill=\"currentColor\"";
        m_strSvg += ">\n";
        for (const CDrawnMark& mark : m_drawing.marks)
            WriteMark(mark);
        for (const CDrawnText& text : m_drawing.texts)
            WriteText(text);
        WriteLines();
        DrawBoxes(boxes, [this](double l, double t, double r, double b, const CBoxColour& colour)
                  { WriteBox(l, t, r, b, colour); });
        m_strSvg += "</g>\n</svg>\n";
        return std::move(m_strSvg);
    }

private:
    struct CUse
    {
        size_t nCount = 0;
        bool bNamed = false;
    };

    // Finds out which glyphs are worth a name.
    void CountGlyphs()
    {
        for (const CDrawnText& text : m_drawing.texts)
        {
            for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
                ++m_uses[&m_fonts[text.nFont]->Glyph(m_drawing.glyphs[n].nCode)].nCount;
        }
        for (auto& [pGlyph, use] : m_uses)
        {
            const size_t nSteps = pGlyph->strSteps.size();
            const size_t nPlain = use.nCount * (s_nPlainCost + nSteps);
            const size_t nNamed = s_nNameCost + nSteps + use.nCount * s_nUseCost;
            use.bNamed = nNamed < nPlain;
            m_bNames = m_bNames || use.bNamed;
            m_nPlainBytes += use.bNamed ? nNamed : nPlain;
        }
    }

    void WriteHead()
    {
        const CPictureSize size = m_placement.Told();
        const std::string strWidth = std::to_string(size.nWidth);
        const std::string strHeight = std::to_string(size.nHeight);
        m_strSvg += "<svg xmlns=\"http://www.w3.org/2000/svg\"";
        if (m_bNames)
        {
            m_strSvg += " xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
        }
        m_strSvg += " width=\"" + strWidth + "\" height=\"" + strHeight + "\" viewBox=\"0 0 " +
                    strWidth + ' ' + strHeight +
                    "\" role=\"img\" style=\"vertical-align:" + Number(-size.fDepth / size.fEm) +
                    "em\">\n";
        m_strSvg += SvgCarriedText(m_options.strSource, m_options.strTitle);
        if (m_options.bTransparent)
            return;
        m_strSvg += "<rect width=\"" + strWidth + "\" height=\"" + strHeight + "\" fill=\"" +
                    ColourText(BackgroundOf(m_options)) + "\"/>\n";
    }

    void WriteShared()
    {
        if (!m_bNames)
            return;
        m_strSvg += "<defs>\n";
        for (const CDrawnText& text : m_drawing.texts)  // in the order of their first use
        {
            for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
                WriteNamed(m_fonts[text.nFont]->Glyph(m_drawing.glyphs[n].nCode));
        }
        m_strSvg += "</defs>\n";
    }

    void WriteNamed(const CSvgGlyph& glyph)
    {
        CUse& use = m_uses[&glyph];
        if (!use.bNamed || use.nCount == 0)
            return;
        use.nCount = 0;  // is written
        m_strSvg += "<path id=\"" + NameOf(glyph) + "\" d=\"";
        CSvgPath(m_strSvg).MoveTo(glyph.nFirstX, glyph.nFirstY);
        m_strSvg += glyph.strSteps;
        m_strSvg += "\"/>\n";
    }

    static std::string NameOf(const CSvgGlyph& glyph)
    {
        char szName[24];
        std::snprintf(szName, sizeof szName, "g%016llx",
                      static_cast<unsigned long long>(glyph.nHash));
        return szName;
    }

    void WriteText(const CDrawnText& text)
    {
        const CGlyphFont& font = m_drawing.fonts[text.nFont].glyphs;
        const std::string strPaint = PaintOf(text.colour) + ThickeningOf(font, text.colour);
        bool bOpen = false;  // a path, into which plain glyphs go
        for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
        {
            const CDrawnGlyph& drawn = m_drawing.glyphs[n];
            const CSvgGlyph& glyph = m_fonts[text.nFont]->Glyph(drawn.nCode);
            if (glyph.strSteps.empty())
                continue;
            const int x =
                Hundredths(m_placement.X(static_cast<double>(text.origin.x) + drawn.nOffset));
            const int y = Hundredths(m_placement.Y(text.origin.y));
            const bool bNamed = m_bNames && m_uses[&glyph].bNamed;
            if (bOpen && bNamed)
                m_strSvg += "\"/>\n";
            if (bNamed)
            {
                m_strSvg += "<use xlink:href=\"#" + NameOf(glyph) + "\" x=\"" + std::to_string(x) +
                            "\" y=\"" + std::to_string(y) + '"' + strPaint + "/>\n";
                bOpen = false;
                continue;
            }
            if (!bOpen)
                m_strSvg += "<path" + strPaint + " d=\"";
            CSvgPath(m_strSvg).MoveTo(x + glyph.nFirstX, y + glyph.nFirstY);
            m_strSvg += glyph.strSteps;
            bOpen = true;
        }
        if (bOpen)
            m_strSvg += "\"/>\n";
    }

    // Black, or the colour of the page, is what a path has without a word.
    std::string PaintOf(COLORREF colour) const
    {
        const bool bUsual = m_options.bPageColour ? IsPageColour(colour) : colour == 0;
        return bUsual ? "" : " fill=\"" + ColourText(colour) + '"';
    }
    std::string ThickeningOf(const CGlyphFont& font, COLORREF colour) const
    {
        if (font.m_fThicken == 0)
            return {};
        return StrokeOf(colour, font.m_fThicken * font.m_fUnitY * m_placement.Scale()) +
               " stroke-linejoin=\"round\"";
    }
    std::string StrokeOf(COLORREF colour, double fWidth) const
    {
        return std::string(" stroke=\"") +
               (IsPageColour(colour) ? "currentColor" : ColourText(colour)) + "\" stroke-width=\"" +
               std::to_string(Hundredths(fWidth)) + '"';
    }
    bool IsPageColour(COLORREF colour) const
    {
        return m_options.bPageColour && colour == m_options.colour;
    }

    void WriteLines()
    {
        const std::vector<CDrawnLine>& lines = m_drawing.lines;
        for (size_t n = 0; n < lines.size();)
        {
            const bool bBar = IsBar(lines[n]);
            const COLORREF colour = lines[n].colour;
            m_strSvg += bBar ? "<path" + PaintOf(colour)
                             : "<path fill=\"none\"" + StrokeOf(colour, m_placement.Pen());
            m_strSvg += " d=\"";
            CSvgPath path(m_strSvg);
            for (; n < lines.size() && IsBar(lines[n]) == bBar && lines[n].colour == colour; ++n)
                WriteLine(path, lines[n]);
            m_strSvg += "\"/>\n";
        }
    }

    static bool IsBar(const CDrawnLine& line) { return line.IsHorizontal() || line.IsVertical(); }

    void WriteLine(CSvgPath& path, const CDrawnLine& line)
    {
        if (IsBar(line))
        {
            const CRect bar = m_placement.PlaceBar(line);
            path.Rect(bar.left * s_nUnit, bar.top * s_nUnit, bar.right * s_nUnit,
                      bar.bottom * s_nUnit);
            return;
        }
        const int x = Hundredths(m_placement.X(line.x1));
        const int y = Hundredths(m_placement.Y(line.y1));
        path.MoveTo(x, y);
        path.LineBy(Hundredths(m_placement.X(line.x2)) - x, Hundredths(m_placement.Y(line.y2)) - y);
    }

    void WriteMark(const CDrawnMark& mark)
    {
        const CRect rect = m_placement.Place(mark.rect);
        m_strSvg += "<path fill=\"" + ColourText(mark.colour) + "\" d=\"";
        CSvgPath(m_strSvg).Rect(rect.left * s_nUnit, rect.top * s_nUnit, rect.right * s_nUnit,
                                rect.bottom * s_nUnit);
        m_strSvg += "\"/>\n";
    }

    void WriteBox(double l, double t, double r, double b, const CBoxColour& colour)
    {
        const auto channel = [](double f)
        {
            return static_cast<int>(std::lround(f * 255));
        };
        m_strSvg +=
            "<path fill=\"" +
            ColourText(RGB(channel(colour.fRed), channel(colour.fGreen), channel(colour.fBlue))) +
            "\" fill-opacity=\"" + Number(colour.fOpacity) + "\" d=\"";
        CSvgPath(m_strSvg).Rect(Hundredths(m_placement.X(l)), Hundredths(m_placement.Y(t)),
                                Hundredths(m_placement.X(r)), Hundredths(m_placement.Y(b)));
        m_strSvg += "\"/>\n";
    }

    const CDrawing& m_drawing;
    const CPlacement& m_placement;
    const CPictureOptions& m_options;
    std::vector<CSvgFont*> m_fonts;  // in the order of the drawing's
    std::unordered_map<const CSvgGlyph*, CUse> m_uses;
    size_t m_nPlainBytes = 0;
    bool m_bNames = false;
    std::string m_strSvg;
};
}  // namespace

std::string SvgBytes(const CDrawing& drawing, const CPlacement& placement,
                     const CPictureOptions& options, const std::vector<CNodeBox>& boxes)
{
    placement.CheckSides(s_nLargestSide);
    return CSvgWriter(drawing, placement, options).Write(boxes);
}
