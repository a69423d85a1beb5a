// How the base class measures, places and hits: left child, own sign and right child in a row.
#include <algorithm>

#include "nodes/draw_scope.h"
#include "nodes/layout_pass.h"
#include "nodes/moves.h"
#include "nodes/node.h"
#include "platform/base/deep_call.h"

CRect CNode::Measure(CDC* pDC)
{
    const CLayoutPass pass(pDC);
    if (IsMeasured(pDC))
    {
        m_nBaseline = m_measured.nBaseline;
        return CRect(CPoint(0, 0), m_measured.size);
    }
    return Descend(
        [&]
        {
            CParts parts = MeasureParts(pDC);
            m_measured.own = CSize(parts.own.right, parts.own.bottom);
            CRect rect(0, 0, 0, 0);
            Arrange(rect, parts.left, parts.right, parts.own);
            m_measured.size = CSize(rect.right, rect.bottom);
            m_measured.nBaseline = m_nBaseline;
            m_measured.nPass = CLayoutPass::GetCurrent();
            return rect;
        });
}

// A node's measure depends on what is below it, and nothing below is painted before the last of
// its ancestors has asked. Only a range asks upwards: the sign above it is painted before it is
// asked itself, and painting can change that sign's font.
bool CNode::IsMeasured(CDC* pDC)
{
    return m_measured.nPass == CLayoutPass::GetCurrent() && !CLayoutPass::s_bPlainRecursion &&
           (!m_measured.bOwnBorrowed || GetOwnSize(pDC) == CRect(CPoint(0, 0), m_measured.own));
}

// The order matters: the own size of a range asks the node above.
CNode::CParts CNode::MeasureParts(CDC* pDC)
{
    CParts parts;
    if (m_pLeft != nullptr)
        parts.left = m_pLeft->Measure(pDC);
    parts.own = GetOwnSize(pDC);
    if (m_pRight != nullptr)
        parts.right = m_pRight->Measure(pDC);
    return parts;
}

void CNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    // Axis of each part; a part without height follows the own sign.
    const int nOwnAxis = own.Height() / 2;
    const int nLeftAxis =
        left.Height() != 0 && m_pLeft != nullptr ? m_pLeft->m_nBaseline : nOwnAxis;
    const int nRightAxis =
        right.Height() != 0 && m_pRight != nullptr ? m_pRight->m_nBaseline : nOwnAxis;
    const int nAxis = std::max({ nOwnAxis, nLeftAxis, nRightAxis });

    int x = rect.left;
    const int y = WrapAdd(rect.top, nAxis);
    PlaceInRow(left, x, WrapSub(y, nLeftAxis));
    PlaceInRow(own, x, WrapSub(y, nOwnAxis));
    PlaceInRow(right, x, WrapSub(y, nRightAxis));
    rect.right = x;
    rect.bottom =
        WrapAdd(y, std::max({ WrapSub(left.Height(), nLeftAxis), WrapSub(own.Height(), nOwnAxis),
                              WrapSub(right.Height(), nRightAxis) }));
    m_nBaseline = nAxis;
}

CRect CNode::GetOwnSize(CDC* pDC)
{
    const CSize size = MeasureSign(pDC);
    return CRect(0, 0, WrapAdd(size.cx, g_nOwnGap), size.cy);
}

CSize CNode::MeasureSign(CDC* pDC)
{
    m_measured.sign = pDC->GetPointFontExtent(m_logFont, m_strSymbol);
    return m_measured.sign;
}

CNode* CNode::HitTest(CDC* pDC, CRect& rect, CPoint point)
{
    const CLayoutPass pass(pDC);
    return Descend(
        [&]() -> CNode*
        {
            CParts parts = MeasureParts(pDC);
            Arrange(rect, parts.left, parts.right, parts.own);
            if (m_pLeft != nullptr && parts.left.PtInRect(point))
            {
                CNode* pFound = m_pLeft->HitTest(pDC, parts.left, point);
                rect = parts.left;
                if (pFound != nullptr)
                    return pFound;
            }
            if (m_pRight != nullptr && parts.right.PtInRect(point))
            {
                CNode* pFound = m_pRight->HitTest(pDC, parts.right, point);
                rect = parts.right;
                if (pFound != nullptr)
                    return pFound;
            }
            if (parts.own.PtInRect(point))
                rect = parts.own;
            return this;
        });
}
