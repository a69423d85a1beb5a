// Roots: a radical sign that grows with its radicand, and the line over it.
#include "nodes/root_nodes.h"

#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
// Of a sign of this height.
int RadicalWidth(int nHeight)
{
    return TruncToInt(nHeight * 2.0 / 7.0) + 5;
}

// Tenths of a point: the sign fills 27/20 of the height that the font is asked for.
int RadicalFontHeight(int nHeight)
{
    return TruncToInt(WrapSub(nHeight, 2) * 200.0 / 27.0);
}
}  // namespace

CNthRootNode::CNthRootNode() : CNthRootNode(NTI_NTHROOT) {}

CNthRootNode::CNthRootNode(ENodeType nType) : CNode(nType) {}

CSquareRootNode::CSquareRootNode() : CNthRootNode(NTI_ROOT) {}

void CNthRootNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int x = rect.left;
    right.OffsetRect(x, rect.top);
    x = Sum(x, right.Width());
    own.OffsetRect(x, rect.top);
    x = Sum(x, RadicalWidth(left.Height()), 1);
    PlaceInRow(left, x, Sum(rect.top, 2));
    rect.right = x;
    rect.bottom = Sum(rect.top, HighestOf(left, own, right), 2);
    own.right = rect.right;  // carries the line over the radicand
    own.bottom = rect.bottom;
    m_nBaseline = own.Height() / 2;
}

void CNthRootNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    const int nWidth = RadicalWidth(rect.Height());
    const LONG nHeight = m_logFont.lfHeight;
    m_logFont.lfHeight = RadicalFontHeight(rect.Height());
    m_logFont.lfWidth = nWidth;  // stays, unlike the height
    DrawSign(pDC, rect, SIGN_FORMAT | DT_VCENTER);
    m_logFont.lfHeight = nHeight;

    const int xLine = Sum(rect.left, static_cast<int>(nWidth * 9LL / 10));
    DrawLine(pDC, CPoint(xLine, rect.top), CPoint(rect.right, rect.top));
}
