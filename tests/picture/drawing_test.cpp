// What a formula's drawing is made of, and where it stands in a picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numeric>
#include <set>
#include <sstream>
#include <tuple>

#include "nodes/node.h"
#include "picture/placement.h"
#include "picture/raster.h"
#include "picture/reading_order.h"
#include "picture/sign_characters.h"
#include "picture/svg_glyphs.h"
#include "picture/svg_path.h"
#include "platform/gdi/test_fonts.h"
#include "service/screen_dc.h"

namespace
{
struct CFormed
{
    explicit CFormed(const char* pszText) { formula.FormTree(pszText); }
    CDrawing Drawing() { return RecordDrawing(formula.m_Tree); }
    CTextLine Line() { return TextLineOf(*formula.m_Tree.GetRootNode()); }
    std::vector<size_t> Order(const CDrawing& drawing)
    {
        CScreenDC screen;
        return ReadingOrder(drawing, FindBoxes(formula.m_Tree, &screen));
    }

    CFormulaOut formula;
};

int Area(const CRect& rect)
{
    return rect.Width() * rect.Height();
}

TEST(Drawing, LettersOfARowStandOnTheTextLine)
{
    for (const char* pszText : { "a", "x+y", "greek a", "greek b+c", "a=1", "a*b", "2.5" })
    {
        for (const int nPoints : { 0, 9, 18, 31 })
        {
            CFormed formed(pszText);
            ApplyLook(formed.formula, { nPoints, "" });
            const CDrawing drawing = formed.Drawing();
            ASSERT_FALSE(drawing.texts.empty()) << pszText;
            for (const CDrawnText& text : drawing.texts)
            {
                // A sign of another face is centred by a height of its own.
                const std::string_view strFace = drawing.fonts[text.nFont].description.lfFaceName;
                const int nNear = strFace == "Symbol" ? 1 + formed.Line().nEm / 20 : 0;
                EXPECT_NEAR(text.origin.y, drawing.nAxis + formed.Line().nBelowAxis, nNear)
                    << pszText << " " << nPoints;
            }
        }
    }
    EXPECT_EQ(CFormed("a").Line().nBelowAxis, 6);  // 14 of a line's 17 pixels lie above it
    EXPECT_EQ(CFormed("a").Line().nEm, 16);
}

// The node alone is marked but for what its neighbours wipe away; with all below it, more is.
TEST(Drawing, MarksLieWhereNothingWipesThemAway)
{
    CFormed formed("(a+b)/c");
    EXPECT_TRUE(formed.Drawing().marks.empty());
    CNode* pFraction = formed.formula.m_Tree.GetRootNode()->GetLeft();
    for (const int nMode : { 1, 2 })
    {
        formed.formula.m_Tree.SetSelection(pFraction, nMode);
        const std::vector<CDrawnMark> marks = formed.Drawing().marks;
        ASSERT_FALSE(marks.empty());
        int nMarked = 0;
        for (size_t a = 0; a < marks.size(); ++a)
        {
            nMarked += Area(marks[a].rect);
            for (size_t b = 0; b < a; ++b)
                EXPECT_TRUE((marks[a].rect & marks[b].rect).IsRectEmpty());
        }
        EXPECT_EQ(nMode == 1, nMarked <= Area(pFraction->m_rect)) << nMarked;
    }
    // What stands between the bars of an absolute value wipes its place out of their mark.
    CFormed bars("abs(a)");
    CNode* pBars = bars.formula.m_Tree.GetRootNode()->GetLeft();
    bars.formula.m_Tree.SetSelection(pBars, 1);
    int nMarked = 0;
    for (const CDrawnMark& mark : bars.Drawing().marks)
        nMarked += Area(mark.rect);
    const CNode* pInside = pBars->GetLeft() != nullptr ? pBars->GetLeft() : pBars->GetRight();
    EXPECT_EQ(nMarked, Area(pBars->m_rect) - Area(pInside->m_rect));
}

// Inside of the frame, lines from lower left to upper right go through the middles of pixels whose
// coordinates have the sum 7 in each 8.
TEST(Drawing, APlaceholderIsAFrameOfHatching)
{
    CFormulaOut formula;
    formula.m_Tree.CreateRootNode("NT_PLACEHOLDER");
    for (int nPoints = 9; nPoints < 26; ++nPoints)
    {
        SCOPED_TRACE(nPoints);
        ApplyLook(formula, { nPoints, "" });
        const CDrawing drawing = RecordDrawing(formula.m_Tree);
        ASSERT_GE(drawing.lines.size(), 5U);
        // Four bars around it come first.
        const auto [left, right] = std::minmax(drawing.lines[0].x1, drawing.lines[0].x2);
        const double top = drawing.lines[2].y1;
        const double bottom = drawing.lines[2].y2;
        for (size_t n = 0; n < 4; ++n)
        {
            const CDrawnLine& bar = drawing.lines[n];
            EXPECT_NE(bar.IsHorizontal(), bar.IsVertical()) << n;
            EXPECT_TRUE(bar.x1 >= left && bar.x2 <= right) << n;
        }
        std::vector<std::array<double, 4>> hatching, expected;
        for (size_t n = 4; n < drawing.lines.size(); ++n)
        {
            const CDrawnLine& line = drawing.lines[n];
            hatching.push_back({ line.x1, line.y1, line.x2, line.y2 });
        }
        const double fBefore = std::floor((left + 1 + top) / 8) * 8;
        for (double fSum = fBefore + 8; fSum < right - 1 + bottom; fSum += 8)
        {
            const double x1 = std::max(left + 1, fSum - bottom);
            const double x2 = std::min(right - 1, fSum - top);
            expected.push_back({ x1, fSum - x1, x2, fSum - x2 });
        }
        EXPECT_EQ(hatching, expected);
    }
}

// Worked out by hand: ends and thickness rounded, the middle kept within half a pixel.
TEST(Placement, BarsFillWholePixels)
{
    const std::tuple<int, CDrawnLine, CRect> aBars[] = {
        { 96, { 3, 5.5, 20, 5.5, 0 }, { 3, 5, 20, 6 } },
        { 96, { 4.5, 2, 4.5, 9, 0 }, { 4, 2, 5, 9 } },
        { 120, { 3, 5.5, 20, 5.5, 0 }, { 4, 6, 25, 7 } },    // 6.875 less half a pixel
        { 144, { 3, 5.5, 20, 5.5, 0 }, { 5, 7, 30, 9 } },    // two pixels around 8.25
        { 150, { 3, 5.5, 20, 5.5, 0 }, { 5, 8, 31, 10 } },   // around 8.59
        { 192, { 3, 5.5, 20, 5.5, 0 }, { 6, 10, 40, 12 } },  // exactly
        { 300, { 4.5, 2, 4.5, 9, 0 }, { 13, 6, 16, 28 } },   // three pixels around 14.06
    };
    CDrawing drawing;
    drawing.size = CSize(40, 20);
    CPictureOptions options;
    for (const auto& [nDpi, line, bar] : aBars)
    {
        options.nDpi = nDpi;
        const CPlacement placement(drawing, options, { 6, 16 });
        EXPECT_EQ(placement.PlaceBar(line), bar) << nDpi;
    }
}

// The feet of f reach half a pixel below its line; twice as large they take a pixel of their own.
TEST(Placement, GrowsByWholePixelsAsFarAsInkStandsOut)
{
    CFormed formed("f");
    const CDrawing drawing = formed.Drawing();
    CPictureOptions options;
    const CPlacement screen(drawing, options, formed.Line());
    EXPECT_EQ(screen.Size().cy, drawing.size.cy + 1);
    options.bExact = true;
    EXPECT_EQ(CPlacement(drawing, options, formed.Line()).Size(), drawing.size);
    EXPECT_EQ(CPlacement({}, options, formed.Line()).Size(), CSize(1, 1));
    options.nMargin = 3;
    const CPlacement wide(drawing, options, formed.Line());
    EXPECT_EQ(wide.Size(), drawing.size + CSize(6, 6));
    EXPECT_EQ(wide.Origin(), CPoint(3, 3));
    const int nLonger = std::max(wide.Size().cx, wide.Size().cy);
    EXPECT_NO_THROW(wide.CheckSides(nLonger));
    EXPECT_THROW(wide.CheckSides(nLonger - 1), CPictureFailure);
    EXPECT_EQ(wide.Told().fAxis, 3 + drawing.nAxis);
    EXPECT_EQ(wide.Told().fDepth, 3 + drawing.size.cy - drawing.nAxis - 6);
}

// The farthest points of an outline, in font units, found by following it in small steps.
struct CReach
{
    explicit CReach(const CGlyphOutline& outline)
    {
        const COutlinePoint* p = outline.m_points.data();
        for (const COutlineStep step : outline.m_steps)
        {
            // Lines need no more than their ends.
            const int nDegree = step == COutlineStep::cubic   ? 3
                                : step == COutlineStep::curve ? 2
                                                              : 0;
            for (int n = 0; n <= 64; ++n)
            {
                const COutlinePoint* pFirst = nDegree > 0 ? p - 1 : p;
                Include(At(pFirst, &COutlinePoint::x, nDegree, n / 64.0),
                        At(pFirst, &COutlinePoint::y, nDegree, n / 64.0));
            }
            p += std::max(nDegree, 1);
        }
    }
    static double At(const COutlinePoint* p, int COutlinePoint::*pAxis, int nDegree, double t)
    {
        return nDegree == 0
                   ? p->*pAxis
                   : (1 - t) * At(p, pAxis, nDegree - 1, t) + t * At(p + 1, pAxis, nDegree - 1, t);
    }
    void Include(double x, double y)
    {
        fLeft = std::min(fLeft, x / 2);
        fRight = std::max(fRight, x / 2);
        fBottom = std::min(fBottom, y / 2);
        fTop = std::max(fTop, y / 2);
    }

    double fLeft = 1e9;
    double fBottom = 1e9;
    double fRight = -1e9;
    double fTop = -1e9;
};

// All points of a glyph's path, controls too, by following its relative steps.
std::set<std::pair<int, int>> PointsOf(const CSvgGlyph& glyph)
{
    std::pair pen(glyph.nFirstX, glyph.nFirstY);
    std::pair start = pen;
    std::set points = { pen };
    std::istringstream steps(glyph.strSteps);
    char chStep = '\0';
    while (steps.peek() != EOF)
    {
        if (std::isalpha(steps.peek()))
            steps >> chStep;
        std::pair to = start;
        const int nPoints = chStep == 'z' ? 0 : chStep == 'c' ? 3 : chStep == 'q' ? 2 : 1;
        for (int n = 0; n < nPoints; ++n)
        {
            int dx = 0, dy = 0;
            if (chStep != 'v')
                steps >> dx;
            if (chStep != 'h')
                steps >> dy;
            to = { pen.first + dx, pen.second + dy };
            points.insert(to);
        }
        EXPECT_TRUE(steps) << glyph.strSteps;
        pen = to;
        if (chStep == 'm')
            start = pen;
    }
    return points;
}

TEST(Svg, GlyphsHaveThePointsOfTheirOutlines)
{
    constexpr double fScale = 1000;
    // Where there is a "Nimbus Roman", its curves are cubic.
    for (const LOGFONTA& description :
         { FontOf("Times New Roman", -16), FontOf("Symbol", -12, 9, 700, true),
           FontOf("Nimbus Roman", -20) })
    {
        const CGlyphFont font = FindGlyphFont(description);
        for (int nCode = 0; nCode < 256; ++nCode)
        {
            std::set<std::pair<int, int>> expected;
            for (const COutlinePoint& point :
                 ReadGlyphOutline(font, static_cast<BYTE>(nCode)).m_points)
            {
                // The stroke that thickens it reaches as far to the left and below.
                const double x = (point.x + font.m_fSlant * point.y + font.m_fThicken) / 2;
                const double y = (point.y + font.m_fThicken) / 2;
                expected.emplace(std::lround(x * font.m_fUnitX * fScale),
                                 std::lround(-y * font.m_fUnitY * fScale));
            }
            const CSvgGlyph& glyph = CSvgFont::Find(font, fScale).Glyph(static_cast<BYTE>(nCode));
            EXPECT_EQ(glyph.strSteps.empty(), expected.empty());
            if (!expected.empty())
            {
                EXPECT_EQ(PointsOf(glyph), expected) << description.lfFaceName << ' ' << nCode;
            }
        }
    }
}

// A letter stands once for equal steps in a row, and a blank only between digits.
TEST(Svg, PathsAreAsShortAsTheyCanBe)
{
    std::string strPath;
    CSvgPath path(strPath);
    path.MoveTo(100, 200);
    path.LineBy(5, 0);
    path.LineBy(6, 0);
    path.LineBy(0, -5);
    path.LineBy(3, 4);
    path.LineBy(-3, 0);
    path.CurveBy(1, 2, 3, 4);
    path.CurveBy(-1, -2, -3, -4);
    path.CubicBy(1, 2, 3, 4, 5, 6);
    path.Close();
    path.MoveBy(1, 2);
    path.Close();
    path.Close();
    path.Rect(1, 2, 4, 6);
    EXPECT_EQ(strPath, "M100 200h5 6v-5l3 4h-3q1 2 3 4-1-2-3-4c1 2 3 4 5 6zm1 2zzM1 2h3v4h-3z");
}

// A picture that is otherwise empty grows by what a sign reaches: to the left and upwards for a
// pen far outside of it there, to the right and downwards for one on the other side.
TEST(Placement, GrowsByTheReachOfEverySign)
{
    constexpr int nScale = 20;
    constexpr int nAway = 500;
    const LOGFONTA aFonts[] = {
        FontOf("Times New Roman", -100),      FontOf("Times New Roman", -100, 0, 400, true),
        FontOf("Symbol", -100, 0, 700, true), FontOf("Symbol", -100, 118),
        FontOf("MT Extra", -100, 0, 700),
    };
    CPictureOptions options;
    options.nDpi = nScale * SCREEN_DPI;
    for (const LOGFONTA& description : aFonts)
    {
        const CGlyphFont font = FindGlyphFont(description);
        for (int nCode = 0; nCode < 256; ++nCode)
        {
            SCOPED_TRACE(testing::Message() << description.lfFaceName << ' ' << nCode);
            const CReach reach(ReadGlyphOutline(font, static_cast<BYTE>(nCode)));
            if (reach.fRight < reach.fLeft)
                continue;
            CDrawing drawing;
            drawing.fonts = { { description, font } };
            drawing.glyphs = { { static_cast<BYTE>(nCode), 0 } };
            drawing.texts = { { 0, 0, CPoint(-nAway, -nAway), 0, 1, 0 } };
            const CPoint origin = CPlacement(drawing, options, { 0, 0 }).Origin();
            const double fLeft = (reach.fLeft + font.m_fSlant * reach.fBottom) * font.m_fUnitX;
            const double fTop = (reach.fTop + font.m_fThicken) * font.m_fUnitY;
            EXPECT_NEAR(origin.x, (nAway - fLeft) * nScale, 1);
            EXPECT_NEAR(origin.y, (nAway + fTop) * nScale, 1);
            drawing.texts[0].origin = CPoint(nAway, nAway);
            const CSize size = CPlacement(drawing, options, { 0, 0 }).Size();
            const double fRight = reach.fRight + font.m_fSlant * reach.fTop + font.m_fThicken;
            EXPECT_NEAR(size.cx, (nAway + fRight * font.m_fUnitX) * nScale, 1);
            EXPECT_NEAR(size.cy, (nAway - reach.fBottom * font.m_fUnitY) * nScale, 1);
        }
    }
}

// And by lines, of which those along an axis are bars, and others half a pixel wide on each side.
TEST(Placement, GrowsByLines)
{
    // Lines, and the pictures of formulas of 10 by 10 pixels with them.
    const std::tuple<CDrawnLine, CRect> aLines[] = {
        { { -3, -4.5, 5, -4.5, 0 }, { -3, -5, 10, 10 } },
        { { 12.5, 5, 12.5, 14, 0 }, { 0, 0, 13, 14 } },
        { { -3.5, 14.5, 12.5, -2.5, 0 }, { -4, -3, 13, 15 } },
        { { 12.5, 14.5, -3.5, -2.5, 0 }, { -4, -3, 13, 15 } },
    };
    for (const auto& [line, picture] : aLines)
    {
        CDrawing drawing;
        drawing.size = CSize(10, 10);
        drawing.lines = { line };
        const CPlacement placement(drawing, {}, { 0, 0 });
        EXPECT_EQ(placement.Origin(), CPoint(-picture.left, -picture.top)) << line.x1;
        EXPECT_EQ(placement.Size(), picture.Size()) << line.x1;
    }
}

// A pixel takes as much of a colour as is covered of it; what is clear has no colour of its own.
TEST(Raster, BoxesAreBlendedByTheirShareOfEachPixel)
{
    CRaster raster;
    raster.size = CSize(3, 2);
    raster.pixels = { 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0x00000000, 0x800000FF };
    BlendRect(raster, 0.5, 0.25, 3.5, 1.5, { 1, 0.2, 0, 0.75 });
    // Opacities 0.28125, 0.5625, 0.5625 and 0.1875, 0.375, 0.375; the last sum is 0.688725.
    EXPECT_EQ(raster.pixels, (std::vector<std::uint32_t>{ 0xFFFFC6B7, 0xFFFF8C70, 0xFFFF8C70,
                                                          0xFFFFD9CF, 0x60FF3300, 0xB08B1C74 }));
}

TEST(ReadingOrder, IsThatOfAReader)
{
    const std::pair<const char*, const char*> aReadings[] = {
        { "a+b*c", "a+bc" },
        { "(a-b)/c", "a\u2212bc" },
        { "sqr(x)+1", "\u221Ax+1" },
        { "abs(x)", "|x|" },
        { "x^2", "x2" },
        { "a<=greek W", "a\u2264\u03A9" },
        { "sin(x)", "sinx" },
        { "greek D*x", "\u0394x" },
        { "nsqr(y,3)", "3\u221Ay" },
        { "f(x,y)", "f(x,y)" },
    };
    for (const auto& [pszText, pszRead] : aReadings)
    {
        CFormed formed(pszText);
        const CDrawing drawing = formed.Drawing();
        std::string strRead;
        for (const size_t n : formed.Order(drawing))
        {
            const CDrawnText& text = drawing.texts[n];
            for (size_t i = text.nFirst; i < text.nFirst + text.nCount; ++i)
            {
                const std::string strSign =
                    CharacterOf(drawing.fonts[text.nFont], drawing.glyphs[i].nCode);
                strRead += strSign == " " ? "" : strSign;
            }
        }
        EXPECT_EQ(strRead, pszRead) << pszText;
    }
}

// Nodes in any place, some of them hidden: every text is read once.
TEST(ReadingOrder, LeavesNoTextOut)
{
    CFormed formed("sum(mark(x,i,2)/brace(a,b),i=1,n)+int(f(x)*dx,0,sqr(1-x))");
    formed.formula.m_Tree.GetRootNode()->GetLeft()->m_nFlags |= NF_HIDDEN;
    const CDrawing drawing = formed.Drawing();
    std::vector<size_t> order = formed.Order(drawing);
    std::sort(order.begin(), order.end());
    std::vector<size_t> all(drawing.texts.size());
    std::iota(all.begin(), all.end(), size_t{ 0 });
    EXPECT_EQ(order, all);
}
}  // namespace
