#include "nodes/brace_nodes.h"

#include "nodes/arrange_case.h"
#include "platform/base/exception.h"

namespace
{
const CArrangeCase s_aBraces[] = {
    { "BothSidesAreAFifthOfTheHeight",
      0,
      { 100, 200 },
      { 20, 23, 3 },
      NONE,
      { 14, 11 },
      { 110, 200, 130, 223 },
      { 0, 0, 0, 0 },
      { 100, 200, 140, 223 },
      { 100, 200, 141, 223 },
      11 },
    { "RightChildStaysWhereItIs",
      11,
      { 100, 200 },
      { 20, 25, 3 },
      { 5, 6, 2 },
      { 14, 11 },
      { 111, 200, 131, 225 },
      { 0, 0, 5, 6 },
      { 100, 200, 142, 225 },
      { 100, 200, 143, 225 },
      12 },
    { "NothingInside",
      0,
      { 100, 200 },
      NONE,
      NONE,
      { 14, 11 },
      { 106, 200, 106, 200 },
      { 0, 0, 0, 0 },
      { 100, 200, 112, 200 },
      { 100, 200, 113, 200 },
      0 },
    { "TurnedOverContent",
      0,
      { 0, 0 },
      { -11, -7, 2 },
      NONE,
      { 14, 11 },
      { 5, 0, -6, -7 },
      { 0, 0, 0, 0 },
      { 0, 0, -1, -7 },
      { 0, 0, 0, -7 },
      -3 },
};
}  // namespace

TEST(BraceNode, EnclosesItsContent)
{
    ExpectAllArranged("NT_BRACE", s_aBraces);
    ExpectAllArranged("NT_POISON", s_aBraces);
}

// The power is 27 by 29: each bracket is 5 + 5 wide. The font keeps what the painting asked for:
// (29 - 2) * 100 / 12 tenths of a point.
TEST(BraceNode, KeepsTheFontOfThePaintedBrackets)
{
    for (const char* pszType : { "NT_BRACE", "NT_POISON" })
    {
        const CNodePtr pRoot = Node(pszType, Node("NT_POWERTO", Text("x"), Text("n")));
        EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 60, 49));
        EXPECT_EQ(pRoot->m_rect, CRect(10, 20, 59, 49));
        EXPECT_EQ(pRoot->GetLeft()->GetLeft()->m_rect, CRect(22, 33, 32, 49));
        EXPECT_EQ(pRoot->m_nBaseline, 14);
        EXPECT_EQ(pRoot->GetLogFont()->lfHeight, 225);
        EXPECT_EQ(pRoot->GetLogFont()->lfWidth, 10);
    }
}

// What painting left in the font does not move anything at the next request.
TEST(BraceNode, IsPlacedAgainWhereItWas)
{
    const CNodePtr pRoot = Node("NT_BRACE", Node("NT_BRACE", Text("x")));
    const CRect rect = PaintAt(*pRoot, { 10, 20 });
    const CRect inner = pRoot->GetLeft()->m_rect;
    EXPECT_EQ(rect, CRect(10, 20, 61, 36));
    EXPECT_EQ(inner, CRect(19, 20, 50, 36));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), rect);
    EXPECT_EQ(pRoot->GetLeft()->m_rect, inner);
}

TEST(BraceNode, IsHitOnItsBrackets)
{
    const CNodePtr pRoot = Node("NT_BRACE", Node("NT_BRACE", Text("x")));
    const CNode* pInner = pRoot->GetLeft();
    ExpectHits(*pRoot, { 10, 20 },
               { { { 12, 30 }, pRoot.get(), { 10, 20, 60, 36 } },
                 { { 55, 30 }, pRoot.get(), { 10, 20, 60, 36 } },
                 { { 22, 30 }, pInner, { 19, 20, 50, 36 } },
                 { { 32, 30 }, pInner->GetLeft(), { 29, 20, 39, 36 } } });
}

TEST(BraceNode, TakesItsGlyphsByKind)
{
    CTestDC dc;
    const struct
    {
        int nKind;
        const char* pszPair;
    } aCases[] = { { 0, "()" }, { 3, "\xE1\xF1" }, { 8, "][" },    { 11, "( " },
                   { 17, "?" }, { 22, " |" },      { 24, "\xE1|" } };
    for (const char* pszType : { "NT_BRACE", "NT_POISON" })
    {
        for (const auto& row : aCases)
        {
            const CNodePtr pNode = Kind(row.nKind, Node(pszType));
            pNode->GetOwnSize(&dc);
            EXPECT_EQ(pNode->GetSymbol(), CString(row.pszPair));
            EXPECT_EQ(pNode->GetFontName(), CString("Symbol"));
        }
        EXPECT_THROW(Kind(25, Node(pszType))->Measure(&dc), CInvalidArgException*);
        EXPECT_THROW(Kind(-1, Node(pszType))->Measure(&dc), CInvalidArgException*);
    }
}
