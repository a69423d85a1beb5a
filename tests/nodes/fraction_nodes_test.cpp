#include "nodes/fraction_nodes.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aDivisions[] = {
    { "DenominatorIsWider",
      0,
      { 100, 200 },
      { 20, 14, 6 },
      { 31, 11, 5 },
      { 0, 5 },
      { 107, 200, 127, 214 },
      { 102, 221, 133, 232 },
      { 100, 215, 135, 220 },
      { 100, 200, 135, 233 },
      17 },
    { "NumeratorIsWider",
      0,
      { 100, 200 },
      { 40, 10, 3 },
      { 7, 8, 3 },
      { 0, 5 },
      { 102, 200, 142, 210 },
      { 118, 217, 125, 225 },
      { 100, 211, 144, 216 },
      { 100, 200, 144, 226 },
      13 },
    { "EmptyDenominatorKeepsARow",
      0,
      { 100, 200 },
      { 10, 12, 4 },
      NONE,
      { 0, 5 },
      { 102, 200, 112, 212 },
      { 107, 219, 107, 219 },
      { 100, 213, 114, 218 },
      { 100, 200, 114, 220 },
      15 },
    { "SlashLeansByAQuarter",
      1,
      { 100, 200 },
      { 20, 14, 6 },
      { 31, 11, 8 },
      { 0, 0 },
      { 100, 202, 120, 216 },
      { 126, 200, 157, 211 },
      { 121, 200, 125, 216 },
      { 100, 200, 158, 216 },
      8 },
    { "OtherKindPlacesNothing",
      2,
      { 100, 200 },
      { 20, 14, 6 },
      { 31, 11, 8 },
      { 0, 0 },
      { 0, 0, 20, 14 },
      { 0, 0, 31, 11 },
      { 0, 0, 0, 0 },
      { 100, 200, 100, 200 },
      0 },
};
}  // namespace

TEST(DivisionNode, StacksAroundItsBar)
{
    ExpectAllArranged("NT_DIVISION", s_aDivisions);
}

TEST(DivisionNode, HasAStripOnlyForTheBar)
{
    CTestDC dc;
    const int aHeights[] = { 5, 0, 0 };
    for (int nKind = 0; nKind < 3; ++nKind)
    {
        EXPECT_EQ(Kind(nKind, Node("NT_DIVISION"))->GetOwnSize(&dc),
                  CRect(0, 0, 0, aHeights[nKind]));
    }
}

// x with the exponent n, over b. The power is 27 by 29.
TEST(DivisionNode, PlacesAPowerOverALetter)
{
    const CNodePtr pRoot = Node("NT_DIVISION", Node("NT_POWERTO", Text("x"), Text("n")), Text("b"));
    EXPECT_EQ(PaintAt(*pRoot, { 30, 40 }), CRect(30, 40, 61, 93));
    EXPECT_EQ(pRoot->m_rect, CRect(30, 70, 61, 75));
    const CNode* pPower = pRoot->GetLeft();
    EXPECT_EQ(pPower->m_rect, CRect(32, 48, 56, 69));
    EXPECT_EQ(pPower->GetLeft()->m_rect, CRect(33, 53, 43, 69));
    EXPECT_EQ(pPower->GetRight()->m_rect, CRect(44, 48, 54, 61));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(40, 76, 50, 92));
}

TEST(DivisionNode, IsHitOnItsBarAndGivesTheDeepestNode)
{
    const CNodePtr pRoot = Node("NT_DIVISION", Node("NT_POWERTO", Text("x"), Text("n")), Text("b"));
    const CNode* pPower = pRoot->GetLeft();
    ExpectHits(*pRoot, { 30, 40 },
               { { { 35, 60 }, pPower->GetLeft(), { 33, 53, 43, 69 } },
                 { { 50, 50 }, pPower->GetRight(), { 44, 48, 54, 61 } },
                 { { 44, 55 }, pPower->GetLeft(), { 32, 53, 45, 69 } },  // where both overlap
                 { { 50, 65 }, pPower, { 32, 48, 56, 69 } },             // beside both
                 { { 50, 42 }, pPower, { 32, 40, 59, 69 } },             // over the exponent
                 { { 31, 72 }, pRoot.get(), { 30, 70, 61, 75 } },
                 { { 45, 80 }, pRoot->GetRight(), { 40, 76, 50, 92 } },
                 { { 10, 10 }, pRoot.get(), { 30, 40, 61, 93 } } });
}
