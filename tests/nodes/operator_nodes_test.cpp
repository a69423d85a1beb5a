#include "nodes/operator_nodes.h"

#include "nodes/arrange_case.h"
#include "platform/base/exception.h"

namespace
{
// The gap belongs to the process: each test leaves it as it was.
class CTimesGap
{
public:
    explicit CTimesGap(int nGap) : m_nOld(g_nTimesGap) { g_nTimesGap = nGap; }
    ~CTimesGap() { g_nTimesGap = m_nOld; }
    CTimesGap(const CTimesGap&) = delete;
    CTimesGap& operator=(const CTimesGap&) = delete;

private:
    int m_nOld;
};

struct CKindCase
{
    int nKind;
    const char* pszSign;
    const char* pszFace;
};
}  // namespace

// The letters are 13 wide with their signs one unit in; the right factor starts 3 units inside the
// left one's rectangle.
TEST(TimesNode, MovesFactorsTogetherWithANegativeGap)
{
    const CNodePtr pRoot = Node("NT_TIMES", Text("a"), Text("b"));
    pRoot->SetSymbol("");
    const CTimesGap gap(-5);
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 34, 36));
    EXPECT_EQ(pRoot->m_rect, CRect(24, 20, 19, 36));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(21, 20, 31, 36));
}

TEST(TimesNode, FollowsTheGapOfTheProcess)
{
    CTestDC dc;
    const CNodePtr pRoot = Node("NT_TIMES");
    const struct
    {
        int nGap;
        CRect own;
    } aCases[] = { { 2, { 0, 0, 10, 16 } }, { -5, { 0, 0, 3, 16 } }, { -6, { 0, 0, 2, 16 } } };
    for (const auto& row : aCases)
    {
        const CTimesGap gap(row.nGap);
        EXPECT_EQ(pRoot->GetOwnSize(&dc), row.own);
    }
}

TEST(EquationNode, TakesItsSignByKind)
{
    CTestDC dc;
    const CKindCase aCases[] = { { 0, "=", "Symbol" },    { 1, "\xA3", "Symbol" },
                                 { 2, "\xB3", "Symbol" }, { 5, "\xB9", "Symbol" },
                                 { 6, "?", "Symbol" },    { 8, "@", "Symbol" },
                                 { 17, "'", "Symbol" },   { 18, "$", "Symbol" },
                                 { 19, "\"", "Symbol" } };
    for (const CKindCase& row : aCases)
    {
        const CNodePtr pNode = Kind(row.nKind, Node("NT_EQUATION"));
        EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 10, 16));
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszSign)) << row.nKind;
        EXPECT_EQ(pNode->GetFontName(), CString(row.pszFace));
    }
    EXPECT_THROW(Kind(20, Node("NT_EQUATION"))->Measure(&dc), CInvalidArgException*);
    EXPECT_THROW(Kind(-1, Node("NT_EQUATION"))->Measure(&dc), CInvalidArgException*);
}

TEST(ArrowNode, TakesItsSignAndFaceByKind)
{
    CTestDC dc;
    const CKindCase aCases[] = { { 0, "?", "Symbol" },   { 4, "?", "Symbol" },
                                 { 5, "b", "MT Extra" }, { 6, "?", "Symbol" },
                                 { 10, "?", "Symbol" },  { 11, "c", "MT Extra" } };
    for (const CKindCase& row : aCases)
    {
        const CNodePtr pNode = Kind(row.nKind, Node("NT_ARROWS"));
        pNode->GetOwnSize(&dc);
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszSign)) << row.nKind;
        EXPECT_EQ(pNode->GetFontName(), CString(row.pszFace)) << row.nKind;
    }
    EXPECT_THROW(Kind(12, Node("NT_ARROWS"))->Measure(&dc), CInvalidArgException*);
}

TEST(EquationNode, SpeaksByItsKind)
{
    const struct
    {
        int nKind;
        const char* pszText;
    } aCases[] = { { 0, "a = b" },    { 1, "a .LE. b" }, { 2, "a .GE. b" }, { 3, "a .LT. b" },
                   { 4, "a .GT. b" }, { 5, "a .NE. b" }, { 6, "a = b" },    { 19, "a = b" } };
    for (const auto& row : aCases)
    {
        const CNodePtr pNode = Kind(row.nKind, Node("NT_EQUATION", Text("a"), Text("b")));
        EXPECT_EQ(pNode->MakeText(0), CString(row.pszText));
    }
}

// A fraction is 17 by 40 with its axis at 19: the sign, 16 high, stands at 19 - 8.
TEST(OperatorNodes, StandOnTheAxisOfTheirOperands)
{
    for (const char* pszType :
         { "NT_PLUS", "NT_MINUS", "NT_CROSS", "NT_OPERATOR", "NT_EQUATION", "NT_ARROWS" })
    {
        SCOPED_TRACE(pszType);
        const CNodePtr pRoot = Node(pszType, Node("NT_DIVISION", Text("a"), Text("b")), Text("c"));
        EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 53, 60));
        EXPECT_EQ(pRoot->m_rect, CRect(28, 31, 38, 47));
        EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(40, 31, 50, 47));
    }
}

// One level below what the default format says: nobody formatted these.
TEST(OperatorNodes, StartWithTheirOwnHeights)
{
    EXPECT_EQ(COperatorNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CArrowNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CPlusNode().GetLogFont()->lfHeight, -120);
    EXPECT_EQ(Node("NT_OPERATOR")->GetLogFont()->lfHeight, -120);
}
