#include "nodes/limit_nodes.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aLimits[] = {
    { "HighExpressionPushesDown",
      0,
      { 100, 200 },
      { 25, 9, 4 },
      { 20, 30, 15 },
      { 18, 11 },
      { 100, 222, 125, 231 },
      { 126, 200, 146, 230 },
      { 103, 210, 121, 221 },
      { 100, 200, 146, 231 },
      15 },
    { "LowExpressionGoesDown",
      0,
      { 100, 200 },
      { 25, 9, 4 },
      { 20, 6, 2 },
      { 18, 11 },
      { 100, 212, 125, 221 },
      { 126, 203, 146, 209 },
      { 103, 200, 121, 211 },
      { 100, 200, 146, 221 },
      5 },
    { "NoExpression",
      0,
      { 100, 200 },
      { 25, 9, 4 },
      NONE,
      { 18, 11 },
      { 100, 212, 125, 221 },
      { 126, 205, 126, 205 },
      { 103, 200, 121, 211 },
      { 100, 200, 126, 221 },
      5 },
    { "FlatExpressionHasNoAxis",
      0,
      { 100, 200 },
      { 9, 9, 4 },
      { 20, 0, 50 },
      { 18, 11 },
      { 104, 212, 113, 221 },
      { 119, 205, 139, 205 },
      { 100, 200, 118, 211 },
      { 100, 200, 139, 221 },
      5 },
};

const CArrangeCase s_aDerivatives[] = {
    { "HighExpressionPushesDown",
      0,
      { 100, 200 },
      { 6, 9, 4 },
      { 20, 30, 15 },
      { 8, 11 },
      { 109, 219, 115, 228 },
      { 116, 200, 136, 230 },
      { 100, 202, 114, 228 },
      { 100, 200, 137, 230 },
      15 },
    { "LowExpressionGoesDown",
      0,
      { 100, 200 },
      { 6, 9, 4 },
      { 20, 10, 4 },
      { 8, 11 },
      { 109, 217, 115, 226 },
      { 116, 209, 136, 219 },
      { 100, 200, 114, 226 },
      { 100, 200, 137, 226 },
      13 },
    { "NoExpression",
      0,
      { 100, 200 },
      { 6, 9, 4 },
      NONE,
      { 8, 11 },
      { 109, 217, 115, 226 },
      { 116, 213, 116, 213 },
      { 100, 200, 114, 226 },
      { 100, 200, 117, 226 },
      13 },
};
}  // namespace

TEST(LimesNode, StandsOverItsLimitAndBesideTheExpression)
{
    ExpectAllArranged("NT_LIMES", s_aLimits);
}

TEST(PartialDerivativeNode, HoldsTheVariableInItsOwnRectangle)
{
    ExpectAllArranged("NT_PARTDERIVE", s_aDerivatives);
    ExpectAllArranged("NT_DERIVE", s_aDerivatives);
}

// "lim" is 26 by 16; the limit n, one level down, 13 by 13; the fraction 17 by 40, axis 19.
TEST(LimesNode, PlacesAFractionOnTheAxisOfTheWord)
{
    const CNodePtr pRoot = Node("NT_LIMES", Text("n"), Node("NT_DIVISION", Text("a"), Text("b")));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 54, 61));
    EXPECT_EQ(pRoot->m_rect, CRect(10, 31, 36, 47));
    EXPECT_EQ(pRoot->GetLeft()->m_rect, CRect(17, 48, 27, 61));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(37, 37, 54, 42));
}

// The symbol is 10 by 16; the fraction of both is 10 + 13 by 16 + 16 + 6.
TEST(DerivativeNode, IsHitOnItsBarAndAtItsVariable)
{
    const CNodePtr pRoot = Node("NT_DERIVE", Text("x"), Text("f"));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 49, 58));
    EXPECT_EQ(pRoot->m_rect, CRect(10, 20, 33, 58));
    EXPECT_EQ(pRoot->GetLeft()->m_rect, CRect(22, 42, 32, 58));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(36, 30, 46, 46));
    ExpectHits(*pRoot, { 10, 20 },
               { { { 15, 38 }, pRoot.get(), { 10, 20, 33, 58 } },
                 { { 25, 45 }, pRoot->GetLeft(), { 22, 42, 32, 58 } },
                 { { 40, 35 }, pRoot->GetRight(), { 36, 30, 46, 46 } } });
}
