// What a formula's drawing is made of, and where it stands in a picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "nodes/node.h"
#include "picture/placement.h"
#include "picture/reading_order.h"
#include "picture/sign_characters.h"
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

TEST(Drawing, APlaceholderIsAFrameOfHatching)
{
    CFormulaOut formula;
    formula.m_Tree.CreateRootNode("NT_PLACEHOLDER");
    const CDrawing drawing = RecordDrawing(formula.m_Tree);
    ASSERT_GE(drawing.lines.size(), 5U);
    // Four bars around it come first; the rest goes from lower left to upper right inside.
    const auto [left, right] = std::minmax(drawing.lines[0].x1, drawing.lines[0].x2);
    const auto [top, bottom] = std::minmax(drawing.lines[2].y1, drawing.lines[2].y2);
    for (size_t n = 0; n < drawing.lines.size(); ++n)
    {
        const CDrawnLine& line = drawing.lines[n];
        const bool bBar = line.IsHorizontal() || line.IsVertical();
        EXPECT_EQ(bBar, n < 4) << n;
        EXPECT_TRUE(bBar || line.x1 + line.y1 == line.x2 + line.y2) << n;
        EXPECT_TRUE(line.x1 >= left && line.x2 <= right) << n;
        EXPECT_TRUE(bBar || (line.y2 >= top && line.y1 <= bottom)) << n;
    }
}

// Worked out by hand: ends and thickness rounded, the middle kept within half a pixel.
TEST(Placement, BarsFillWholePixels)
{
    const struct
    {
        int nDpi;
        CDrawnLine line;
        CRect bar;
    } aBars[] = {
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
    for (const auto& bar : aBars)
    {
        options.nDpi = bar.nDpi;
        const CPlacement placement(drawing, options, { 6, 16 });
        EXPECT_EQ(placement.PlaceBar(bar.line), bar.bar) << bar.nDpi;
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
    options.nMargin = 3;
    const CPlacement wide(drawing, options, formed.Line());
    EXPECT_EQ(wide.Size(), drawing.size + CSize(6, 6));
    EXPECT_EQ(wide.Origin(), CPoint(3, 3));
    EXPECT_EQ(wide.Told().fAxis, 3 + drawing.nAxis);
    EXPECT_EQ(wide.Told().fDepth, 3 + drawing.size.cy - drawing.nAxis - 6);
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
