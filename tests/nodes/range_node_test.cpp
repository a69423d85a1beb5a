#include "nodes/range_node.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aRanges[] = {
    { "LimitsAroundTheGap",
      0,
      { 0, 0 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 12, 16 },
      { 2, 0, 11, 10 },
      { 0, 28, 14, 35 },
      { 0, 0, 0, 0 },
      { 0, 0, 14, 36 },
      11 },
    { "GapIsWidest",
      0,
      { 0, 0 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 20, 16 },
      { 5, 0, 14, 10 },
      { 3, 28, 17, 35 },
      { 0, 0, 0, 0 },
      { 0, 0, 20, 36 },
      11 },
    { "BaseLineHoldsTheTop",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 12, 16 },
      { 102, 200, 111, 210 },
      { 100, 228, 114, 235 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 236 },
      211 },
    { "NoLimits",
      0,
      { 0, 0 },
      NONE,
      NONE,
      { 12, 16 },
      { 6, 0, 6, 0 },
      { 6, 18, 6, 18 },
      { 0, 0, 0, 0 },
      { 0, 0, 12, 19 },
      1 },
};

// A range whose gap is 10 units less than nothing, so that its limits overlap: the upper one
// stands at (0, 0, 13, 13), the lower one at (0, 5, 13, 18).
CNodePtr OverlappingRange(CNode& owner)
{
    CNodePtr pRange = Node("NT_RANGE", Text("n"), Text("i"));
    pRange->SetParent(&owner);
    return pRange;
}
}  // namespace

TEST(RangeNode, StacksItsLimits)
{
    ExpectAllArranged("NT_RANGE", s_aRanges);
}

TEST(RangeNode, HasTheSizeOfTheSignAbove)
{
    CTestDC dc;
    const CNodePtr pSum = Node("NT_SUM");
    EXPECT_EQ(pSum->GetLeft()->GetOwnSize(&dc), CRect(0, 0, 10, 21));
    EXPECT_EQ(CRangeNode(nullptr).GetOwnSize(&dc), CRect(0, 0, 0, 0));

    pSum->GetLeft()->SetLeft(Node("NT_RANGE").release());
    EXPECT_EQ(pSum->GetLeft()->GetLeft()->GetOwnSize(&dc), CRect(0, 0, 10, 21));
}

TEST(RangeNode, LowerLimitIsHitFirst)
{
    const CNodePtr pOwner = Node("NT_PLACEHOLDER");
    const CNodePtr pRange = OverlappingRange(*pOwner);
    ExpectHits(*pRange, { 0, 0 },
               { { { 3, 8 }, pRange->GetRight(), { 1, 5, 11, 18 } },
                 { { 3, 2 }, pRange->GetLeft(), { 1, 0, 11, 13 } },
                 { { 0, 8 }, pRange->GetRight(), { 0, 5, 13, 18 } },
                 { { 20, 8 }, nullptr, { 0, 0, 13, 19 } } });
}

// A range answers with what its limit answered, also with nothing: the upper limit is not asked.
TEST(RangeNode, ALimitThatFindsNothingHidesTheOther)
{
    const CNodePtr pOwner = Node("NT_PLACEHOLDER");
    const CNodePtr pRange = Node("NT_RANGE", Text("n"), Node("NT_RANGE", nullptr, Text("i")));
    pRange->SetParent(pOwner.get());
    // The inner range stands at (0, 5, 13, 9), its limit, 11 high, at 5 + 1 - 10 + 1 and so ends
    // above the point.
    CTestDC dc;
    CRect rect(0, 0, 0, 0);
    EXPECT_EQ(pRange->HitTest(&dc, rect, { 5, 8 }), nullptr);
}

// A long chain of ranges costs one walk, not one for each.
TEST(RangeNode, ChainsOfAnyLengthAreMeasuredAndHit)
{
    const CNodePtr pSum = Node("NT_SUM");
    CNode* pRange = pSum->GetLeft();
    for (int i = 0; i < 20000; ++i)
    {
        auto* pNext = new CRangeNode(nullptr);
        pRange->LinkRight(pNext);
        pRange = pNext;
    }
    CTestDC dc;
    EXPECT_EQ(pRange->GetOwnSize(&dc), CRect(0, 0, 10, 21));
    // Each adds its gap of 21 and one unit above, in and below.
    EXPECT_EQ(pSum->Measure(&dc), CRect(0, 0, 12, 20001 * 24));
    CRect rect(0, 0, 0, 0);
    EXPECT_EQ(pSum->HitTest(&dc, rect, { 5, 1000 }), pSum.get());
}
