// Trees are told apart by their words (TreeForm): what is changed and changed back is no change.
#include "document.h"

#include <mivora/nodes/node.h>
#include <mivora/tree/tree_form.h>

#include "stored_formula.h"

namespace
{
CString InWords(const CFormulaOut& formula)
{
    return TreeForm(formula.m_Tree.GetRootNode());
}
}  // namespace

void CEditorDocument::Begin()
{
    m_strFirst = m_strSaved = InWords(m_Formula);
}

std::unique_ptr<CEditorDocument> CEditorDocument::MakeNew()
{
    std::unique_ptr<CEditorDocument> pNew(new CEditorDocument);
    CBinTree& tree = pNew->Tree();
    // The root of a formula is no part of it: keys do not delete it, and it has no sign.
    CNode* pRoot = tree.CreateRootNode("NT_STANDARD");
    CNode* pSlot = tree.CreateNode("NT_PLACEHOLDER");
    pRoot->LinkLeft(pSlot);
    // Its box lies up and left of its place, out of the window: a click would not find it.
    tree.SetSelection(pSlot, PF_NODE);
    pNew->Begin();
    return pNew;
}

std::unique_ptr<CEditorDocument> CEditorDocument::FromFile(const CString& strPath)
{
    std::unique_ptr<CEditorDocument> pNew(new CEditorDocument);
    if (!LoadFormula(pNew->m_Formula, strPath))
        return nullptr;
    pNew->m_strPath = strPath;
    pNew->Begin();
    return pNew;
}

std::unique_ptr<CEditorDocument> CEditorDocument::FromText(const CString& strText,
                                                           const CEditorDocument& old,
                                                           CParseReport& report)
{
    std::unique_ptr<CEditorDocument> pNew(new CEditorDocument);
    if (!FormTreeReporting(pNew->m_Formula, strText, report))
        return nullptr;
    pNew->Begin();
    pNew->m_strPath = old.m_strPath;
    pNew->m_strSaved = old.m_strSaved;
    return pNew;
}

bool CEditorDocument::Save(const CString& strPath)
{
    if (!SaveFormula(m_Formula, strPath))
        return false;
    m_strPath = strPath;
    m_strFirst = m_strSaved = InWords(m_Formula);
    return true;
}

bool CEditorDocument::IsModified() const
{
    return !InWords(m_Formula).IsIdentical(m_strSaved);
}

bool CEditorDocument::IsEdited() const
{
    return !InWords(m_Formula).IsIdentical(m_strFirst);
}
