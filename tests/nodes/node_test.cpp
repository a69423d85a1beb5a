// Painting with the marks of selection and grey, and trees of any depth.
#include "nodes/node.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "format/tree_format.h"
#include "nodes/node_fixture.h"
#include "nodes/value_nodes.h"

namespace
{
// Notes how its own part is asked to be painted.
class CNotingNode : public CNode
{
public:
    explicit CNotingNode(const char* pszName)
    {
        m_strType = NodeTypeName(NTI_PLUS);
        m_strSymbol = pszName;
    }

    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override
    {
        LOGPEN pen{};
        pDC->GetCurrentPen()->GetLogPen(&pen);
        EXPECT_EQ(rect, m_rect);
        EXPECT_EQ(pen.lopnColor, pDC->GetTextColor());
        s_strNoted += m_strSymbol.GetString() + std::to_string(nFlags);
        const std::tuple<const char*, COLORREF, int> aLooks[] = {
            { "own ", RGB(1, 2, 3), COLOR_WINDOW },
            { "grey ", GetSysColor(COLOR_GRAYTEXT), COLOR_WINDOW },
            { "mark ", GetSysColor(COLOR_HIGHLIGHTTEXT), COLOR_HIGHLIGHT },
        };
        for (const auto& [pszName, text, nGround] : aLooks)
        {
            if (pDC->GetTextColor() == text && pDC->GetBkColor() == GetSysColor(nGround))
                s_strNoted += pszName;
        }
    }

    static inline std::string s_strNoted;
};
}  // namespace

TEST(NodePaint, MarksSelectionAndGrey)
{
    CNotingNode root("r");
    root.SetLeft(new CNotingNode("a"));
    root.SetRight(new CNotingNode("b"));
    root.GetRight()->SetLeft(new CNotingNode("c"));
    for (const char* pszPath : { "", "L", "R", "RL" })
        NodeAt(&root, pszPath)->SetColour(RGB(1, 2, 3));
    const struct
    {
        const char* pszSelected;  // null: nothing
        UINT nFlags;
        const char* pszNoted;
        bool bHidden = false;  // b: it keeps its place, and its children are painted
    } aCases[] = {
        { nullptr, 2, "r0own a0own b0own c0own " }, { "R", 1, "r0own a0own b1mark c0own " },
        { "R", 2, "r0own a0own b2mark c2mark " },   { "R", 6, "r6grey a6grey b6grey c6grey " },
        { "", 2, "r2mark a2mark b2mark c2mark " },  { "R", 0, "r0own a0own b0mark c0own " },
        { nullptr, 0, "r0own a0own c0own ", true },
    };
    CNode* pB = root.GetRight();
    for (const auto& test : aCases)
    {
        CTestDC dc;
        CRect rect(3, 4, 0, 0);
        CNotingNode::s_strNoted.clear();
        pB->SetFlags(test.bHidden ? NF_HIDDEN : 0);
        pB->m_rect = CRect();
        CNode* pSelected = test.pszSelected != nullptr ? NodeAt(&root, test.pszSelected) : nullptr;
        root.Paint(&dc, rect, pSelected, test.nFlags);
        EXPECT_EQ(CNotingNode::s_strNoted, test.pszNoted);
        EXPECT_FALSE(pB->m_rect.IsRectEmpty());
    }
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
        CNodePtr pTop = Sketch("x");
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
