// Stored formulas read from files and written to them.
#include "stored/stored_formula.h"

#include "facade/stored_bytes.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "report.h"
#include "system/system_calls.h"

namespace
{
// Keeps why it failed instead of showing it.
class CStoredDoc : public CStoredFormulaDoc
{
public:
    using CStoredFormulaDoc::CStoredFormulaDoc;

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
            m_bRead = pFile == nullptr;
        }
    }

    const std::string& Reason() const { return m_strReason; }
    bool IsRead() const { return m_bRead; }

private:
    std::string m_strReason;
    bool m_bRead = false;  // the file could be read, whatever is in it
};

// What a file is that can be read and is not of this kind; empty for a stored formula, if damaged.
std::string OtherKind(const std::string& strPath)
{
    constexpr std::string_view strCompound = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    constexpr size_t nSignature = 40;  // of a metafile: where it stands
    char achHead[nSignature + 4];
    CFile file(strPath.c_str(), CFile::modeRead | CFile::shareDenyNone);
    const std::string_view head(achHead, file.Read(achHead, sizeof achHead));
    if (head.starts_with(strCompound))
        return {};
    if (head.size() == sizeof achHead && head.substr(nSignature) == " EMF")
        return " is a metafile, not a stored formula (.fml)";
    return " is no stored formula (.fml)";
}
}  // namespace

void SaveStored(CFormulaOut& formula, const std::string& strPath)
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
    {
        const std::string strKind = doc.IsRead() ? OtherKind(strPath) : std::string();
        throw CFailure{ strKind.empty() ? doc.Reason() : strPath + strKind };
    }
    formula.m_strFormula = doc.m_strFormula;
}
