// The left mouse button and the mouse's movement: hover, selection, the second click that opens the
// editor, the move that starts a drag.
#include "control/formula_control.h"
#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "platform/gdi/dc.h"
#include "tree/bin_tree.h"

// What all gestures begin with. False: the gesture ends here.
bool CFormulaControl::BeginGesture(CPoint& point)
{
    m_Window.Default();
    if (m_bReadOnly || m_pTree == nullptr)
        return false;
    ClientToFormula(point);
    return true;
}

// The deepest node at a point in formula coordinates, the root for a point off all nodes.
CNode* CFormulaControl::HitTest(CDC* pDC, CPoint point)
{
    CRect rect;
    return m_pTree->HitTestNode(pDC, &rect, point);
}

// Null where a host has deleted the node since it was hovered.
CNode* CFormulaControl::GetHoverNode()
{
    if (m_pHoverNode != nullptr && m_pHoverNode != m_pTree->GetRootNode() &&
        m_pTree->FindParent(m_pHoverNode) == nullptr)
        m_pHoverNode = nullptr;
    return m_pHoverNode;
}

// Takes the frame from one node to another; either may be null.
void CFormulaControl::MoveHover(CDC* pDC, CNode* pNode)
{
    if (const CNode* pOld = GetHoverNode())
        m_Window.DrawFocusRect(pDC, FormulaToClient(pOld->m_rect));
    if (pNode != nullptr)
        m_Window.DrawFocusRect(pDC, FormulaToClient(pNode->m_rect));
    m_pHoverNode = pNode;
}

// A drag starts with the first move onto another node: no distance, no time.
void CFormulaControl::OnMouseMove(UINT nFlags, CPoint point)
{
    if (!BeginGesture(point) || m_pInPlaceEdit != nullptr)
        return;
    {
        const std::unique_ptr<CDC> pDC = m_Window.GetClientDC();
        CNode* pNode = HitTest(pDC.get(), point);
        if (pNode == m_pHoverNode)
            return;
        MoveHover(pDC.get(), pNode);
    }
    if ((nFlags & MK_LBUTTON) != 0 && m_bCanDrag)
        BeginDrag();
}

// A press on a draggable selection leaves it as it is, so that it can be dragged.
void CFormulaControl::OnLButtonDown(CPoint point)
{
    if (!BeginGesture(point))
        return;
    m_Window.SetFocus();
    CNode* pNode = HitTest(m_Window.GetClientDC().get(), point);
    if (pNode == nullptr)
        return;
    const bool bSelected = pNode == m_pTree->GetSelection();
    if (bSelected)
        m_bClickedSelected = TRUE;
    if (bSelected && m_bCanDrag)
        return;
    m_pTree->SetSelection(pNode, PF_NODE);
    m_bCanDrag = pNode->IsLeaf();
    m_Window.Invalidate(false);
}

// m_bClickedSelected outlives a release that opens nothing: a press on a selected node that cannot
// be edited makes the next click on another one open the editor at once.
void CFormulaControl::OnLButtonUp(CPoint point)
{
    if (!BeginGesture(point))
        return;
    m_Window.SetFocus();
    CNode* pNode = HitTest(m_Window.GetClientDC().get(), point);
    if (pNode == nullptr)
        return;
    if (pNode == m_pTree->GetSelection() && (pNode->GetFlags() & NF_TEXTEDIT) != 0 &&
        m_bClickedSelected)
    {
        OpenEditor(pNode, EDIT_SELECT_ALL);
        m_bClickedSelected = FALSE;
    }
    m_Window.Invalidate(false);
}

void CFormulaControl::OnLButtonDblClk(CPoint point)
{
    if (!BeginGesture(point))
        return;
    m_Window.SetFocus();
    m_pTree->SetSelection(HitTest(m_Window.GetClientDC().get(), point), PF_SUBTREE);
    m_bCanDrag = TRUE;
    m_Window.Invalidate(false);
}

void CFormulaControl::SelectAll()
{
    if (m_pTree == nullptr || m_pTree->GetRootNode() == nullptr)
        return;
    m_pTree->SetSelection(m_pTree->GetRootNode(), PF_SUBTREE);
    m_Window.Invalidate(true);
}
