#include "platform/doc/ole_document.h"

#include "platform/base/app.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/doc/compound_file.h"

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)
IMPLEMENT_DYNAMIC(COleDocument, CDocument)

namespace
{
constexpr char s_szContents[] = "Contents";
constexpr UINT s_nGrowBytes = 32768;

void StoreDocument(CDocument& document, CFile& file)
{
    CArchive ar(&file, CArchive::store);
    ar.m_pDocument = &document;
    document.Serialize(ar);
    ar.Close();
}

// Runs a save. A failure is told in a message box: what could not be saved, and why.
template <class Save>
BOOL SaveOrTell(LPCTSTR pszPathName, Save save)
{
    try
    {
        save();
        return TRUE;
    }
    catch (CException* pException)
    {
        char szReason[256] = "";
        pException->GetErrorMessage(szReason, sizeof szReason);
        pException->Delete();
        CString strMessage;
        strMessage.Format("Failed to save document %s. %s", pszPathName, szReason);
        AfxMessageBox(strMessage, MB_ICONEXCLAMATION);
    }
    return FALSE;
}

// Hands an open file to the writer; only a writer that comes back puts it in the target's place.
template <class Write>
void WriteWhole(LPCTSTR pszPathName, Write write)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(pszPathName, CFile::modeCreate | CFile::modeWrite, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, pszPathName);
    write(file);
    file.Close();
}
}  // namespace

CDocument::CDocument() : m_bModified(FALSE) {}

CDocument::~CDocument() = default;

BOOL CDocument::OnNewDocument()
{
    DeleteContents();
    m_strPathName.Empty();
    m_bModified = FALSE;
    return TRUE;
}

void CDocument::DeleteContents() {}

BOOL CDocument::DoSave(LPCTSTR pszPathName, BOOL bReplace)
{
    if (!OnSaveDocument(pszPathName))
        return FALSE;
    if (bReplace)
        m_strPathName = pszPathName;
    return TRUE;
}

BOOL CDocument::OnSaveDocument(LPCTSTR pszPathName)
{
    const BOOL bSaved = SaveOrTell(
        pszPathName,
        [&] { WriteWhole(pszPathName, [this](CFile& file) { StoreDocument(*this, file); }); });
    if (bSaved)
        m_bModified = FALSE;
    return bSaved;
}

COleDocument::COleDocument() : m_bCompoundFile(FALSE) {}

COleDocument::~COleDocument() = default;

BOOL COleDocument::OnSaveDocument(LPCTSTR pszPathName)
{
    if (!m_bCompoundFile)
        return CDocument::OnSaveDocument(pszPathName);
    const BOOL bSaved =
        SaveOrTell(pszPathName,
                   [&]
                   {
                       CMemFile content(s_nGrowBytes);
                       StoreDocument(*this, content);
                       WriteWhole(pszPathName, [&](CFile& file)
                                  { PackCompoundFile(file, s_szContents, content); });
                   });
    if (bSaved)
        m_bModified = FALSE;
    return bSaved;
}
