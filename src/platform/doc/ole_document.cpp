// Saving and opening: the archive in memory, the compound file on the disk, and what is reported.
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

void LoadDocument(CDocument& document, CFile& file)
{
    CArchive ar(&file, CArchive::load);
    ar.m_pDocument = &document;
    document.Serialize(ar);
    ar.Close();
}

void Unpack(CFile& file, CMemFile& content)
{
    if (!UnpackCompoundFile(file, s_szContents, content))
        AfxThrowArchiveException(CArchiveException::badIndex);
}

// Runs a save or a load; a failure is reported.
template <class Job>
BOOL RunOrReport(CDocument& document, LPCSTR pszPathName, BOOL bSaving, Job job)
{
    try
    {
        job();
        return TRUE;
    }
    catch (CException* pException)
    {
        document.ReportSaveLoadException(pszPathName, pException, bSaving);
        pException->Delete();
    }
    return FALSE;
}

// Hands an open file to the writer; only a writer that comes back puts it in the target's place.
template <class Write>
void WriteWhole(LPCSTR pszPathName, Write write)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(pszPathName, CFile::modeCreate | CFile::modeWrite, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, pszPathName);
    write(file);
    file.Close();
}

// Gives what read() makes of an open file to the document. An archive in memory has no name of its
// own: its exceptions get that of the file.
template <class Read>
void LoadFrom(CDocument& document, LPCSTR pszPathName, Read read)
{
    CFile file;
    CFileException error;
    if (!file.Open(pszPathName, CFile::modeRead | CFile::shareDenyWrite, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, pszPathName);
    try
    {
        LoadDocument(document, read(file));
    }
    catch (CArchiveException* pException)
    {
        const int nCause = pException->m_cause;
        pException->Delete();
        AfxThrowArchiveException(nCause, pszPathName);
    }
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

BOOL CDocument::DoSave(LPCSTR pszPathName, BOOL bReplace)
{
    if (!OnSaveDocument(pszPathName))
        return FALSE;
    if (bReplace)
        m_strPathName = pszPathName;
    return TRUE;
}

BOOL CDocument::TakePath(LPCSTR pszPathName)
{
    m_strPathName = pszPathName;
    m_bModified = FALSE;
    return TRUE;
}

void CDocument::ReportSaveLoadException(LPCSTR pszPathName, CException* pException, BOOL bSaving)
{
    char szReason[256] = "";
    pException->GetErrorMessage(szReason, sizeof szReason);
    CString strMessage;
    strMessage.Format(bSaving ? "Failed to save document %s. %s" : "Failed to open document %s. %s",
                      pszPathName, szReason);
    AfxPathMessageBox(strMessage, MB_ICONEXCLAMATION);
}

COleDocument::COleDocument() : m_bCompoundFile(FALSE) {}

COleDocument::~COleDocument() = default;

BOOL COleDocument::OnSaveDocument(LPCSTR pszPathName)
{
    const BOOL bSaved =
        RunOrReport(*this, pszPathName, TRUE,
                    [&]
                    {
                        if (!m_bCompoundFile)
                            AfxThrowNotSupportedException();
                        CMemFile content(s_nGrowBytes);
                        StoreDocument(*this, content);
                        WriteWhole(pszPathName, [&](CFile& file)
                                   { PackCompoundFile(file, s_szContents, content); });
                    });
    if (bSaved)
        m_bModified = FALSE;
    return bSaved;
}

BOOL COleDocument::OnOpenDocument(LPCSTR pszPathName)
{
    CMemFile content(s_nGrowBytes);
    const auto unpack = [&](CFile& file) -> CFile&
    {
        Unpack(file, content);
        return content;
    };
    const auto load = [&]
    {
        if (!m_bCompoundFile)
            AfxThrowNotSupportedException();
        LoadFrom(*this, pszPathName, unpack);
    };
    return RunOrReport(*this, pszPathName, FALSE, load) && TakePath(pszPathName);
}

void COleDocument::StoreInto(CFile& file)
{
    CMemFile content(s_nGrowBytes);
    StoreDocument(*this, content);
    PackCompoundFile(file, s_szContents, content);
}

void COleDocument::LoadOutOf(CFile& file)
{
    CMemFile content(s_nGrowBytes);
    Unpack(file, content);
    LoadDocument(*this, content);
}
