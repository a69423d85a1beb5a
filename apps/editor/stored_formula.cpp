// The work is a document's, which is lent the formula for one call.
#include "stored_formula.h"

#include <mivora/service/formula_doc.h>

#include "messages.h"

namespace
{
// A document is lent what it stores, and where it loads to.
class CLentDoc : public CFormulaDoc
{
public:
    explicit CLentDoc(CFormulaOut& formula)
    {
        m_pTree = &formula.m_Tree;
        m_pFormat = formula.GetTreeFormatPtr();
        m_strFormula = formula.m_strFormula;
    }

    // The base's message would show a path in the system's code page.
    void ReportSaveLoadException(LPCSTR pszPath, CException* pException, BOOL bSaving) override
    {
        char szReason[256] = "";
        pException->GetErrorMessage(szReason, sizeof szReason);
        CString strMessage;
        strMessage.Format("Cannot %s %s.\n%s", bSaving ? "save" : "open", pszPath, szReason);
        ShowMessage(strMessage);
    }
};
}  // namespace

bool SaveFormula(CFormulaOut& formula, const CString& strPath)
{
    const CUnselected unselected(formula.m_Tree);
    CLentDoc doc(formula);
    return doc.DoSave(strPath) != 0;
}

bool LoadFormula(CFormulaOut& formula, const CString& strPath)
{
    CLentDoc doc(formula);
    if (!doc.OnOpenDocument(strPath))
        return false;
    formula.m_strFormula = doc.m_strFormula;
    return true;
}

CUnselected::CUnselected(CBinTree& tree)
    : m_tree(tree), m_pSelected(tree.GetSelection()), m_nMode(tree.GetSelectionMode())
{
    m_tree.SetSelection(nullptr, m_nMode);
}

CUnselected::~CUnselected()
{
    m_tree.SetSelection(m_pSelected, m_nMode);
}
