#include "nodes/root_nodes.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aRoots[] = {
    { "DegreeStandsAhead",
      0,
      { 100, 200 },
      { 21, 28, 10 },
      { 8, 9, 4 },
      { 13, 20 },
      { 122, 202, 143, 230 },
      { 100, 200, 108, 209 },
      { 108, 200, 144, 230 },
      { 100, 200, 144, 230 },
      15 },
    // 13 * 2 / 7 is 3.7: the sign is 8 wide
    { "SignIsCutToWholeUnits",
      0,
      { 100, 200 },
      { 10, 13, 5 },
      NONE,
      { 13, 20 },
      { 109, 202, 119, 215 },
      { 100, 200, 100, 200 },
      { 100, 200, 120, 222 },
      { 100, 200, 120, 222 },
      11 },
    { "NothingUnderIt",
      0,
      { 100, 200 },
      NONE,
      NONE,
      { 13, 20 },
      { 106, 202, 106, 202 },
      { 100, 200, 100, 200 },
      { 100, 200, 107, 222 },
      { 100, 200, 107, 222 },
      11 },
    { "DegreeIsHighest",
      0,
      { 0, 0 },
      { 10, 14, 5 },
      { 6, 40, 4 },
      { 13, 20 },
      { 16, 2, 26, 16 },
      { 0, 0, 6, 40 },
      { 6, 0, 27, 42 },
      { 0, 0, 27, 42 },
      21 },
};
}  // namespace

TEST(NthRootNode, ReachesOverItsRadicand)
{
    ExpectAllArranged("NT_NTHROOT", s_aRoots);
    ExpectAllArranged("NT_ROOT", s_aRoots);
}

// The n-th root of a over b: the fraction is 17 by 40, the sign 11 + 5 wide.
TEST(NthRootNode, PlacesAFractionUnderTheLine)
{
    const CNodePtr pRoot = Node("NT_NTHROOT", Node("NT_DIVISION", Text("a"), Text("b")), Text("n"));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 58, 62));
    EXPECT_EQ(pRoot->m_rect, CRect(23, 20, 58, 62));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(11, 20, 21, 33));
    const CNode* pFraction = pRoot->GetLeft();
    EXPECT_EQ(pFraction->m_rect, CRect(40, 39, 57, 44));
    EXPECT_EQ(pFraction->GetLeft()->m_rect, CRect(43, 22, 53, 38));
    EXPECT_EQ(pFraction->GetRight()->m_rect, CRect(43, 45, 53, 61));
}

// 42 high: 42 * 2 / 7 + 5 wide.
TEST(NthRootNode, KeepsTheWidthOfThePaintedSignAndItsOldHeight)
{
    const CNodePtr pRoot = Node("NT_NTHROOT", Node("NT_DIVISION", Text("a"), Text("b")), Text("n"));
    PaintAt(*pRoot, { 10, 20 });
    EXPECT_EQ(pRoot->GetLogFont()->lfWidth, 17);
    EXPECT_EQ(pRoot->GetLogFont()->lfHeight, -120);
}

TEST(NthRootNode, IsHitOnItsSign)
{
    const CNodePtr pRoot = Node("NT_NTHROOT", Node("NT_DIVISION", Text("a"), Text("b")), Text("n"));
    const CNode* pFraction = pRoot->GetLeft();
    ExpectHits(*pRoot, { 10, 20 },
               { { { 25, 50 }, pRoot.get(), { 23, 20, 58, 62 } },
                 { { 45, 21 }, pRoot.get(), { 23, 20, 58, 62 } },  // the line
                 { { 45, 41 }, pFraction, { 40, 39, 57, 44 } },
                 { { 45, 30 }, pFraction->GetLeft(), { 43, 22, 53, 38 } },
                 { { 12, 25 }, pRoot->GetRight(), { 11, 20, 21, 33 } } });
}
