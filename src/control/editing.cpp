// Replacing nodes, and the control's side of the in-place editor.
#include "control/formula_control.h"
#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "tree/bin_tree.h"

void CFormulaControl::OpenEditor(CNode* pNode, UINT nFirstChar)
{
    pNode->SetFlags(pNode->GetFlags() | NF_HIDDEN);
    m_pInPlaceEdit = m_Window.OpenEditor(FormulaToClient(pNode->m_rect), pNode, nFirstChar);
}

// The checkpoint empties the selection.
void CFormulaControl::OnEndInPlaceEdit()
{
    m_Window.NotifyParent(FCN_CHANGED);
    m_pInPlaceEdit = nullptr;
    if (m_pTree != nullptr)
    {
        m_pTree->SetSelectionMode(PF_NODE);
        m_pTree->CheckPoint();
    }
    m_Window.Invalidate(false);
}

void CFormulaControl::OnDestroy()
{
    if (m_pInPlaceEdit != nullptr)
        m_pInPlaceEdit->EndEdit();
    if (m_pInPlaceEdit == nullptr)
        return;
    // An edit is ending at this moment, and whoever heard of it takes the window away.
    if (CNode* pNode = m_pInPlaceEdit->GetNode())
        pNode->SetFlags(pNode->GetFlags() & ~NF_HIDDEN);
    m_pInPlaceEdit->Abandon();
    m_pInPlaceEdit = nullptr;
}

// An edit whose node is about to go ends first, with its text taken. What is selected stays so.
void CFormulaControl::EndEditorBelow(const CNode* pTop)
{
    if (m_pInPlaceEdit == nullptr || m_pInPlaceEdit->GetNode() == nullptr ||
        !m_pInPlaceEdit->GetNode()->IsWithin(pTop))
        return;
    CNode* pSelected = m_pTree->GetSelection();
    m_pInPlaceEdit->EndEdit();
    if (pSelected == m_pTree->GetRootNode() || m_pTree->FindParent(pSelected) != nullptr)
        m_pTree->SetSelection(pSelected, m_pTree->GetSelectionMode());
}

void CFormulaControl::ForgetBelow(const CNode* pTop)
{
    if (m_pHoverNode != nullptr && m_pHoverNode->IsWithin(pTop))
        m_pHoverNode = nullptr;
}

// Null, and nothing changed, for the root.
CNode* CFormulaControl::ReplaceByPlaceholder(CNode* pNode)
{
    ForgetBelow(pNode);
    return m_pTree->ReplaceByNewNode(pNode, NodeTypeName(NTI_PLACEHOLDER));
}

void CFormulaControl::DeleteSelection()
{
    if (m_bReadOnly || m_pTree == nullptr || m_pTree->GetSelection() == nullptr)
        return;
    EndEditorBelow(m_pTree->GetSelection());
    if (m_pTree->GetSelection() == nullptr)
        return;
    ReplaceByPlaceholder(m_pTree->GetSelection());
    m_pTree->Reformat(nullptr);
    m_Window.Invalidate(true);
}
