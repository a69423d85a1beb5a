// The limits of a big operator.
#pragma once

#include "nodes/node.h"

// Upper limit left, lower limit right, with a gap between them into which the parent drops its
// sign. The node draws nothing itself and cannot be hit.
class CRangeNode : public CNode
{
public:
    // pParent is the operator whose sign the gap is for, null for none.
    explicit CRangeNode(CNode* pParent);

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    // The size of the parent's sign; of the nearest one above a chain of ranges.
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
    // The lower limit goes first. Null if the point is in neither limit: the operator above then
    // looks at its own sign and at its right child.
    CNode* HitTest(CDC* pDC, CRect& rect, CPoint point) override;

private:
    // The nearest node above that is no range, or null.
    CNode* FindSignOwner();

    ULONGLONG m_nOwnerPass = 0;     // pass in which the next was found; 0 never
    CNode* m_pSignOwner = nullptr;  // not owned
};
