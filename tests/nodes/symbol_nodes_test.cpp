#include "nodes/symbol_nodes.h"

#include "nodes/arrange_case.h"

TEST(PlaceHolderNode, HasTheSignOfTheSizesInItsRectangle)
{
    CTestDC dc;
    const CNodePtr pNode = Node("NT_PLACEHOLDER");
    EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, -14, -10));
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, -11, 0));
    EXPECT_EQ(pNode->m_nBaseline, -5);

    pNode->GetLogFont()->lfHeight = 120;
    EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 10, 14));
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, 13, 14));
}

// The neighbours close up: the sum is 13 + 1 + 10 + 1 - 11 + 1 wide. The box goes up and to the
// left of its place on the axis, and a click there finds the parent.
TEST(PlaceHolderNode, CannotBeHit)
{
    const CNodePtr pRoot = Node("NT_PLUS", Text("a"), Node("NT_PLACEHOLDER"));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 25, 36));
    EXPECT_EQ(pRoot->m_rect, CRect(24, 20, 34, 36));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(36, 20, 22, 10));
    ExpectHits(*pRoot, { 10, 20 },
               { { { 30, 22 }, pRoot.get(), { 24, 20, 34, 36 } },
                 { { 35, 22 }, pRoot.get(), { 10, 20, 25, 36 } } });
}

TEST(SymbolNodes, ShowTheirSignsInARow)
{
    const struct
    {
        const char* pszType;
        const char* pszSign;
        const char* pszFace;
    } aCases[] = { { "NT_NABLA", "?", "Symbol" },
                   { "NT_LAPLACE", "D", "Symbol" },
                   { "NT_LABEL", "label", "Times New Roman" } };
    for (const auto& row : aCases)
    {
        const CNodePtr pNode = Node(row.pszType);
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszSign));
        EXPECT_EQ(pNode->GetFontName(), CString(row.pszFace));
        const int nOwn = 8 * static_cast<int>(std::strlen(row.pszSign)) + 2;
        EXPECT_EQ(PaintAt(*pNode, { 10, 20 }), CRect(10, 20, 13 + nOwn, 36));
    }
}

TEST(SymbolNodes, StartWithTheirOwnHeights)
{
    EXPECT_EQ(CNablaNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CLaplaceNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CPlaceHolderNode().GetLogFont()->lfHeight, -120);
}
