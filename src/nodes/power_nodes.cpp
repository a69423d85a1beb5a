// Powers and indices: small parts set up and down beside another.
#include "nodes/power_nodes.h"

#include "nodes/moves.h"

CPowerToNode::CPowerToNode() : CNode(NTI_POWERTO) {}

void CPowerToNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    constexpr int nOverlap = 2;  // of the exponent over the base, sideways
    constexpr int nDrop = 8;     // of the exponent below the top

    int x = rect.left;
    right.OffsetRect(-nOverlap, nDrop);
    left.OffsetRect(x, rect.top);
    x = Sum(x, left.Width());
    PlaceInRow(right, x, rect.top);
    left.OffsetRect(0, right.Height());
    own = right | left;
    rect.right = x;
    rect.bottom = Sum(rect.top, left.Height(), right.Height());
    m_nBaseline = Sum(WrapSub(left.top, rect.top), left.Height() / 2);  // not the base's own axis
}

CRect CPowerToNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, 0);
}

void CPowerToNode::PaintOwn(CDC*, CRect, UINT) {}

CIndexNode::CIndexNode(CNode* pParent) : CNode(NTI_INDEX)
{
    m_pParent = pParent;
}

void CIndexNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int y = rect.top;
    StackDown(left, rect.left, y);
    StackDown(right, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, right));
    rect.bottom = y;
    own.SetRectEmpty();
    m_nBaseline = Sum(left.Height(), 2);  // the symbol's axis goes just below the upper index
}

CRect CIndexNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, 0);
}

void CIndexNode::PaintOwn(CDC*, CRect, UINT) {}
