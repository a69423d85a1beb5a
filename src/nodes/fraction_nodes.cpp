// Division: a fraction with a bar, or with a slash.
#include "nodes/fraction_nodes.h"

#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
enum EDivisionKind
{
    DIV_BAR = 0,
    DIV_SLASH = 1
};

constexpr int s_nBarStrip = 5;   // height of the strip that holds the bar
constexpr int s_nBarOffset = 2;  // from the top of the strip to the bar
constexpr int s_nOverhang = 4;   // of the bar over the wider part, both sides together

void ArrangeAroundBar(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int y = rect.top;
    StackDown(left, rect.left, y);
    StackDown(own, rect.left, y);
    StackDown(right, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own, right), s_nOverhang);
    rect.bottom = y;
    own.right = Sum(own.right, rect.Width());
    CentreHorizontally(left, rect);
    CentreHorizontally(right, rect);
}

// The slash leans by a quarter of its height, and the denominator makes room for it.
void SpreadSlash(CRect& rect, CRect& right, CRect& own)
{
    own.top = rect.top;
    own.bottom = rect.bottom;
    own.right = Sum(own.left, own.Height() / 4);
    right.OffsetRect(own.Width(), 0);
    rect.right = Sum(rect.right, own.Width());
}
}  // namespace

CDivisionNode::CDivisionNode() : COpNode(NTI_DIVISION) {}

void CDivisionNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    if (m_nKind == DIV_BAR)
    {
        ArrangeAroundBar(rect, left, right, own);
        m_nBaseline = Sum(WrapSub(own.top, rect.top), s_nBarOffset);
    }
    else if (m_nKind == DIV_SLASH)
    {
        CNode::Arrange(rect, left, right, own);
        SpreadSlash(rect, right, own);
    }
}

CRect CDivisionNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, m_nKind == DIV_BAR ? s_nBarStrip : 0);
}

void CDivisionNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    if (m_nKind == DIV_BAR)
    {
        const int y = Sum(rect.top, s_nBarOffset);
        DrawLine(pDC, CPoint(rect.left, y), CPoint(rect.right, y));
    }
    else if (m_nKind == DIV_SLASH)
    {
        DrawLine(pDC, CPoint(rect.right, rect.top), CPoint(rect.left, rect.bottom));
    }
}
