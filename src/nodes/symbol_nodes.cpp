// Single symbols: the two differential operators, the label, and the box of an empty place.
#include "nodes/symbol_nodes.h"

#include "format/tree_format.h"
#include "nodes/draw_scope.h"
#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
constexpr COLORREF s_crPlaceHolder = RGB(0, 0, 128);
}  // namespace

CNablaNode::CNablaNode() : CNode(NTI_NABLA)
{
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(1);
}

void CNablaNode::PaintOwn(CDC* pDC, CRect rect, UINT nFlags)
{
    CNode::PaintOwn(pDC, rect, nFlags);

    const int yShaft = Sum(rect.top, 2);
    const int xTip = Sum(rect.right, -1);
    const int xBack = Sum(rect.right, -3);
    DrawLine(pDC, CPoint(Sum(rect.left, 1), yShaft), CPoint(xTip, yShaft));
    pDC->LineTo(xBack, rect.top);
    pDC->LineTo(xBack, yShaft);
}

CLaplaceNode::CLaplaceNode() : CNode(NTI_LAPLACE)
{
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(1);
}

CLabelNode::CLabelNode() : CNode(NTI_LABEL) {}

CPlaceHolderNode::CPlaceHolderNode() : CNode(NTI_PLACEHOLDER)
{
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(0);
}

CRect CPlaceHolderNode::GetOwnSize(CDC*)
{
    const int nPoints = m_logFont.lfHeight / 10;
    return CRect(0, 0, Sum(nPoints, -2), Sum(nPoints, 2));
}

void CPlaceHolderNode::PaintOwn(CDC* pDC, CRect rect, UINT nFlags)
{
    const COLORREF colour = nFlags != 0 ? GetSysColor(COLOR_HIGHLIGHTTEXT) : s_crPlaceHolder;
    const CPenScope pen(pDC, colour);
    CBrush brush(HS_BDIAGONAL, colour);
    const CSelectScope select(pDC, &brush);
    rect.InflateRect(-1, -1);
    pDC->Rectangle(&rect);
}
