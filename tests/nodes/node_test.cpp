// The base node: the row layout, hits, painting with its marks, formats, texts, and trees of any
// depth.
#include "nodes/node.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "format/tree_format.h"
#include "nodes/node_fixture.h"
#include "nodes/value_nodes.h"

namespace
{
constexpr CPoint s_origin(100, 200);

// A fraction plus a letter. The fraction is 17 wide and 40 high, its bar's axis at 19; the sign
// and the letter have their axes at 8 and are pushed down by 11.
struct CFractionPlusLetter
{
    CNodePtr pPlus = Node("NT_PLUS", Node("NT_DIVISION", Text("a"), Text("b")), Text("c"));
    CNode* pDivision = pPlus->GetLeft();
    CNode* pA = pDivision->GetLeft();
    CNode* pB = pDivision->GetRight();
    CNode* pC = pPlus->GetRight();
};

// Notes how its own part is asked to be painted.
class CNotingNode : public CNode
{
public:
    explicit CNotingNode(const char* pszName)
    {
        m_strType = NodeTypeName(NTI_PLUS);
        m_strSymbol = pszName;
        m_colour = RGB(1, 2, 3);
    }

    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override
    {
        LOGPEN pen{};
        pDC->GetCurrentPen()->GetLogPen(&pen);
        EXPECT_EQ(rect, m_rect);
        EXPECT_EQ(pen.lopnColor, pDC->GetTextColor());
        s_strNoted += m_strSymbol.GetString();
        s_strNoted += std::to_string(nFlags) + ForeName(pDC->GetTextColor()) + "/" +
                      BackName(pDC->GetBkColor()) + " ";
    }

    static std::string ForeName(COLORREF colour)
    {
        return colour == RGB(1, 2, 3)                       ? "own"
               : colour == GetSysColor(COLOR_GRAYTEXT)      ? "grey"
               : colour == GetSysColor(COLOR_HIGHLIGHTTEXT) ? "mark"
                                                            : "?";
    }

    static std::string BackName(COLORREF colour)
    {
        return colour == GetSysColor(COLOR_WINDOW)      ? "window"
               : colour == GetSysColor(COLOR_HIGHLIGHT) ? "marked"
                                                        : "?";
    }

    static inline std::string s_strNoted;
};

std::string FormText(const char* pszType)
{
    CNodePtr pNode = Node(pszType, Text("L"), Text("R"));
    pNode->SetSymbol("s");
    return pNode->MakeText(0).GetString();
}
}  // namespace

TEST(NodeLayout, StandsInARowOnTheHighestAxis)
{
    CTestDC dc;
    CFractionPlusLetter tree;
    EXPECT_EQ(tree.pPlus->Measure(&dc), CRect(0, 0, 43, 40));
    EXPECT_EQ(tree.pPlus->m_nBaseline, 19);

    CRect rect(s_origin, s_origin);
    tree.pPlus->Paint(&dc, rect, nullptr, 0);
    EXPECT_EQ(rect, CRect(100, 200, 143, 240));
    EXPECT_EQ(tree.pPlus->m_rect, CRect(118, 211, 128, 227));
    EXPECT_EQ(tree.pDivision->m_rect, CRect(100, 217, 117, 222));
    EXPECT_EQ(tree.pA->m_rect, CRect(103, 200, 113, 216));
    EXPECT_EQ(tree.pB->m_rect, CRect(103, 223, 113, 239));
    EXPECT_EQ(tree.pC->m_rect, CRect(130, 211, 140, 227));
}

TEST(NodeLayout, PartsWithoutHeightFollowTheOwnSign)
{
    CTestDC dc;
    // A division of a kind that is never laid out: its base line of 50 is not to be read.
    CNodePtr pNode = Node("NT_PLUS", Kind(2, Node("NT_DIVISION")), Text("c"));
    pNode->GetLeft()->m_nBaseline = 50;
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, 26, 16));
    EXPECT_EQ(pNode->m_nBaseline, 8);

    CNodePtr pEmpty = Node("NT_STANDARD");
    EXPECT_EQ(pEmpty->Measure(&dc), CRect(0, 0, 5, 16));
}

TEST(NodeLayout, FindsTheDeepestNodeAtAPoint)
{
    CTestDC dc;
    CFractionPlusLetter tree;
    const struct
    {
        CPoint point;
        CNode* pFound;
        CRect rect;
    } aCases[] = {
        { { 105, 205 }, tree.pA, { 103, 200, 113, 216 } },         // its sign
        { { 102, 205 }, tree.pA, { 102, 200, 115, 216 } },         // its margin: all of it
        { { 101, 205 }, tree.pDivision, { 100, 200, 117, 240 } },  // beside the numerator
        { { 101, 220 }, tree.pDivision, { 100, 217, 117, 222 } },  // the bar
        { { 112, 238 }, tree.pB, { 103, 223, 113, 239 } },
        { { 118, 211 }, tree.pPlus.get(), { 118, 211, 128, 227 } },
        { { 128, 226 }, tree.pPlus.get(), { 100, 200, 143, 240 } },  // the unit behind the sign
        { { 139, 226 }, tree.pC, { 130, 211, 140, 227 } },
        { { 0, 0 }, tree.pPlus.get(), { 100, 200, 143, 240 } },
    };
    for (const auto& test : aCases)
    {
        CRect rect(s_origin, s_origin);
        EXPECT_EQ(tree.pPlus->HitTest(&dc, rect, test.point), test.pFound)
            << test.point.x << "," << test.point.y;
        EXPECT_EQ(rect, test.rect) << test.point.x << "," << test.point.y;
    }
}

TEST(NodePaint, MarksSelectionAndGrey)
{
    CNotingNode root("r");
    root.SetLeft(new CNotingNode("a"));
    root.SetRight(new CNotingNode("b"));
    root.GetRight()->SetLeft(new CNotingNode("c"));
    CNode* pB = root.GetRight();
    for (CNode* p : std::initializer_list<CNode*>{ &root, root.GetLeft(), pB, pB->GetLeft() })
        p->SetColour(RGB(1, 2, 3));
    const struct
    {
        CNode* pSelected;
        UINT nFlags;
        const char* pszNoted;
    } aCases[] = {
        { nullptr, 2, "r0own/window a0own/window b0own/window c0own/window " },
        { pB, 1, "r0own/window a0own/window b1mark/marked c0own/window " },
        { pB, 2, "r0own/window a0own/window b2mark/marked c2mark/marked " },
        { pB, 6, "r6grey/window a6grey/window b6grey/window c6grey/window " },
        { &root, 2, "r2mark/marked a2mark/marked b2mark/marked c2mark/marked " },
        { pB, 0, "r0own/window a0own/window b0mark/marked c0own/window " },
    };
    for (const auto& test : aCases)
    {
        CTestDC dc;
        CRect rect(3, 4, 0, 0);
        CNotingNode::s_strNoted.clear();
        root.Paint(&dc, rect, test.pSelected, test.nFlags);
        EXPECT_EQ(CNotingNode::s_strNoted, test.pszNoted);
    }

    // A hidden node keeps its place, and its children are painted.
    CTestDC dc;
    CRect rect(3, 4, 0, 0);
    pB->SetFlags(pB->GetFlags() | NF_HIDDEN);
    pB->m_rect = CRect();
    CNotingNode::s_strNoted.clear();
    root.Paint(&dc, rect, nullptr, 0);
    EXPECT_EQ(CNotingNode::s_strNoted, "r0own/window a0own/window c0own/window ");
    EXPECT_FALSE(pB->m_rect.IsRectEmpty());
}

TEST(NodeFormat, LevelsSelectTheSizeAndTypesTheRecord)
{
    CBinTreeFormat format;
    format.m_pVariable->m_strFontName = "A face name that is far longer than a font can hold";
    format.m_pVariable->m_Style[0] = 1;
    format.m_pVariable->m_Style[1] = 7;
    format.m_nSizes[1] = INT_MAX;
    const struct
    {
        int nLevel;
        int nStep;
        int nLevelBelow;
        int nHeight;  // of the node below
    } aCases[] = {
        { 0, 0, 0, -120 }, { 0, 1, 1, -10 },  // ten times the largest number, in 32 bits
        { 1, 1, 2, -80 },  { 4, 1, 5, -80 }, { -3, 1, -2, -120 }, { INT_MAX, 1, INT_MIN, -120 },
    };
    for (const auto& test : aCases)
    {
        CNodePtr pNode = Node("NT_STANDARD", Text("a"));
        pNode->m_nLeftLevelStep = test.nStep;
        pNode->SetLevel(test.nLevel);
        pNode->ApplyFormat(&format);
        const CNode* pLeft = pNode->GetLeft();
        EXPECT_EQ(pLeft->GetLevel(), test.nLevelBelow);
        EXPECT_EQ(pLeft->GetLogFont()->lfHeight, test.nHeight) << test.nLevel;
        EXPECT_EQ(pLeft->GetFontName(), "A face name that is far longer ");
        EXPECT_TRUE(pLeft->IsBold());
        EXPECT_FALSE(pLeft->IsItalic());
    }
}

TEST(NodeFormat, AnUnknownTypeKeepsItsFont)
{
    CNodePtr pNode = Node("nt_plus");
    const LOGFONT& lf = *pNode->GetLogFont();
    EXPECT_EQ(pNode->GetFlags(), 2U);
    EXPECT_EQ(pNode->GetFontName(), "Times New Roman");
    EXPECT_EQ(lf.lfHeight, -120);
    EXPECT_EQ(lf.lfWeight, 400);
    EXPECT_EQ(lf.lfItalic, 1);
    EXPECT_EQ(lf.lfPitchAndFamily, 0x50);
    CTestDC dc;
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, 5, 16));
}

TEST(NodeLinks, FormatWhatTheyLinkButLinkingAloneDoesNot)
{
    CNode node;
    node.SetLevel(1);
    CNodePtr pChild = Node("NT_POWERTO", Text("a"), Text("b"));
    pChild->SetLevel(5);
    node.LinkRight(pChild.get());
    EXPECT_EQ(pChild->GetParent(), &node);
    EXPECT_EQ(pChild->GetLevel(), 1);
    EXPECT_EQ(pChild->GetRight()->GetLevel(), 1);
    EXPECT_EQ(pChild->GetLogFont()->lfHeight, -120);

    node.SetRight(pChild.release());
    EXPECT_EQ(node.GetRight()->GetLogFont()->lfHeight, -100);
    EXPECT_EQ(node.GetRight()->GetRight()->GetLevel(), 2);
    EXPECT_EQ(node.GetRight()->GetRight()->GetLogFont()->lfHeight, -80);
}

TEST(NodeAttributes, CopyAcrossClasses)
{
    CNodePtr pSource = Kind(7, Node("NT_BRACE"));
    pSource->m_nBaseline = 31;
    pSource->SetSymbol("s");
    pSource->GetLogFont()->lfWidth = 9;
    CNodePtr pTarget = Node("NT_NUMBER");
    pTarget->CopyAttributes(pSource.get());
    EXPECT_EQ(pTarget->GetTypeName(), "NT_BRACE");
    EXPECT_EQ(pTarget->m_nBaseline, 31);
    EXPECT_EQ(pTarget->GetLogFont()->lfWidth, 9);
    EXPECT_EQ(pTarget->MakeText(0), "s") << "the symbol in the template of the target's own class";
}

TEST(NodeText, FollowsTheTemplateOfTheType)
{
    const struct
    {
        const char* pszType;
        const char* pszText;
    } aCases[] = {
        { "NT_STANDARD", "L s R" },       { "NT_VARIABLE", "LsR" },
        { "NT_NUMBER", "LsR" },           { "NT_CONSTANT", "LsR" },
        { "NT_USERFUNC", "LsR" },         { "NT_LABEL", "LsR" },
        { "NT_INFINITY", "LINFINITYR" },  { "NT_PLANCK", "LPLANCKR" },
        { "NT_LAMBDA", "LLAMBDAR" },      { "NT_NABLA", "LNABLAR" },
        { "NT_PLUS", "L + R" },           { "NT_MINUS", "L - R" },
        { "NT_TIMES", "(L)*(R)" },        { "NT_DIVISION", "(L)/(R)" },
        { "NT_CROSS", "(L)VEC_PROD(R)" }, { "NT_POWERTO", "(L) ** (R)" },
        { "NT_ROOT", "SQRT(L)R" },        { "NT_NTHROOT", "(L) ** (-(1.0D0 / (R)))" },
        { "NT_BRACE", "(L)R" },           { "NT_POISON", "(L)R" },
        { "NT_EQUATION", "L = R" },       { "NT_FUNC", "LSINR" },
        { "NT_EXTFUNC", "L s R" },        { "NT_ARROWS", "L s R" },
        { "NT_BINOMIAL", "L s R" },       { "NT_OPERATOR", "L , R" },
        { "NT_SUM", "SUM(L , R)" },       { "NT_PROD", "PROD(L , R)" },
        { "NT_INTEGRAL", "INT(L , R)" },  { "NT_RANGE", "RANGE(L , R)" },
        { "NT_INTEGRAND", "L, R" },       { "NT_LIMES", "LIMES(L , R)" },
        { "NT_DERIVE", "DERIVE(L , R)" }, { "NT_PARTDERIVE", "DERIVE(L , R)" },
        { "NT_VECTOR", "L_PR" },          { "NT_INDEX", "_L_sR" },
        { "NT_MATRIX", "MATRIX(L)R" },    { "NT_LINE", "L LINE(R)" },
        { "NT_ELEMENT", " ELEMENT(L)R" }, { "NT_LAPLACE", "LDELTA_R" },
        { "NT_PLACEHOLDER", "LEMPTYR" },
    };
    static_assert(std::size(aCases) == NTI_COUNT);
    for (const auto& test : aCases)
        EXPECT_EQ(FormText(test.pszType), test.pszText) << test.pszType;

    CNodePtr pPercent = Node("NT_PLUS", Text("100%s"), Text("%d"));
    EXPECT_EQ(pPercent->MakeText(0), "100%s + %d");
    EXPECT_EQ(Node("NT_PLUS")->MakeText(0), " + ");
}

// Trees deeper than any stack, in the three shapes that differ to walk.
TEST(NodeDepth, NothingOverflows)
{
    constexpr int nLevels = 65000;
    using CLink = void (CNode::*)(CNode*);
    const std::vector<CLink> aLinks[] = { { &CNode::LinkLeft },
                                          { &CNode::LinkRight },
                                          { &CNode::LinkLeft, &CNode::LinkRight } };
    for (const auto& links : aLinks)
    {
        CNodePtr pTop = Text("x");
        const CNode* pDeepest = pTop.get();
        for (int i = 0; i < nLevels; ++i)
        {
            CNodePtr pNode(new CVariableNode);
            pNode->m_strType = NodeTypeName(NTI_VARIABLE);
            pNode->SetSymbol("y");
            (pNode.get()->*links[static_cast<std::size_t>(i) % links.size()])(pTop.release());
            pTop = std::move(pNode);
        }
        pTop->ApplyFormat(&g_DefaultFormat);
        EXPECT_EQ(pTop->FindParentOf(pDeepest), pDeepest->GetParent());
        EXPECT_EQ(pTop->MakeText(0).GetLength(), nLevels + 1);

        CTestDC dc;
        CRect rect(0, 0, 0, 0);
        EXPECT_EQ(pTop->Measure(&dc), CRect(0, 0, 13 * (nLevels + 1), 16));
        pTop->Paint(&dc, rect, nullptr, 0);
        EXPECT_EQ(rect.right, 13 * (nLevels + 1));
        const CPoint point(pDeepest->m_rect.left, 0);
        rect = CRect(0, 0, 0, 0);
        EXPECT_EQ(pTop->HitTest(&dc, rect, point), pDeepest);
    }
}
