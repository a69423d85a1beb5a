#include "nodes/power_nodes.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aPowers[] = {
    { "ExponentOverlaps",
      0,
      { 0, 0 },
      { 10, 14, 7 },
      { 6, 11, 5 },
      { 0, 0 },
      { 0, 11, 10, 25 },
      { 8, 8, 14, 19 },
      { 0, 8, 14, 25 },
      { 0, 0, 17, 25 },
      18 },
    { "ElsewhereTheSame",
      0,
      { 100, 200 },
      { 10, 14, 7 },
      { 6, 11, 5 },
      { 0, 0 },
      { 100, 211, 110, 225 },
      { 108, 208, 114, 219 },
      { 100, 208, 114, 225 },
      { 100, 200, 117, 225 },
      18 },
    { "NoExponent",
      0,
      { 100, 200 },
      { 10, 14, 3 },
      NONE,
      { 0, 0 },
      { 100, 200, 110, 214 },
      { 108, 208, 108, 208 },
      { 100, 200, 110, 214 },
      { 100, 200, 111, 214 },
      7 },
    { "NoBase",
      0,
      { 100, 200 },
      NONE,
      { 6, 11, 5 },
      { 0, 0 },
      { 100, 211, 100, 211 },
      { 98, 208, 104, 219 },
      { 98, 208, 104, 219 },
      { 100, 200, 107, 211 },
      11 },
    { "Nothing",
      0,
      { 100, 200 },
      NONE,
      NONE,
      { 0, 0 },
      { 100, 200, 100, 200 },
      { 98, 208, 98, 208 },
      { 0, 0, 0, 0 },
      { 100, 200, 101, 200 },
      0 },
};

const CArrangeCase s_aIndices[] = {
    { "LowerIsWider",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 0, 0 },
      { 100, 200, 109, 210 },
      { 100, 211, 114, 218 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 219 },
      12 },
    { "NoUpper",
      0,
      { 100, 200 },
      NONE,
      { 14, 7, 3 },
      { 0, 0 },
      { 100, 200, 100, 200 },
      { 100, 201, 114, 208 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 209 },
      2 },
};
}  // namespace

TEST(PowerToNode, RaisesTheExponentOverTheBase)
{
    ExpectAllArranged("NT_POWERTO", s_aPowers);
}

TEST(IndexNode, StacksItsPartsAtTheLeft)
{
    ExpectAllArranged("NT_INDEX", s_aIndices);
}

TEST(PowerToNode, HasNoSignOfItsOwn)
{
    CTestDC dc;
    EXPECT_EQ(Node("NT_POWERTO")->GetOwnSize(&dc), CRect(0, 0, 0, 0));
    EXPECT_EQ(Node("NT_INDEX")->GetOwnSize(&dc), CRect(0, 0, 0, 0));
}

// x with the exponents n and then m; m is on level 2, 11 high.
TEST(PowerToNode, PutsATowerTogetherFromTheTop)
{
    const CNodePtr pRoot = Node("NT_POWERTO", Text("x"), Node("NT_POWERTO", Text("n"), Text("m")));
    // The exponent: 13 + 13 + 1 wide, 13 + 11 high, its base from 11 on.
    EXPECT_EQ(PaintAt(*pRoot, { 30, 40 }), CRect(30, 40, 71, 80));
    EXPECT_EQ(pRoot->GetLeft()->m_rect, CRect(31, 64, 41, 80));
    EXPECT_EQ(pRoot->GetRight()->GetLeft()->m_rect, CRect(42, 59, 52, 72));
    EXPECT_EQ(pRoot->GetRight()->GetRight()->m_rect, CRect(53, 56, 63, 67));
    EXPECT_EQ(pRoot->m_rect, CRect(30, 48, 68, 80));
}

// The symbol's axis lies two units below the upper index: 13 + 2.
TEST(IndexNode, StandsBesideItsSymbol)
{
    const CNodePtr pRoot = Node("NT_VARIABLE", nullptr, Node("NT_INDEX", Text("i"), Text("k")));
    pRoot->SetSymbol("x");
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 36, 48));
    EXPECT_EQ(pRoot->m_rect, CRect(11, 27, 21, 43));
    EXPECT_EQ(pRoot->GetRight()->GetLeft()->m_rect, CRect(23, 20, 33, 33));
    EXPECT_EQ(pRoot->GetRight()->GetRight()->m_rect, CRect(23, 34, 33, 47));
}
