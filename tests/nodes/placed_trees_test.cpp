// Where the nodes of whole formulas stand when they are painted, and which one a click finds. The
// numbers follow from the sizes of the test's device context: a letter is 13 by 16 on level 0, 13
// high on level 1, 11 on level 2, its sign 10 wide and one unit in.
#include <tuple>
#include <vector>

#include "nodes/node_fixture.h"
#include "nodes/range_node.h"

namespace
{
struct CPlaced
{
    const char* pszPath;
    CRect rect;
};

struct CHit
{
    CPoint point;
    const char* pszPath;
    CRect rect;
};

struct CTreeCase
{
    const char* pszSketch;
    CPoint origin;
    CRect extent;
    std::vector<CPlaced> placed;
    std::vector<CHit> hits;
};

// clang-format off
const CTreeCase s_aTrees[] = {
    // The fraction is 17 by 40, its bar's axis at 19; the sign and the letter have theirs at 8.
    { "(PLUS (DIVISION a b) c)", { 100, 200 }, { 100, 200, 143, 240 },
      { { "", { 118, 211, 128, 227 } }, { "L", { 100, 217, 117, 222 } }, { "LL", { 103, 200, 113, 216 } },
        { "LR", { 103, 223, 113, 239 } }, { "R", { 130, 211, 140, 227 } } },
      { { { 102, 205 }, "LL", { 102, 200, 115, 216 } },  // its margin: all of it
        { { 101, 205 }, "L", { 100, 200, 117, 240 } },   // beside the numerator
        { { 128, 226 }, "", { 100, 200, 143, 240 } },    // the unit behind the sign
        { { 0, 0 }, "", { 100, 200, 143, 240 } } } },
    // The power is 27 by 29.
    { "(DIVISION (POWERTO x n) b)", { 30, 40 }, { 30, 40, 61, 93 },
      { { "", { 30, 70, 61, 75 } }, { "LL", { 33, 53, 43, 69 } }, { "LR", { 44, 48, 54, 61 } },
        { "R", { 40, 76, 50, 92 } } },
      { { { 44, 55 }, "LL", { 32, 53, 45, 69 } },  // where both overlap
        { { 50, 65 }, "L", { 32, 48, 56, 69 } },   // beside both
        { { 50, 42 }, "L", { 32, 40, 59, 69 } },   // over the exponent
        { { 10, 10 }, "", { 30, 40, 61, 93 } } } },
    // The sign of the root is 11 + 5 wide.
    { "(NTHROOT (DIVISION a b) n)", { 10, 20 }, { 10, 20, 58, 62 },
      { { "", { 23, 20, 58, 62 } }, { "L", { 40, 39, 57, 44 } }, { "LL", { 43, 22, 53, 38 } },
        { "LR", { 43, 45, 53, 61 } }, { "R", { 11, 20, 21, 33 } } },
      { { { 45, 21 }, "", { 23, 20, 58, 62 } } } },  // the line
    // Each bracket is 5 + 5 wide.
    { "(BRACE (POWERTO x n))", { 10, 20 }, { 10, 20, 60, 49 },
      { { "", { 10, 20, 59, 49 } }, { "LL", { 22, 33, 32, 49 } } }, {} },
    // Both limits are 13 by 13, the sign 10 by 21, its axis at 24.
    { "(SUM (RANGE n i) (DIVISION a b))", { 10, 20 }, { 10, 20, 42, 70 },
      { { "", { 11, 34, 21, 55 } }, { "LL", { 11, 20, 21, 33 } }, { "LR", { 11, 56, 21, 69 } },
        { "RL", { 27, 25, 37, 41 } }, { "R", { 24, 42, 41, 47 } } },
      { { { 22, 50 }, "", { 10, 20, 23, 70 } } } },  // beside the sign
    // The double fraction is 21 by 64 with its axis at 43: the sign goes 19 down.
    { "(SUM (RANGE n i) (DIVISION (DIVISION a b) b))", { 10, 20 }, { 10, 20, 46, 89 },
      { { "", { 11, 53, 21, 74 } }, { "LL", { 11, 39, 21, 52 } }, { "LR", { 11, 75, 21, 88 } } }, {} },
    // "lim" is 26 by 16; the fraction stands on its axis.
    { "(LIMES n (DIVISION a b))", { 10, 20 }, { 10, 20, 54, 61 },
      { { "", { 10, 31, 36, 47 } }, { "L", { 17, 48, 27, 61 } }, { "R", { 37, 37, 54, 42 } } }, {} },
    // The second line is the right part of the outer one, above.
    { "(MATRIX (LINE (ELEMENT a b) (ELEMENT c d)) e)", { 10, 20 }, { 10, 20, 38, 70 },
      { { "LRL", { 11, 20, 21, 36 } }, { "LRR", { 26, 20, 36, 36 } }, { "LLL", { 11, 36, 21, 52 } },
        { "R", { 18, 53, 28, 69 } } }, {} },
    // The neighbours close up: the sum is 13 + 1 + 10 + 1 - 11 + 1 wide. The box goes up and to the
    // left of its place on the axis, and a click there finds the parent.
    { "(PLUS a (PLACEHOLDER))", { 10, 20 }, { 10, 20, 25, 36 },
      { { "", { 24, 20, 34, 36 } }, { "R", { 36, 20, 22, 10 } } },
      { { { 35, 22 }, "", { 10, 20, 25, 36 } } } },
};
// clang-format on

CRect PaintAt(CNode& root, CPoint origin)
{
    CTestDC dc;
    CRect rect(origin, origin);
    root.Paint(&dc, rect, nullptr, 0);
    return rect;
}

void ExpectHit(CNode* pRoot, CPoint origin, const CHit& hit)
{
    SCOPED_TRACE(testing::Message() << "at " << hit.point.x << ", " << hit.point.y);
    CTestDC dc;
    CRect rect(origin, origin);
    EXPECT_EQ(pRoot->HitTest(&dc, rect, hit.point), NodeAt(pRoot, hit.pszPath));
    EXPECT_EQ(rect, hit.rect);
}
}  // namespace

// Nodes are hit up to the corners of their own parts. Also at the second time,
// when fonts are as painting left them.
TEST(PlacedTrees, StandAndAreHit)
{
    for (const CTreeCase& row : s_aTrees)
    {
        SCOPED_TRACE(row.pszSketch);
        const CNodePtr pRoot = Sketch(row.pszSketch);
        for (int i = 0; i < 2; ++i)
        {
            for (const CHit& hit : row.hits)
                ExpectHit(pRoot.get(), row.origin, hit);
            for (const auto& [pszPath, rect] : row.placed)
            {
                if (rect.right <= rect.left)
                    continue;  // cannot be hit
                for (const CPoint& corner :
                     { rect.TopLeft(), CPoint(rect.right - 1, rect.bottom - 1) })
                    ExpectHit(pRoot.get(), row.origin, { corner, pszPath, rect });
            }
            EXPECT_EQ(PaintAt(*pRoot, row.origin), row.extent);
            for (const CPlaced& placed : row.placed)
            {
                EXPECT_EQ(NodeAt(pRoot.get(), placed.pszPath)->m_rect, placed.rect)
                    << placed.pszPath;
            }
        }
    }
}

TEST(PlacedTrees, WithoutPartsHaveSizesAndAxes)
{
    CTestDC dc;
    const std::tuple<const char*, CSize, int> aSizes[] = {
        { "(STANDARD)", { 5, 16 }, 8 },
        { "(SUM)", { 12, 24 }, 11 },  // three higher than its sign
        { "(LABEL)", { 45, 16 }, 8 },
        { "(PLUS (DIVISION[2]) c)", { 26, 16 }, 8 },  // of a kind that is never laid out
    };
    for (const auto& [pszSketch, size, nAxis] : aSizes)
    {
        const CNodePtr pRoot = Sketch(pszSketch);
        if (pRoot->GetLeft() != nullptr)
            pRoot->GetLeft()->m_nBaseline = 50;  // nobody reads it
        EXPECT_EQ(pRoot->Measure(&dc), CRect(CPoint(0, 0), size)) << pszSketch;
        EXPECT_EQ(pRoot->m_nBaseline, nAxis) << pszSketch;
    }
}

// The sign of the format's sizes is in them.
TEST(PlacedTrees, PlaceholdersAreAsLargeAsTheirFont)
{
    CTestDC dc;
    const CNodePtr pPlace = Sketch("(PLACEHOLDER)");
    EXPECT_EQ(pPlace->Measure(&dc), CRect(0, 0, -11, 0));
    EXPECT_EQ(pPlace->m_nBaseline, -5);
    pPlace->GetLogFont()->lfHeight = 120;
    EXPECT_EQ(pPlace->Measure(&dc), CRect(0, 0, 13, 14));
}

// The gap belongs to the process. The letters are 13 wide with their signs one unit in; the right
// factor starts 3 units inside the left one's rectangle.
TEST(PlacedTrees, FactorsMoveTogetherWithANegativeGap)
{
    CTestDC dc;
    const CNodePtr pRoot = Sketch("(TIMES \"\" a b)");
    const int nOld = g_nTimesGap;
    g_nTimesGap = -5;
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 34, 36));
    EXPECT_EQ(pRoot->m_rect, CRect(24, 20, 19, 36));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(21, 20, 31, 36));
    for (const int nGap : { 2, -5, -6 })
    {
        g_nTimesGap = nGap;
        EXPECT_EQ(Sketch("(TIMES)")->GetOwnSize(&dc), CRect(0, 0, 8 + nGap, 16));
    }
    g_nTimesGap = nOld;
}

// 42 * 2 / 7 + 5 is the width that its painting asked for, (29 - 2) * 100 / 12 the height.
TEST(PlacedTrees, PaintingLeavesARootItsWidthOnlyAndABracketItsFont)
{
    for (const auto& [pszSketch, nHeight, nWidth] :
         { std::tuple("(NTHROOT (DIVISION a b) n)", -120, 17),
           std::tuple("(BRACE (POWERTO x n))", 225, 10) })
    {
        const CNodePtr pRoot = Sketch(pszSketch);
        PaintAt(*pRoot, { 10, 20 });
        EXPECT_EQ(pRoot->GetLogFont()->lfHeight, nHeight);
        EXPECT_EQ(pRoot->GetLogFont()->lfWidth, nWidth);
    }
}

// A range whose gap is 10 units less than nothing, so that its limits overlap: the upper one
// stands at (0, 0, 13, 13), the lower one at (0, 5, 13, 18), and is hit first. A range answers with
// what its limit answered, also with nothing: the inner range of the other one stands at (0, 5, 13,
// 9), its limit, 11 high, at 5 + 1 - 10 + 1 and so ends above the point; the upper one is not
// asked.
TEST(Range, LowerLimitIsHitFirst)
{
    const CNodePtr pPlace = Sketch("(PLACEHOLDER (RANGE n i) (RANGE n (RANGE - i)))");
    CNode* pRange = pPlace->GetLeft();
    for (const CHit& hit : std::vector<CHit>{ { { 3, 8 }, "R", { 1, 5, 11, 18 } },
                                              { { 3, 2 }, "L", { 1, 0, 11, 13 } },
                                              { { 0, 8 }, "R", { 0, 5, 13, 18 } } })
        ExpectHit(pRange, { 0, 0 }, hit);
    CTestDC dc;
    CRect rect(0, 0, 0, 0);
    EXPECT_EQ(pRange->HitTest(&dc, rect, { 20, 8 }), nullptr);
    EXPECT_EQ(rect, CRect(0, 0, 13, 19));
    rect = CRect(0, 0, 0, 0);
    EXPECT_EQ(pPlace->GetRight()->HitTest(&dc, rect, { 5, 8 }), nullptr);
}

// A long chain of ranges costs one walk, not one for each.
TEST(Range, ChainsOfAnyLengthAreMeasuredAndHit)
{
    const CNodePtr pSum = Sketch("(SUM)");
    CNode* pRange = pSum->GetLeft();
    for (int i = 0; i < 20000; ++i)
    {
        pRange->LinkRight(new CRangeNode(nullptr));
        pRange = pRange->GetRight();
    }
    CTestDC dc;
    EXPECT_EQ(pRange->GetOwnSize(&dc), CRect(0, 0, 10, 21)) << "that of the sign above";
    EXPECT_EQ(CRangeNode(nullptr).GetOwnSize(&dc), CRect(0, 0, 0, 0));
    // Each adds its gap of 21 and one unit above, in and below.
    EXPECT_EQ(pSum->Measure(&dc), CRect(0, 0, 12, 20001 * 24));
    CRect rect(0, 0, 0, 0);
    EXPECT_EQ(pSum->HitTest(&dc, rect, { 5, 1000 }), pSum.get());
}
