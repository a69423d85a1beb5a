// Edges are rounded to pixels of the picture; what ink stands out enlarges it by whole ones.
#include "picture/placement.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "nodes/draw_scope.h"
#include "nodes/node.h"
#include "picture/glyph_shapes.h"
#include "platform/base/system.h"
#include "service/screen_dc.h"

namespace
{
// Ink that reaches less far into a pixel cannot be seen there.
constexpr double s_fUnseen = 1.0 / 256;
// Keeps the arithmetic of damaged sizes within whole numbers; no picture is so large.
constexpr int s_nFarthest = 1 << 28;

void CheckSide(double fPixels, int nMost)
{
    if (fPixels <= nMost)
        return;
    char szPixels[32];
    std::snprintf(szPixels, sizeof szPixels, "%.0f", fPixels);
    throw CPictureFailure{ std::string("the picture would be ") + szPixels +
                           " pixels long, more than " + std::to_string(nMost) };
}

int Rounded(double f)
{
    return static_cast<int>(std::lround(std::clamp<double>(f, -s_nFarthest, s_nFarthest)));
}

int First(double f)
{
    return Rounded(std::floor(f + s_fUnseen));
}

int End(double f)
{
    return Rounded(std::ceil(f - s_fUnseen));
}

void Include(CInkBox& box, double fLeft, double fTop, double fRight, double fBottom)
{
    box.fLeft = std::min(box.fLeft, fLeft);
    box.fTop = std::min(box.fTop, fTop);
    box.fRight = std::max(box.fRight, fRight);
    box.fBottom = std::max(box.fBottom, fBottom);
}
}  // namespace

CTextLine TextLineOf(const CNode& root)
{
    CScreenDC screen;
    const CFontScope font(&screen, root.m_logFont);
    TEXTMETRICA metrics{};
    screen.GetTextMetrics(&metrics);
    return { metrics.tmAscent - metrics.tmHeight / 2,
             MulDiv(screen.GetDeviceCaps(LOGPIXELSY), std::abs(root.m_logFont.lfHeight), 720) };
}

COLORREF BackgroundOf(const CPictureOptions& options)
{
    return options.background.value_or(GetSysColor(COLOR_WINDOW));
}

CPlacement::CPlacement(const CDrawing& drawing, const CPictureOptions& options, CTextLine line)
    : m_fScale(static_cast<double>(options.nDpi) / SCREEN_DPI),
      m_origin(0, 0),
      m_size(std::max(End(drawing.size.cx * m_fScale), 1),
             std::max(End(drawing.size.cy * m_fScale), 1)),
      m_fAxis(drawing.nAxis * m_fScale),
      m_fTextLine(m_fAxis + line.nBelowAxis * m_fScale),
      m_fEm(line.nEm * m_fScale)
{
    CheckSide(drawing.size.cx * m_fScale, s_nFarthest);
    CheckSide(drawing.size.cy * m_fScale, s_nFarthest);
    const int n = options.nMargin;
    if (options.bExact)
    {
        Grow(n, n, n, n);
        return;
    }
    const CInkBox ink = InkOf(drawing);
    Grow(std::max(-First(ink.fLeft), 0) + n, std::max(-First(ink.fTop), 0) + n,
         std::max<int>(End(ink.fRight) - m_size.cx, 0) + n,
         std::max<int>(End(ink.fBottom) - m_size.cy, 0) + n);
}

void CPlacement::Grow(int nLeft, int nTop, int nRight, int nBottom)
{
    m_origin += CSize(nLeft, nTop);
    m_size += CSize(nLeft + nRight, nTop + nBottom);
}

void CPlacement::CheckSides(int nMost) const
{
    CheckSide(m_size.cx, nMost);
    CheckSide(m_size.cy, nMost);
}

CPictureSize CPlacement::Told() const
{
    return { m_size.cx, m_size.cy, m_origin.y + m_fAxis, m_size.cy - m_origin.y - m_fTextLine,
             m_fEm };
}

CRect CPlacement::Place(const CRect& rect) const
{
    return { Rounded(X(rect.left)), Rounded(Y(rect.top)), Rounded(X(rect.right)),
             Rounded(Y(rect.bottom)) };
}

CRect CPlacement::PlaceBar(const CDrawnLine& line) const
{
    const int nPen = std::max(Rounded(m_fScale), 1);
    if (line.IsHorizontal())
    {
        const int y = Rounded(Y(line.y1) - nPen / 2.0);
        return { Rounded(X(line.x1)), y, Rounded(X(line.x2)), y + nPen };
    }
    const int x = Rounded(X(line.x1) - nPen / 2.0);
    return { x, Rounded(Y(line.y1)), x + nPen, Rounded(Y(line.y2)) };
}

// From the formula's corner, in pixels of the picture.
CInkBox CPlacement::InkOf(const CDrawing& drawing) const
{
    CInkBox box = { 0, 0, 0, 0 };
    for (const CDrawnLine& line : drawing.lines)
    {
        if (line.IsHorizontal() || line.IsVertical())
        {
            const CRect bar = PlaceBar(line);
            ::Include(box, bar.left, bar.top, bar.right, bar.bottom);
            continue;
        }
        const auto [x1, x2] = std::minmax(line.x1, line.x2);
        const auto [y1, y2] = std::minmax(line.y1, line.y2);
        ::Include(box, (x1 - 0.5) * m_fScale, (y1 - 0.5) * m_fScale, (x2 + 0.5) * m_fScale,
                  (y2 + 0.5) * m_fScale);
    }
    for (const CDrawnText& text : drawing.texts)
        Include(box, text, drawing);
    return box;
}

void CPlacement::Include(CInkBox& box, const CDrawnText& text, const CDrawing& drawing) const
{
    const CGlyphFont& font = drawing.fonts[text.nFont].glyphs;
    for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
    {
        const CDrawnGlyph& glyph = drawing.glyphs[n];
        const CGlyphShape& shape = FindGlyphShape(font, glyph.nCode);
        if (!shape.HasInk())
            continue;
        const double fPen = static_cast<double>(text.origin.x) + glyph.nOffset;
        const double fLeft = shape.fLeft + font.m_fSlant * shape.fBottom;
        const double fRight = shape.fRight + font.m_fSlant * shape.fTop + font.m_fThicken;
        ::Include(box, (fPen + fLeft * font.m_fUnitX) * m_fScale,
                  (text.origin.y - (shape.fTop + font.m_fThicken) * font.m_fUnitY) * m_fScale,
                  (fPen + fRight * font.m_fUnitX) * m_fScale,
                  (text.origin.y - shape.fBottom * font.m_fUnitY) * m_fScale);
    }
}
