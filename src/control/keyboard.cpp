// The keys: those that walk the selection and reach the clipboard, and those that type into a node.
#include "control/formula_control.h"

#include <algorithm>
#include <iterator>

#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "tree/bin_tree.h"

namespace
{

// Letters and digits, by key code: the number pad and the function keys pass as small letters.
bool IsAlphanumeric(UINT nChar)
{
    return (nChar >= '0' && nChar <= '9') || (nChar >= 'A' && nChar <= 'Z') ||
           (nChar >= 'a' && nChar <= 'z');
}

}  // namespace

struct CFormulaControl::CControlKey
{
    UINT nChar;
    void (CFormulaControl::*pfnRun)();
};

struct CFormulaControl::CSelectionKey
{
    UINT nChar;
    bool bShift;  // Shift must be down; it makes no difference to the others
    void (CFormulaControl::*pfnRun)();
};

// A read-only control leaves out the first stage, but not the typing.
void CFormulaControl::OnKeyDown(const CKey& key)
{
    if (!m_bReadOnly && OnEditingKey(key))
        return;
    m_Window.Default();
    if (IsAlphanumeric(key.nChar) && m_pTree != nullptr)
        OnTypedKey(key.nChar);
}

// True: the key goes no further, as every key does that comes with Control.
bool CFormulaControl::OnEditingKey(const CKey& key)
{
    static constexpr CControlKey s_aControlKeys[] = {
        { VK_INSERT, &CFormulaControl::Copy }, { 'C', &CFormulaControl::Copy },
        { 'X', &CFormulaControl::Cut },        { 'V', &CFormulaControl::Paste },
        { 'A', &CFormulaControl::SelectAll },
    };
    if (!key.bControl)
    {
        OnSelectionKey(key);
        return false;
    }
    const auto* pKey = std::ranges::find(s_aControlKeys, key.nChar, &CControlKey::nChar);
    if (pKey != std::end(s_aControlKeys))
        (this->*pKey->pfnRun)();
    return true;
}

void CFormulaControl::OnSelectionKey(const CKey& key)
{
    static constexpr CSelectionKey s_aSelectionKeys[] = {
        { VK_INSERT, true, &CFormulaControl::Paste },
        { VK_RIGHT, false, &CFormulaControl::SelectRight },
        { VK_LEFT, false, &CFormulaControl::SelectLeft },
        { VK_UP, false, &CFormulaControl::SelectParent },
        { VK_DELETE, false, &CFormulaControl::DeleteByKey },
        { VK_SPACE, false, &CFormulaControl::ToggleMode },
    };
    const auto* pKey = std::ranges::find(s_aSelectionKeys, key.nChar, &CSelectionKey::nChar);
    if (pKey == std::end(s_aSelectionKeys) || (pKey->bShift && !key.bShift))
        return;
    if (m_pTree != nullptr && m_pTree->GetSelection() != nullptr)
        (this->*pKey->pfnRun)();
}

// The walk follows the links of the tree, not the picture, and keeps the mode.
void CFormulaControl::Select(CNode* pNode)
{
    if (pNode == nullptr)
        return;
    m_pTree->SetSelection(pNode, m_pTree->GetSelectionMode());
    m_Window.Invalidate(true);
}

void CFormulaControl::SelectRight()
{
    Select(m_pTree->GetSelection()->GetRight());
}

void CFormulaControl::SelectLeft()
{
    Select(m_pTree->GetSelection()->GetLeft());
}

void CFormulaControl::SelectParent()
{
    Select(m_pTree->FindParent(m_pTree->GetSelection()));
}

void CFormulaControl::ToggleMode()
{
    m_pTree->SetSelectionMode(m_pTree->GetSelectionMode() % 2 + 1);
    m_Window.Invalidate(true);
}

// Unlike DeleteSelection: nothing is formatted anew, and the parent hears of it.
void CFormulaControl::DeleteByKey()
{
    CNode* pNode = m_pTree->GetSelection();
    const bool bWhole = m_pTree->GetSelectionMode() == PF_SUBTREE || pNode->IsLeaf();
    if (pNode == m_pTree->GetRootNode() || !bWhole || (pNode->GetFlags() & NF_REPLACEABLE) == 0)
        return;
    ReplaceByPlaceholder(pNode);
    m_Window.NotifyParent(FCN_CHANGED);
    m_Window.Invalidate(true);
}

// A letter or digit on a placeholder makes it a variable; on a node with a text it opens the
// editor. What is typed is the code of the key: letters are capitals.
void CFormulaControl::OnTypedKey(UINT nChar)
{
    CNode* pNode = m_pTree->GetSelection();
    if (pNode == nullptr)
        return;
    if (IsDropTarget(pNode))
    {
        pNode = m_pTree->ChangeNodeType(pNode, NodeTypeName(NTI_VARIABLE));
        m_pTree->Reformat(nullptr);
        m_Window.PaintNow();  // the new node gets its place
    }
    if ((pNode->GetFlags() & NF_TEXTEDIT) != 0)
        OpenEditor(pNode, nChar);
}
