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
    const int nAxisOwn = H(own) / 2;
    const int nAxisRight = AxisOf(m_pRight, right);

    int y = Sum(rect.top, Excess(nAxisRight, nAxisOwn));
    StackDown(own, rect.left, y);
    Place(left, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own));
    CentreHorizontally(left, rect);
    CentreHorizontally(own, rect);
    Place(right, Sum(rect.right, 1), Sum(rect.top, Excess(nAxisOwn, nAxisRight)));
    rect.right = Sum(rect.right, W(right), 1);
    rect.bottom = Sum(rect.top, H(Union(Union(own, right), left)));
    m_nBaseline = Sum(WrapSub(own.top, rect.top), H(own) / 2);
}

CPartialDerivativeNode::CPartialDerivativeNode() : CPartialDerivativeNode(NTI_PARTDERIVE) {}

CPartialDerivativeNode::CPartialDerivativeNode(ENodeType nType) : CNode(nType) {}

CDerivativeNode::CDerivativeNode() : CPartialDerivativeNode(NTI_DERIVE) {}

// own comes as one symbol and leaves as the whole small fraction, with room for the variable.
void CPartialDerivativeNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    const int nBar = Sum(H(own), s_nBarOffset);
    const int nAxisRight = AxisOf(m_pRight, right);

    int x = rect.left;
    Place(own, x, Sum(rect.top, Excess(nAxisRight, nBar)));
    x = Sum(x, W(own), 1, W(left), 1);
    PlaceInRow(right, x, Sum(rect.top, Excess(nBar, nAxisRight)));
    own.right = Sum(own.right, W(left));
    own.bottom = Sum(own.bottom, H(left), 6);
    rect.right = x;
    rect.bottom = Sum(rect.top, H(Union(own, right)));
    Place(left, WrapSub(Sum(own.left, W(own), 1), W(left)), WrapSub(own.bottom, H(left)));
    m_nBaseline = Sum(WrapSub(own.top, rect.top), nBar);
}

void CPartialDerivativeNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    const int nSymbol = H(GetOwnSize(pDC));
    const CFontScope font(pDC, m_logFont);
    pDC->DrawText(m_strSymbol, &rect, SIGN_FORMAT | DT_CENTER);

    const int yBar = Sum(rect.top, nSymbol, s_nBarOffset);
    DrawLine(pDC, CPoint(rect.left, yBar), CPoint(rect.right, yBar));

    rect.top = Sum(rect.top, nSymbol, s_nLowerOffset);
    pDC->DrawText(m_strSymbol, &rect, SIGN_FORMAT | DT_VCENTER);
}
