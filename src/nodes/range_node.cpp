// The limits of a big operator.
#include "nodes/range_node.h"

#include "nodes/layout_pass.h"
#include "nodes/moves.h"
#include "platform/base/deep_call.h"

CRangeNode::CRangeNode(CNode* pParent) : CNode(NTI_RANGE)
{
    m_pParent = pParent;
    m_strType = NodeTypeName(NTI_RANGE);  // one that an operator makes never sees the factory
    BorrowOwnSize();
}

void CRangeNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    int y = rect.top;
    StackDown(left, rect.left, y);
    m_nBaseline = y;  // where the gap begins: a distance while rect.top is 0, as in Measure
    StackDown(own, rect.left, y);
    StackDown(right, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own, right));
    rect.bottom = y;
    own.SetRectEmpty();
    CentreHorizontally(left, rect);
    CentreHorizontally(right, rect);
}

CRect CRangeNode::GetOwnSize(CDC* pDC)
{
    CNode* pOwner = FindSignOwner();
    return pOwner != nullptr ? pOwner->GetOwnSize(pDC) : CRect(0, 0, 0, 0);
}

// Ranges can hang in chains as long as the formula: each remembers, within a pass, where the walk
// ended.
CNode* CRangeNode::FindSignOwner()
{
    const auto asRange = [](CNode* p)
    {
        return p != nullptr && p->BorrowsOwnSize() ? static_cast<CRangeNode*>(p) : nullptr;
    };
    const ULONGLONG nPass = CLayoutPass::GetCurrent();
    CNode* pOwner = this;
    while (CRangeNode* pRange = asRange(pOwner))
    {
        if (nPass != 0 && pRange->m_nOwnerPass == nPass)
        {
            pOwner = pRange->m_pSignOwner;
            break;
        }
        pOwner = pRange->m_pParent;
    }
    for (CRangeNode* p = this; p != nullptr && p->m_nOwnerPass != nPass; p = asRange(p->m_pParent))
    {
        p->m_nOwnerPass = nPass;
        p->m_pSignOwner = pOwner;
    }
    return pOwner;
}

void CRangeNode::PaintOwn(CDC*, CRect, UINT) {}

CNode* CRangeNode::HitTest(CDC* pDC, CRect& rect, CPoint point)
{
    const CLayoutPass pass(pDC);
    return Descend(
        [&]() -> CNode*
        {
            CParts parts = MeasureParts(pDC);
            Arrange(rect, parts.left, parts.right, parts.own);

            CNode* pHit = nullptr;
            if (m_pRight != nullptr && parts.right.PtInRect(point))
            {
                pHit = m_pRight->HitTest(pDC, parts.right, point);
                rect = parts.right;
            }
            else if (m_pLeft != nullptr && parts.left.PtInRect(point))
            {
                pHit = m_pLeft->HitTest(pDC, parts.left, point);
                rect = parts.left;
            }
            return pHit;
        });
}
