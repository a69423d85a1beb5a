// Limits and derivatives.
#include "nodes/limit_nodes.h"

#include "nodes/draw_scope.h"
#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
constexpr int s_nBarOffset = 2;    // from the upper symbol of a derivative to its bar
constexpr int s_nLowerOffset = 5;  // from the upper symbol to the space of the lower one
}  // namespace

CLimesNode::CLimesNode() : CNode(NTI_LIMES) {}

void CLimesNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    const int nAxisOwn = own.Height() / 2;
    const int nAxisRight = AxisOf(m_pRight, right);

    int y = Sum(rect.top, Excess(nAxisRight, nAxisOwn));
    StackDown(own, rect.left, y);
    left.OffsetRect(rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own));
    CentreHorizontally(left, rect);
    CentreHorizontally(own, rect);
    right.OffsetRect(Sum(rect.right, 1), Sum(rect.top, Excess(nAxisOwn, nAxisRight)));
    rect.right = Sum(rect.right, right.Width(), 1);
    rect.bottom = Sum(rect.top, (own | right | left).Height());
    m_nBaseline = Sum(WrapSub(own.top, rect.top), own.Height() / 2);
}

CPartialDerivativeNode::CPartialDerivativeNode() : CPartialDerivativeNode(NTI_PARTDERIVE) {}

CPartialDerivativeNode::CPartialDerivativeNode(ENodeType nType) : CNode(nType) {}

CDerivativeNode::CDerivativeNode() : CPartialDerivativeNode(NTI_DERIVE) {}

// own comes as one symbol and leaves as the whole small fraction, with room for the variable.
void CPartialDerivativeNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    const int nBar = Sum(own.Height(), s_nBarOffset);
    const int nAxisRight = AxisOf(m_pRight, right);

    int x = rect.left;
    own.OffsetRect(x, Sum(rect.top, Excess(nAxisRight, nBar)));
    x = Sum(x, own.Width(), 1, left.Width(), 1);
    PlaceInRow(right, x, Sum(rect.top, Excess(nBar, nAxisRight)));
    own.right = Sum(own.right, left.Width());
    own.bottom = Sum(own.bottom, left.Height(), 6);
    rect.right = x;
    rect.bottom = Sum(rect.top, (own | right).Height());
    left.OffsetRect(WrapSub(Sum(own.left, own.Width(), 1), left.Width()),
                    WrapSub(own.bottom, left.Height()));
    m_nBaseline = Sum(WrapSub(own.top, rect.top), nBar);
}

void CPartialDerivativeNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    const int nSymbol = GetOwnSize(pDC).Height();
    const CFontScope font(pDC, m_logFont);
    pDC->DrawText(m_strSymbol, &rect, SIGN_FORMAT | DT_CENTER);

    const int yBar = Sum(rect.top, nSymbol, s_nBarOffset);
    DrawLine(pDC, CPoint(rect.left, yBar), CPoint(rect.right, yBar));

    rect.top = Sum(rect.top, nSymbol, s_nLowerOffset);
    pDC->DrawText(m_strSymbol, &rect, SIGN_FORMAT | DT_VCENTER);
}
