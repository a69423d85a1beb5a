// Arrangements of two parts without a sign.
#include "nodes/structure_nodes.h"

#include "nodes/moves.h"

CBinomialNode::CBinomialNode() : CNode(NTI_BINOMIAL) {}

void CBinomialNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int y = rect.top;
    StackDown(left, rect.left, y);
    StackDown(own, rect.left, y);  // keeps a row of the font's height free
    StackDown(right, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, right));
    rect.bottom = y;
    own.SetRectEmpty();
    CentreHorizontally(left, rect);
    CentreHorizontally(right, rect);
}

void CBinomialNode::PaintOwn(CDC*, CRect, UINT) {}

CMatrixNode::CMatrixNode() : CNode(NTI_MATRIX) {}

void CMatrixNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int y = rect.top;
    StackDown(left, rect.left, y);
    StackDown(right, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own, right));
    rect.bottom = y;
    own.SetRectEmpty();
    CentreHorizontally(left, rect);
    CentreHorizontally(right, rect);
}

CRect CMatrixNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, 0);
}

void CMatrixNode::PaintOwn(CDC*, CRect, UINT) {}

CLineNode::CLineNode() : CNode(NTI_LINE) {}

// The left child holds the lines before this one and stands below it.
void CLineNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    right.OffsetRect(rect.left, rect.top);
    left.OffsetRect(rect.left, Sum(rect.top, right.Height()));
    rect.right = Sum(rect.left, WidestOf(left, own, right));
    rect.bottom = Sum(rect.top, right.Height(), left.Height());
    CentreHorizontally(left, rect);
    CentreHorizontally(right, rect);
}

CRect CLineNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, 0);
}

void CLineNode::PaintOwn(CDC*, CRect, UINT) {}

CElementNode::CElementNode() : CNode(NTI_ELEMENT) {}

void CElementNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int x = rect.left;
    PlaceInRow(left, x, rect.top);
    PlaceInRow(own, x, rect.top);
    right.OffsetRect(x, rect.top);
    rect.right = Sum(x, right.Width());
    rect.bottom = Sum(rect.top, HighestOf(left, own, right));
    CentreVertically(left, rect);
    CentreVertically(own, rect);
    CentreVertically(right, rect);
    m_nBaseline = Sum(own.top, own.Height() / 2);  // a distance while rect.top is 0, as in Measure
    own.SetRectEmpty();
}

CRect CElementNode::GetOwnSize(CDC*)
{
    return CRect(0, 0, 0, 0);
}

void CElementNode::PaintOwn(CDC*, CRect, UINT) {}
