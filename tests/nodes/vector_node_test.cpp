#include "nodes/vector_node.h"

#include "nodes/arrange_case.h"
#include "platform/base/exception.h"

namespace
{
const CArrangeCase s_aVectors[] = {
    { "MarkSpansTheExpression",
      0,
      { 100, 200 },
      { 20, 14, 6 },
      NONE,
      { 6, 8 },
      { 100, 209, 120, 223 },
      { 0, 0, 0, 0 },
      { 100, 200, 120, 208 },
      { 100, 200, 120, 224 },
      15 },
    { "MarkIsWider",
      0,
      { 100, 200 },
      { 10, 14, 6 },
      { 5, 6, 2 },
      { 22, 8 },
      { 106, 209, 116, 223 },
      { 0, 0, 5, 6 },
      { 100, 200, 122, 208 },
      { 100, 200, 122, 224 },
      15 },
    { "NothingUnderIt",
      0,
      { 100, 200 },
      NONE,
      NONE,
      { 6, 8 },
      { 103, 209, 103, 209 },
      { 0, 0, 0, 0 },
      { 100, 200, 106, 208 },
      { 100, 200, 106, 210 },
      9 },
};
}  // namespace

TEST(VectorNode, StandsOverTheExpression)
{
    ExpectAllArranged("NT_VECTOR", s_aVectors);
}

// The axis of the fraction, 19, is carried up over the mark, which is 11 high on any level.
TEST(VectorNode, CarriesTheAxisUp)
{
    CTestDC dc;
    const CNodePtr pRoot = Node("NT_VECTOR", Node("NT_DIVISION", Text("a"), Text("b")));
    EXPECT_EQ(pRoot->Measure(&dc), CRect(0, 0, 17, 53));
    EXPECT_EQ(pRoot->m_nBaseline, 31);
}

TEST(VectorNode, HasOneSizeOnEveryLevel)
{
    CTestDC dc;
    for (int nLevel : { 0, 1, 2 })
    {
        const CNodePtr pNode = Node("NT_VECTOR");
        pNode->SetLevel(nLevel);
        EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 10, 11));
    }
    EXPECT_EQ(CVectorNode().GetLogFont()->lfHeight, -8);
}

TEST(VectorNode, TakesMarkAndTextByKind)
{
    CTestDC dc;
    const struct
    {
        const char* pszMark;
        const char* pszText;
    } aKinds[] = { { "?", "a_P" },      { "??", "a_PP" },          { "\xD7\xD7?", "a_PPP" },
                   { "?", "a_MEAN" },   { "?", "a_NORM" },         { "?", "a_VEC" },
                   { "~", "a_WINDED" }, { "?", "a_DOUBLE_WINDED" } };
    int nKind = 0;
    for (const auto& row : aKinds)
    {
        const CNodePtr pNode = Kind(nKind++, Node("NT_VECTOR", Text("a")));
        pNode->GetOwnSize(&dc);
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszMark));
        EXPECT_EQ(pNode->MakeText(0), CString(row.pszText));
    }
    EXPECT_THROW(Kind(nKind, Node("NT_VECTOR"))->Measure(&dc), CInvalidArgException*);
}
