// How a subtree is painted: the one routine around the own part of each class, and the marks of
// selection and grey.
#include "nodes/draw_scope.h"
#include "nodes/layout_pass.h"
#include "nodes/node.h"
#include "nodes/sign_drawing.h"
#include "platform/base/deep_call.h"

void CNode::Paint(CDC* pDC, CRect& rect, CNode* pSelected, UINT nFlags)
{
    const CLayoutPass pass(pDC);
    Descend(
        [&]
        {
            CParts parts = MeasureParts(pDC);
            Arrange(rect, parts.left, parts.right, parts.own);
            m_rect = parts.own;
            if ((m_nFlags & NF_HIDDEN) == 0)
                PaintPart(pDC, parts.own, this == pSelected, nFlags);
            // The children paint over this node's fill. A selected parent hands its selection on
            // by naming each child as the selected node.
            const bool bSpread = this == pSelected && (nFlags & PF_SUBTREE) != 0;
            if (m_pLeft != nullptr)
                m_pLeft->Paint(pDC, parts.left, bSpread ? m_pLeft : pSelected, nFlags);
            if (m_pRight != nullptr)
                m_pRight->Paint(pDC, parts.right, bSpread ? m_pRight : pSelected, nFlags);
        });
}

// Fills the own area, also of a node that is not marked: it wipes what was there before, unless the
// host wants to keep that.
void CNode::PaintPart(CDC* pDC, const CRect& own, bool bSelected, UINT nFlags)
{
    const bool bGrayed = (nFlags & PF_GRAYED) != 0;
    const bool bMarked = bSelected && !bGrayed;
    const COLORREF back = GetSysColor(bMarked ? COLOR_HIGHLIGHT : COLOR_WINDOW);
    const COLORREF fore = bGrayed     ? GetSysColor(COLOR_GRAYTEXT)
                          : bSelected ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                      : m_colour;
    if (bMarked || (nFlags & PF_NO_FILL) == 0)
        pDC->FillSolidRect(own, back);
    pDC->SetTextColor(fore);
    pDC->SetBkColor(back);
    const CPenScope pen(pDC, fore);
    PaintOwn(pDC, own, bGrayed || bSelected ? nFlags : 0);
}

void CNode::PaintOwn(CDC* pDC, CRect rect, UINT /*nFlags*/)
{
    DrawSign(pDC, rect, SIGN_FORMAT | DT_CENTER | DT_VCENTER);
}

void CNode::DrawSign(CDC* pDC, const CRect& rect, UINT nFormat)
{
    const CFontScope font(pDC, m_logFont);
    CRect place(rect);
    pDC->DrawText(m_strSymbol, place, nFormat);
}
