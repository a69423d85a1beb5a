#include "nodes/big_operator_nodes.h"

#include "format/tree_format.h"
#include "nodes/arrange_case.h"
#include "nodes/range_node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
// The left part is a measured range: its base line tells where the gap begins.
const CArrangeCase s_aOperators[] = {
    { "SummandFollowsTheSign",
      0,
      { 100, 200 },
      { 14, 36, 11 },
      { 30, 20, 10 },
      { 12, 16 },
      { 100, 200, 114, 236 },
      { 115, 209, 145, 229 },
      { 101, 211, 113, 227 },
      { 100, 200, 146, 236 },
      19 },
    { "HighSummandPushesTheSignDown",
      0,
      { 100, 200 },
      { 14, 36, 11 },
      { 30, 50, 30 },
      { 12, 16 },
      { 100, 211, 114, 247 },
      { 115, 200, 145, 250 },
      { 101, 222, 113, 238 },
      { 100, 200, 146, 250 },
      30 },
    { "NoSummand",
      0,
      { 100, 200 },
      { 14, 36, 11 },
      NONE,
      { 12, 16 },
      { 100, 200, 114, 236 },
      { 115, 219, 115, 219 },
      { 101, 211, 113, 227 },
      { 100, 200, 116, 236 },
      19 },
    { "SummandWithoutHeightHasNoAxis",
      0,
      { 100, 200 },
      { 14, 36, 11 },
      { 30, 0, 50 },
      { 12, 16 },
      { 100, 200, 114, 236 },
      { 115, 219, 145, 219 },
      { 101, 211, 113, 227 },
      { 100, 200, 146, 236 },
      19 },
};

// The sum over i up to n; both limits are 13 by 13, the sign 10 by 21.
CNodePtr SumOf(CNodePtr pSummand)
{
    CNodePtr pSum = Node("NT_SUM", nullptr, std::move(pSummand));
    pSum->GetLeft()->SetLeft(Text("n").release());
    pSum->GetLeft()->SetRight(Text("i").release());
    return pSum;
}

CNodePtr Fraction(CNodePtr pUpper)
{
    return Node("NT_DIVISION", std::move(pUpper), Text("b"));
}

// What a node stores, and a new node of its type that has loaded it.
CNodePtr StoreAndLoad(CNode& node, int* pnBytes)
{
    CBinTree tree;
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        node.SerializeNode(ar, &tree);
    }
    *pnBytes = static_cast<int>(file.GetLength());
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    CNodePtr pLoaded(tree.CreateNode(node.GetTypeName()));
    pLoaded->SerializeNode(ar, &tree);
    return pLoaded;
}
}  // namespace

TEST(SumNode, LinesUpSignAndSummand)
{
    ExpectAllArranged("NT_SUM", s_aOperators);
    ExpectAllArranged("NT_PROD", s_aOperators);
    ExpectAllArranged("NT_INTEGRAL", s_aOperators);
}

TEST(SumNode, MovesTheGapOfItsRangeWithTheSign)
{
    const CNodePtr pSum = Node("NT_SUM", nullptr, Text("a"));
    pSum->GetLeft()->m_nBaseline = 11;
    pSum->GetRight()->m_nBaseline = 30;
    ArrangeParts(*pSum, { 0, 0 }, { 14, 36 }, { 30, 50 }, { 12, 16 });
    EXPECT_EQ(pSum->GetLeft()->m_nBaseline, 22);
}

TEST(SumNode, WithoutLimitsIsThreeHigherThanItsSign)
{
    CTestDC dc;
    const CNodePtr pSum = Node("NT_SUM");
    EXPECT_EQ(pSum->Measure(&dc), CRect(0, 0, 12, 24));
    EXPECT_EQ(pSum->m_nBaseline, 11);
}

// The fraction is 17 by 40 with its axis at 19, the sign's is at 24.
TEST(SumNode, PlacesAFraction)
{
    const CNodePtr pSum = SumOf(Fraction(Text("a")));
    EXPECT_EQ(PaintAt(*pSum, { 10, 20 }), CRect(10, 20, 42, 70));
    EXPECT_EQ(pSum->m_rect, CRect(11, 34, 21, 55));
    EXPECT_EQ(pSum->GetLeft()->GetLeft()->m_rect, CRect(11, 20, 21, 33));
    EXPECT_EQ(pSum->GetLeft()->GetRight()->m_rect, CRect(11, 56, 21, 69));
    EXPECT_EQ(pSum->GetRight()->GetLeft()->m_rect, CRect(27, 25, 37, 41));
}

// The double fraction is 21 by 64 with its axis at 43: the sign goes 19 down.
TEST(SumNode, GoesDownForAHighSummand)
{
    const CNodePtr pSum = SumOf(Fraction(Fraction(Text("a"))));
    EXPECT_EQ(PaintAt(*pSum, { 10, 20 }), CRect(10, 20, 46, 89));
    EXPECT_EQ(pSum->m_rect, CRect(11, 53, 21, 74));
    EXPECT_EQ(pSum->GetLeft()->GetLeft()->m_rect, CRect(11, 39, 21, 52));
    EXPECT_EQ(pSum->GetLeft()->GetRight()->m_rect, CRect(11, 75, 21, 88));
}

TEST(SumNode, IsHitThroughItsRange)
{
    const CNodePtr pSum = SumOf(Fraction(Text("a")));
    const CNode* pRange = pSum->GetLeft();
    ExpectHits(*pSum, { 10, 20 },
               { { { 15, 40 }, pSum.get(), { 11, 34, 21, 55 } },
                 { { 12, 22 }, pRange->GetLeft(), { 11, 20, 21, 33 } },
                 { { 12, 60 }, pRange->GetRight(), { 11, 56, 21, 69 } },
                 { { 30, 30 }, pSum->GetRight()->GetLeft(), { 27, 25, 37, 41 } },
                 { { 30, 43 }, pSum->GetRight(), { 24, 42, 41, 47 } },
                 { { 22, 50 }, pSum.get(), { 10, 20, 23, 70 } } });  // beside the sign
}

TEST(BigOperators, BringARangeThatIsTheirs)
{
    for (const char* pszType : { "NT_SUM", "NT_PROD", "NT_INTEGRAL" })
    {
        const CNodePtr pNode = Node(pszType);
        ASSERT_NE(pNode->GetLeft(), nullptr);
        EXPECT_EQ(pNode->GetLeft()->GetTypeName(), CString("NT_RANGE"));
        EXPECT_EQ(pNode->GetLeft()->GetParent(), pNode.get());
        EXPECT_EQ(pNode->GetRight(), nullptr);
    }
}

TEST(BigOperators, AreSetBigByTheirLevel)
{
    const struct
    {
        int nLevel;
        int nHeight;
    } aCases[] = { { 0, -160 }, { 1, -120 }, { 2, -120 }, { 7, -120 }, { -3, -160 } };
    for (const char* pszType : { "NT_SUM", "NT_PROD", "NT_INTEGRAL" })
    {
        for (const auto& row : aCases)
        {
            const CNodePtr pNode = Node(pszType);
            pNode->SetLevel(row.nLevel);
            pNode->ApplyFormat(&g_DefaultFormat);
            EXPECT_EQ(pNode->GetLogFont()->lfHeight, row.nHeight) << pszType << row.nLevel;
        }
    }
    EXPECT_EQ(CSumNode().GetLogFont()->lfHeight, -160);
    EXPECT_EQ(CIntegralNode().GetLogFont()->lfHeight, -160);
}

// A limit of a sum that is itself an exponent: levels add up.
TEST(BigOperators, SetTheirLimitsOneLevelDown)
{
    const CNodePtr pPower = Node("NT_POWERTO", Text("x"), SumOf(Text("a")));
    const CNode* pSum = pPower->GetRight();
    EXPECT_EQ(pSum->GetLogFont()->lfHeight, -120);
    EXPECT_EQ(pSum->GetLeft()->GetLevel(), 1);
    EXPECT_EQ(pSum->GetLeft()->GetLeft()->GetLevel(), 2);
    EXPECT_EQ(pSum->GetLeft()->GetLeft()->GetLogFont()->lfHeight, -80);
    EXPECT_EQ(pSum->GetRight()->GetLogFont()->lfHeight, -100);
}

TEST(IntegralNode, ShowsAsManySignsAsItsKindTells)
{
    CTestDC dc;
    const struct
    {
        int nKind;
        const char* pszSign;
    } aCases[] = { { 0, "\xF2" },     { 1, "?" },         { 2, "?" },        { 3, "\xF2\xF2" },
                   { 5, "\xF2\xF2" }, { 6, "\xF2\xF2?" }, { 8, "\xF2\xF2?" } };
    for (const auto& row : aCases)
    {
        const CNodePtr pNode = Kind(row.nKind, Node("NT_INTEGRAL"));
        const int nLength = static_cast<int>(std::strlen(row.pszSign));
        EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 8 * nLength + 2, 21));
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszSign));
        EXPECT_EQ(pNode->GetFontName(), CString("Symbol"));
    }
}

TEST(SumNode, LosesItsOwnFontAndKeepsItsRangeInAnArchive)
{
    const CNodePtr pSum = SumOf(Text("a"));
    pSum->SetFontName("Arial");
    pSum->SetBold(1);
    pSum->GetLeft()->SetFontName("Arial");
    pSum->GetRight()->SetFontName("Arial");
    int nBytes = 0;
    const CNodePtr pLoaded = StoreAndLoad(*pSum, &nBytes);
    EXPECT_EQ(pLoaded->GetFontName(), CString("Symbol"));
    EXPECT_FALSE(pLoaded->IsBold());
    EXPECT_EQ(pLoaded->GetLogFont()->lfHeight, -160);
    EXPECT_EQ(pLoaded->GetLeft()->GetParent(), pLoaded.get());
    EXPECT_EQ(pLoaded->GetLeft()->GetFontName(), CString("Arial"));
    EXPECT_EQ(pLoaded->GetLeft()->GetLeft()->GetSymbol(), CString("n"));
    EXPECT_EQ(pLoaded->GetLeft()->GetRight()->GetSymbol(), CString("i"));
    EXPECT_EQ(pLoaded->GetRight()->GetSymbol(), CString("a"));
    EXPECT_EQ(pLoaded->GetRight()->GetParent(), pLoaded.get());
}

TEST(IntegralNode, StoresItsKindBehindTheCommonItems)
{
    const CNodePtr pSum = Node("NT_SUM");
    const CNodePtr pIntegral = Kind(4, Node("NT_INTEGRAL"));
    int nSum = 0;
    int nIntegral = 0;
    StoreAndLoad(*pSum, &nSum);
    const CNodePtr pLoaded = StoreAndLoad(*pIntegral, &nIntegral);
    EXPECT_EQ(static_cast<CTypedNode&>(*pLoaded).GetKind(), 4);
    // Type name and description are 5 longer each ("NT_INTEGRAL", "Integral"), the sign is one
    // shorter, the kind has 4 bytes.
    EXPECT_EQ(nIntegral, nSum + 5 + 5 - 1 + 4);
}

TEST(IntegralNode, RefusesAKindOutsideItsTable)
{
    CTestDC dc;
    EXPECT_THROW(Kind(-1, Node("NT_INTEGRAL"))->Measure(&dc), CInvalidArgException*);
    EXPECT_THROW(Kind(9, Node("NT_INTEGRAL"))->Measure(&dc), CInvalidArgException*);
}
