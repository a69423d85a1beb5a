// CFile on the system's calls, and the file that replaces its target whole.
#include "platform/base/file.h"

#include <atomic>

#include "platform/base/exception.h"
#include "platform/base/native_file.h"

IMPLEMENT_DYNAMIC(CFile, CObject)
IMPLEMENT_DYNAMIC(CMirrorFile, CFile)

int (*g_pfnFileFault)(EFileOperation eOperation, const char* pszPath) = nullptr;

namespace
{
std::atomic<int> g_nReplacing = 0;

int AskFault(EFileOperation eOperation, const CString& strPath)
{
    return g_pfnFileFault != nullptr ? g_pfnFileFault(eOperation, strPath) : 0;
}

void Check(int nError, const CString& strPath)
{
    if (nError != 0)
        AfxThrowFileException(native_file::CauseOf(nError, strPath), nError, strPath);
}

BOOL Opened(int nError, const char* pszPath, CFileException* pError)
{
    if (nError != 0 && pError != nullptr)
    {
        pError->m_cause = native_file::CauseOf(nError, pszPath);
        pError->m_lOsError = nError;
        pError->m_strFileName = pszPath;
    }
    return nError == 0;
}
}  // namespace

// ---- CFile ----

CFile::CFile(const char* pszPath, UINT nOpenFlags)
{
    CFileException error;
    if (!CFile::Open(pszPath, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, pszPath);
}

CFile::~CFile()
{
    CFile::Abort();
}

BOOL CFile::Open(const char* pszPath, UINT nOpenFlags, CFileException* pError)
{
    CFile::Abort();
    m_strPath = pszPath;
    int nError = AskFault(fileOpOpen, m_strPath);
    if (nError == 0)
        nError = native_file::Open(pszPath, nOpenFlags, m_hFile);
    return Opened(nError, pszPath, pError);
}

ULONGLONG CFile::GetPosition() const
{
    ULONGLONG nPosition = 0;
    Check(native_file::Seek(m_hFile, 0, current, nPosition), m_strPath);
    return nPosition;
}

ULONGLONG CFile::Seek(LONGLONG nOffset, UINT nFrom)
{
    ULONGLONG nPosition = 0;
    Check(native_file::Seek(m_hFile, nOffset, nFrom, nPosition), m_strPath);
    return nPosition;
}

ULONGLONG CFile::GetLength() const
{
    ULONGLONG nLength = 0;
    Check(native_file::GetLength(m_hFile, nLength), m_strPath);
    return nLength;
}

UINT CFile::Read(void* pBuffer, UINT nCount)
{
    UINT nRead = 0;
    Check(native_file::Read(m_hFile, pBuffer, nCount, nRead), m_strPath);
    return nRead;
}

void CFile::Write(const void* pBuffer, UINT nCount)
{
    if (nCount == 0)
        return;
    Check(AskFault(fileOpWrite, m_strPath), m_strPath);
    Check(native_file::Write(m_hFile, pBuffer, nCount), m_strPath);
}

// Nothing waits in this object: what was written is the system's already.
void CFile::Flush()
{
    if (m_hFile != s_hNone)
        Check(AskFault(fileOpFlush, m_strPath), m_strPath);
}

void CFile::Close()
{
    if (m_hFile == s_hNone)
        return;
    const int nFault = AskFault(fileOpClose, m_strPath);
    const int nError = native_file::Close(m_hFile);
    m_hFile = s_hNone;
    Check(nFault != 0 ? nFault : nError, m_strPath);
}

void CFile::Abort()
{
    if (m_hFile != s_hNone)
    {
        native_file::Close(m_hFile);
        m_hFile = s_hNone;
    }
}

void CFile::Remove(const char* pszPath)
{
    Check(native_file::Remove(pszPath), pszPath);
}

// ---- CMirrorFile ----

CMirrorFile::~CMirrorFile()
{
    CMirrorFile::Abort();
}

BOOL CMirrorFile::Open(const char* pszPath, UINT nOpenFlags, CFileException* pError)
{
    CMirrorFile::Abort();
    bool bReplaceable = false;
    int nError = native_file::FindTarget(pszPath, m_strTarget, bReplaceable);
    const UINT nMirrored = modeCreate | modeWrite;
    if (nError != 0 || !bReplaceable || (nOpenFlags & nMirrored) != nMirrored)
    {
        return nError != 0 ? Opened(nError, pszPath, pError)
                           : CFile::Open(pszPath, nOpenFlags, pError);
    }
    m_strPath = pszPath;
    nError = AskFault(fileOpOpen, m_strPath);
    if (nError == 0)
    {
        ++g_nReplacing;
        nError = native_file::CreateBeside(m_strTarget, m_strTemporary, m_hFile);
        if (nError != 0)
            --g_nReplacing;
    }
    return Opened(nError, pszPath, pError);
}

void CMirrorFile::Close()
{
    try
    {
        CFile::Close();
        if (!m_strTemporary.IsEmpty())
        {
            int nError = AskFault(fileOpRename, m_strTarget);
            if (nError == 0)
                nError = native_file::Replace(m_strTemporary, m_strTarget);
            Check(nError, m_strTemporary);
            m_strTemporary.Empty();
            --g_nReplacing;
        }
    }
    catch (...)
    {
        Abort();
        throw;
    }
}

void CMirrorFile::Abort()
{
    CFile::Abort();
    if (!m_strTemporary.IsEmpty())
    {
        native_file::Remove(m_strTemporary);
        m_strTemporary.Empty();
        --g_nReplacing;
    }
}

int CMirrorFile::CountOpen()
{
    return g_nReplacing;
}

LONG WriteWholeFile(const char* pszPath, std::initializer_list<std::span<const BYTE>> parts)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(pszPath, CFile::modeCreate | CFile::modeWrite, &error))
        return error.m_lOsError;
    try
    {
        for (const std::span<const BYTE> part : parts)
            file.Write(part.data(), static_cast<UINT>(part.size()));
        file.Close();
        return 0;
    }
    catch (CFileException* pError)
    {
        const LONG lError = pError->m_lOsError;
        pError->Delete();
        return lError;
    }
}

std::vector<BYTE> ReadRest(CFile& file)
{
    std::vector<BYTE> bytes;
    BYTE aPiece[0x4000];
    while (const UINT nRead = file.Read(aPiece, sizeof aPiece))
        bytes.insert(bytes.end(), aPiece, aPiece + nRead);
    return bytes;
}
