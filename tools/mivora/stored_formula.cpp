#include "stored_formula.h"

#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "report.h"
#include "system_calls.h"

namespace
{
// Keeps why it failed instead of showing it, and reads an empty tree together with the three bytes
// that the tree itself leaves in front of the format table.
class CStoredDoc : public CFormulaDoc
{
public:
    explicit CStoredDoc(CFormulaOut& formula)
    {
        m_pTree = &formula.m_Tree;
        m_pFormat = &formula.m_Format;
        m_strFormula = formula.m_strFormula;
    }

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring())
        {
            CFormulaDoc::Serialize(ar);
            return;
        }
        ar >> m_strFormula;
        m_pTree->Serialize(ar);
        if (m_pTree->GetRootNode() == nullptr)
        {
            BYTE aRestOfMark[3];
            ar.EnsureRead(aRestOfMark, sizeof aRestOfMark);
        }
        m_pFormat->Serialize(ar);
    }

    void ReportSaveLoadException(LPCSTR pszPathName, CException* pException, BOOL bSaving) override
    {
        const auto* pFile = dynamic_cast<const CFileException*>(pException);
        char szText[4200] = "";
        if (pFile != nullptr && pFile->m_lOsError > 0)
        {
            m_strReason = std::string(bSaving ? "cannot write " : "cannot open ") + pszPathName +
                          ": " + SystemErrorText(pFile->m_lOsError);
        }
        else if (pException->GetErrorMessage(szText, sizeof szText))
        {
            m_strReason = std::string(pszPathName) + ": " + szText;
        }
    }

    const std::string& Reason() const { return m_strReason; }

private:
    std::string m_strReason;
};
}  // namespace

void SaveStored(CFormulaOut& formula, const std::string& strPath, const CPictureOptions&)
{
    CStoredDoc doc(formula);
    if (!doc.DoSave(strPath.c_str()))
        throw CFailure{ doc.Reason() };
}

void LoadStored(CFormulaOut& formula, const std::string& strPath)
{
    formula.ResetTree();
    CStoredDoc doc(formula);
    if (!doc.OnOpenDocument(strPath.c_str()))
        throw CFailure{ doc.Reason() };
    formula.m_strFormula = doc.m_strFormula;
}
