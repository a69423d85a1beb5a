#include "nodes/structure_nodes.h"

#include "nodes/arrange_case.h"

namespace
{
const CArrangeCase s_aBinomials[] = {
    // The free row between the parts counts in height only.
    { "OneFontHeightApart",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 40, 11 },
      { 102, 200, 111, 210 },
      { 100, 223, 114, 230 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 231 },
      0 },
};

const CArrangeCase s_aMatrices[] = {
    { "OneUnitApart",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 0, 0 },
      { 102, 200, 111, 210 },
      { 100, 211, 114, 218 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 219 },
      0 },
    { "OnePart",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      NONE,
      { 0, 0 },
      { 100, 200, 109, 210 },
      { 104, 211, 104, 211 },
      { 0, 0, 0, 0 },
      { 100, 200, 109, 212 },
      0 },
};

const CArrangeCase s_aLines[] = {
    { "LeftPartIsBelow",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 0, 0 },
      { 102, 207, 111, 217 },
      { 100, 200, 114, 207 },
      { 0, 0, 0, 0 },
      { 100, 200, 114, 217 },
      0 },
    { "OwnPartStays",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 20, 3 },
      { 105, 207, 114, 217 },
      { 103, 200, 117, 207 },
      { 0, 0, 20, 3 },
      { 100, 200, 120, 217 },
      0 },
};

const CArrangeCase s_aElements[] = {
    { "CentredOnHeight",
      0,
      { 0, 0 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 0, 0 },
      { 0, 0, 9, 10 },
      { 11, 1, 25, 8 },
      { 0, 0, 0, 0 },
      { 0, 0, 25, 10 },
      5 },
    { "BaseLineHoldsTheTop",
      0,
      { 100, 200 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 0, 0 },
      { 100, 200, 109, 210 },
      { 111, 201, 125, 208 },
      { 0, 0, 0, 0 },
      { 100, 200, 125, 210 },
      205 },
    { "OwnPartCounts",
      0,
      { 0, 0 },
      { 9, 10, 4 },
      { 14, 7, 3 },
      { 3, 12 },
      { 0, 1, 9, 11 },
      { 14, 2, 28, 9 },
      { 0, 0, 0, 0 },
      { 0, 0, 28, 12 },
      6 },
};
}  // namespace

TEST(StructureNodes, PlaceTheirParts)
{
    ExpectAllArranged("NT_BINOMIAL", s_aBinomials);
    ExpectAllArranged("NT_MATRIX", s_aMatrices);
    ExpectAllArranged("NT_LINE", s_aLines);
    ExpectAllArranged("NT_ELEMENT", s_aElements);
}

TEST(StructureNodes, HaveNoSignButTheBinomial)
{
    CTestDC dc;
    EXPECT_EQ(Node("NT_MATRIX")->GetOwnSize(&dc), CRect(0, 0, 0, 0));
    EXPECT_EQ(Node("NT_LINE")->GetOwnSize(&dc), CRect(0, 0, 0, 0));
    EXPECT_EQ(Node("NT_ELEMENT")->GetOwnSize(&dc), CRect(0, 0, 0, 0));
    EXPECT_EQ(Node("NT_BINOMIAL")->GetOwnSize(&dc), CRect(0, 0, 2, 16));
}

// Nobody writes the base line: it is 0 in a new node, and what was stored in a loaded one.
TEST(StructureNodes, HangByTheBaseLineThatTheyHave)
{
    for (const char* pszType : { "NT_MATRIX", "NT_BINOMIAL", "NT_LINE" })
    {
        SCOPED_TRACE(pszType);
        const CNodePtr pRoot = Node("NT_PLUS", Text("a"), Node(pszType, Text("b"), Text("c")));
        PaintAt(*pRoot, { 10, 20 });
        EXPECT_EQ(pRoot->m_rect, CRect(24, 20, 34, 36));
        const CNode* pUpper = pRoot->GetRight()->GetLeft();
        const CNode* pLower = pRoot->GetRight()->GetRight();
        if (CString(pszType) == "NT_LINE")
            std::swap(pUpper, pLower);
        EXPECT_EQ(pUpper->m_rect, CRect(36, 28, 46, 44));

        pRoot->GetRight()->m_nBaseline = 5;
        PaintAt(*pRoot, { 10, 20 });
        EXPECT_EQ(pUpper->m_rect, CRect(36, 23, 46, 39));
        EXPECT_EQ(pRoot->GetRight()->m_nBaseline, 5);
    }
}

// Two lines of two elements: the second line is the right part of the outer one, above.
TEST(StructureNodes, BuildAMatrix)
{
    const CNodePtr pRoot = Node("NT_MATRIX",
                                Node("NT_LINE", Node("NT_ELEMENT", Text("a"), Text("b")),
                                     Node("NT_ELEMENT", Text("c"), Text("d"))),
                                Text("e"));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 38, 70));
    const CNode* pLine = pRoot->GetLeft();
    EXPECT_EQ(pLine->GetRight()->GetLeft()->m_rect, CRect(11, 20, 21, 36));
    EXPECT_EQ(pLine->GetRight()->GetRight()->m_rect, CRect(26, 20, 36, 36));
    EXPECT_EQ(pLine->GetLeft()->GetLeft()->m_rect, CRect(11, 36, 21, 52));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(18, 53, 28, 69));
}
