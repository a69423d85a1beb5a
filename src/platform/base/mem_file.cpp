// Files in memory.
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/base/system.h"

IMPLEMENT_DYNAMIC(CMemFile, CFile)
IMPLEMENT_DYNAMIC(CSharedFile, CMemFile)

// ---- CMemFile ----

CMemFile::CMemFile(UINT nGrowBytes) : m_nGrowBytes(nGrowBytes) {}

CMemFile::CMemFile(BYTE* pBuffer, UINT nBufferSize)
    : m_nGrowBytes(0),
      m_nBufferSize(nBufferSize),
      m_nFileSize(nBufferSize),
      m_pBuffer(pBuffer),
      m_bAutoDelete(FALSE)
{
}

CMemFile::~CMemFile()
{
    CMemFile::Close();
}

void CMemFile::Reset()
{
    m_pBuffer = nullptr;
    m_nBufferSize = 0;
    m_nFileSize = 0;
    m_nPosition = 0;
    m_bAutoDelete = TRUE;
}

BOOL CMemFile::Open(const char*, UINT, CFileException*)
{
    return FALSE;
}

ULONGLONG CMemFile::GetPosition() const
{
    return m_nPosition;
}

ULONGLONG CMemFile::Seek(LONGLONG nOffset, UINT nFrom)
{
    const ULONGLONG nBase = nFrom == current ? m_nPosition : nFrom == end ? m_nFileSize : 0;
    const auto nPosition = static_cast<LONGLONG>(nBase + static_cast<ULONGLONG>(nOffset));
    if (nFrom > end || nPosition < 0)
        AfxThrowFileException(CFileException::badSeek, EINVAL);
    m_nPosition = static_cast<ULONGLONG>(nPosition);
    return m_nPosition;
}

ULONGLONG CMemFile::GetLength() const
{
    return m_nFileSize;
}

UINT CMemFile::Read(void* pBuffer, UINT nCount)
{
    if (m_nPosition >= m_nFileSize)
        return 0;
    nCount = static_cast<UINT>(std::min<ULONGLONG>(nCount, m_nFileSize - m_nPosition));
    if (nCount > 0)
    {
        std::memcpy(pBuffer, m_pBuffer + m_nPosition, nCount);
        m_nPosition += nCount;
    }
    return nCount;
}

void CMemFile::Write(const void* pBuffer, UINT nCount)
{
    if (nCount == 0)
        return;
    const ULONGLONG nEnd = m_nPosition + nCount;
    GrowFile(nEnd);
    ClearUpTo(m_nPosition);
    std::memcpy(m_pBuffer + m_nPosition, pBuffer, nCount);
    m_nPosition = nEnd;
    m_nFileSize = std::max(m_nFileSize, static_cast<SIZE_T>(nEnd));
}

void CMemFile::Close()
{
    if (m_bAutoDelete && m_pBuffer != nullptr)
        Free(m_pBuffer);
    Reset();
}

BYTE* CMemFile::Alloc(SIZE_T nBytes)
{
    return static_cast<BYTE*>(std::malloc(nBytes));
}

BYTE* CMemFile::Realloc(BYTE* pMemory, SIZE_T nBytes)
{
    return static_cast<BYTE*>(std::realloc(pMemory, nBytes));
}

void CMemFile::Free(BYTE* pMemory)
{
    std::free(pMemory);
}

// Makes room for nNewLength bytes.
void CMemFile::GrowFile(ULONGLONG nNewLength)
{
    if (nNewLength > m_nBufferSize)
    {
        if (m_nGrowBytes == 0 || nNewLength > static_cast<ULONGLONG>(PTRDIFF_MAX) / 2)
            AfxThrowMemoryException();
        // Steps alone would copy a long file as often as it has steps.
        const SIZE_T nWanted =
            std::max(static_cast<SIZE_T>(nNewLength), m_nBufferSize + m_nBufferSize / 8);
        const SIZE_T nSize = (nWanted + m_nGrowBytes - 1) / m_nGrowBytes * m_nGrowBytes;
        BYTE* p = m_pBuffer == nullptr ? Alloc(nSize) : Realloc(m_pBuffer, nSize);
        if (p == nullptr)
            AfxThrowMemoryException();
        m_pBuffer = p;
        m_nBufferSize = nSize;
    }
}

// The bytes from the end of the file to nEnd, for which there is room, become zero.
void CMemFile::ClearUpTo(ULONGLONG nEnd)
{
    if (nEnd > m_nFileSize)
        std::memset(m_pBuffer + m_nFileSize, 0, static_cast<SIZE_T>(nEnd) - m_nFileSize);
}

// ---- CSharedFile ----

CSharedFile::CSharedFile(UINT nAllocFlags, UINT nGrowBytes)
    : CMemFile(nGrowBytes), m_nAllocFlags(nAllocFlags)
{
    ASSERT((nAllocFlags & GMEM_MOVEABLE) != 0);
}

CSharedFile::~CSharedFile()
{
    CSharedFile::Close();
}

HGLOBAL CSharedFile::Detach()
{
    HGLOBAL hMemory = m_hMemory;
    if (hMemory != nullptr)
    {
        GlobalUnlock(hMemory);
        m_hMemory = nullptr;
    }
    Reset();
    return hMemory;
}

BYTE* CSharedFile::Alloc(SIZE_T nBytes)
{
    m_hMemory = GlobalAlloc(m_nAllocFlags, nBytes);
    return static_cast<BYTE*>(GlobalLock(m_hMemory));
}

BYTE* CSharedFile::Realloc(BYTE*, SIZE_T nBytes)
{
    GlobalUnlock(m_hMemory);
    HGLOBAL hMemory = GlobalReAlloc(m_hMemory, nBytes, m_nAllocFlags);
    if (hMemory != nullptr)
        m_hMemory = hMemory;
    auto* p = static_cast<BYTE*>(GlobalLock(m_hMemory));  // again, also after a failure
    return hMemory != nullptr ? p : nullptr;
}

void CSharedFile::Free(BYTE*)
{
    GlobalUnlock(m_hMemory);
    GlobalFree(m_hMemory);
    m_hMemory = nullptr;
}
