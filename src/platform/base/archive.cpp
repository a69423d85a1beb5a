// CArchive: the buffer in both directions and the form of texts.
#include "platform/base/archive.h"

#include <algorithm>
#include <climits>
#include <new>

#include "platform/base/code_page.h"
#include "platform/base/exception.h"

namespace
{
constexpr BYTE nWordFollows = 0xFF;
constexpr WORD nTwoByteMark = 0xFFFE;
constexpr WORD nLongFollows = 0xFFFF;
constexpr UINT nSmallestBuffer = 128;

// A length in a damaged file may be anything: memory is taken as the bytes really come.
constexpr UINT nTextPiece = 16384;

// The length in front of a text: one byte below 255, 0xFF and two bytes below 0xFFFE, 0xFF, 0xFFFF
// and four bytes above. 0xFF, 0xFFFE in front of such a length marks two bytes a character.
void WriteTextLength(CArchive& ar, UINT nLength)
{
    if (nLength < nWordFollows)
        ar << static_cast<BYTE>(nLength);
    else if (nLength < nTwoByteMark)
        ar << nWordFollows << static_cast<WORD>(nLength);
    else
        ar << nWordFollows << nLongFollows << static_cast<DWORD>(nLength);
}

UINT ReadTextLength(CArchive& ar, int& nCharacterSize)
{
    nCharacterSize = 1;
    for (;;)
    {
        BYTE nByte = 0;
        ar >> nByte;
        if (nByte != nWordFollows)
            return nByte;
        WORD nWord = 0;
        ar >> nWord;
        if (nWord == nTwoByteMark && nCharacterSize == 1)
        {
            nCharacterSize = 2;
            continue;
        }
        if (nWord < nTwoByteMark)
            return nWord;
        DWORD nLong = 0;
        if (nWord == nLongFollows)
            ar >> nLong;
        // A second mark, or the announcement of an even longer form, is in no sound file.
        if (nWord == nTwoByteMark || nLong == UINT_MAX)
            AfxThrowArchiveLimitException();
        return nLong;
    }
}
}  // namespace

CArchive::CArchive(CFile* pFile, UINT nMode, int nBufSize, void* pBuffer)
    : m_pFile(pFile),
      m_nMode(nMode),
      m_nUncaught(std::uncaught_exceptions()),
      m_nBufferSize(static_cast<UINT>(std::max(nBufSize, 0)))
{
    // The largest number must fit, whatever buffer is offered.
    if (pBuffer == nullptr || m_nBufferSize < sizeof(ULONGLONG))
    {
        m_nBufferSize = std::max(m_nBufferSize, nSmallestBuffer);
        m_ownBuffer.reset(new (std::nothrow) BYTE[m_nBufferSize]);
        if (m_ownBuffer == nullptr)
            AfxThrowMemoryException();
        pBuffer = m_ownBuffer.get();
    }
    m_pStart = static_cast<BYTE*>(pBuffer);
    m_pCurrent = m_pStart;
    m_pEnd = IsStoring() ? m_pStart + m_nBufferSize : m_pStart;
}

CArchive::~CArchive() noexcept(false)
{
    if (m_bFailed || (m_nMode & bNoFlushOnDelete) != 0 || std::uncaught_exceptions() > m_nUncaught)
        Abort();
    else
        Close();
}

void CArchive::ThrowCause(bool bWantsToRead) const
{
    AfxThrowArchiveException(
        bWantsToRead ? CArchiveException::writeOnly : CArchiveException::readOnly,
        m_pFile != nullptr ? m_pFile->GetFilePath() : CString());
}

void CArchive::ThrowEndOfFile() const
{
    AfxThrowArchiveException(CArchiveException::endOfFile, OpenFile().GetFilePath());
}

CFile& CArchive::OpenFile() const
{
    if (m_pFile == nullptr)
        AfxThrowArchiveException(CArchiveException::genericException);
    return *m_pFile;
}

// Loading: at least nNeeded bytes (no more than a number has) stand in the buffer afterwards.
void CArchive::FillBuffer(UINT nNeeded)
{
    const auto nLeft = static_cast<UINT>(m_pEnd - m_pCurrent);
    std::memmove(m_pStart, m_pCurrent, nLeft);
    m_pCurrent = m_pStart;
    m_pEnd = m_pStart + nLeft;
    m_pEnd += OpenFile().Read(m_pEnd, m_nBufferSize - nLeft);
    if (static_cast<UINT>(m_pEnd - m_pCurrent) < nNeeded)
        ThrowEndOfFile();
}

UINT CArchive::Read(void* pBuffer, UINT nCount)
{
    RequireLoading();
    auto* pTo = static_cast<BYTE*>(pBuffer);
    UINT nDone = 0;
    while (nDone < nCount)
    {
        const auto nReady = static_cast<UINT>(m_pEnd - m_pCurrent);
        const UINT nStep = std::min(nReady, nCount - nDone);
        if (nStep > 0)
        {
            std::memcpy(pTo + nDone, m_pCurrent, nStep);
            m_pCurrent += nStep;
            nDone += nStep;
        }
        else if (nCount - nDone >= m_nBufferSize)
        {
            return nDone + OpenFile().Read(pTo + nDone, nCount - nDone);
        }
        else
        {
            FillBuffer(0);
            if (m_pCurrent == m_pEnd)
                break;
        }
    }
    return nDone;
}

void CArchive::EnsureRead(void* pBuffer, UINT nCount)
{
    if (Read(pBuffer, nCount) != nCount)
        ThrowEndOfFile();
}

void CArchive::Write(const void* pBuffer, UINT nCount)
{
    RequireStoring();
    if (nCount > static_cast<UINT>(m_pEnd - m_pCurrent))
    {
        Flush();
        if (nCount >= m_nBufferSize)
        {
            m_bFailed = true;
            OpenFile().Write(pBuffer, nCount);
            m_bFailed = false;
            return;
        }
    }
    if (nCount > 0)
    {
        std::memcpy(m_pCurrent, pBuffer, nCount);
        m_pCurrent += nCount;
    }
}

void CArchive::Flush()
{
    if (IsLoading())
    {
        if (m_pCurrent != m_pEnd)
            OpenFile().Seek(-static_cast<LONGLONG>(m_pEnd - m_pCurrent), CFile::current);
        m_pCurrent = m_pStart;
        m_pEnd = m_pStart;
        return;
    }
    if (m_pCurrent != m_pStart || m_pFile == nullptr)
    {
        m_bFailed = true;
        OpenFile().Write(m_pStart, static_cast<UINT>(m_pCurrent - m_pStart));
        m_bFailed = false;
        m_pCurrent = m_pStart;
    }
}

void CArchive::Close()
{
    if (m_pFile != nullptr)
    {
        Flush();
        Abort();
    }
}

// An archive without a file has no room and nothing to read, so that each use asks for the file.
void CArchive::Abort()
{
    m_pFile = nullptr;
    m_pCurrent = m_pStart;
    m_pEnd = m_pStart;
}

CArchive& CArchive::operator<<(const CString& str)
{
    const auto nLength = static_cast<UINT>(str.GetLength());
    if (IsStoring() && nLength < nWordFollows &&
        m_pEnd - m_pCurrent > static_cast<std::ptrdiff_t>(nLength))
    {
        *m_pCurrent++ = static_cast<BYTE>(nLength);
        std::memcpy(m_pCurrent, str.GetString(), nLength);
        m_pCurrent += nLength;
        return *this;
    }
    WriteTextLength(*this, nLength);
    Write(str.GetString(), nLength);
    return *this;
}

CArchive& CArchive::operator>>(CString& str)
{
    // What it holds already, as most strings of a node that was just made do, is only passed over.
    const auto nPresent = static_cast<UINT>(str.GetLength());
    if (IsLoading() && nPresent < nWordFollows &&
        m_pEnd - m_pCurrent > static_cast<std::ptrdiff_t>(nPresent) && *m_pCurrent == nPresent &&
        std::memcmp(m_pCurrent + 1, str.GetString(), nPresent) == 0)
    {
        m_pCurrent += nPresent + 1;
        return *this;
    }
    int nCharacterSize = 1;
    const UINT nLength = ReadTextLength(*this, nCharacterSize);
    str = nCharacterSize == 1 ? LoadBytes(nLength) : LoadTwoByteText(nLength);
    return *this;
}

CString CArchive::LoadBytes(UINT nLength)
{
    if (nLength <= static_cast<UINT>(m_pEnd - m_pCurrent))
    {
        CString text(reinterpret_cast<const char*>(m_pCurrent), static_cast<int>(nLength));
        m_pCurrent += nLength;
        return text;
    }
    CString text;
    while (nLength > 0)
    {
        const auto nDone = static_cast<UINT>(text.GetLength());
        const UINT nStep = std::min(nLength, std::max(nTextPiece, nDone));
        if (nStep > INT_MAX - nDone)
            AfxThrowMemoryException();
        const auto nNew = static_cast<int>(nDone + nStep);
        EnsureRead(text.GetBuffer(nNew) + nDone, nStep);
        text.ReleaseBuffer(nNew);
        nLength -= nStep;
    }
    return text;
}

CString CArchive::LoadTwoByteText(UINT nLength)
{
    CString text;
    BYTE aPiece[256];
    char szConverted[sizeof(aPiece) / 2];
    for (UINT nStep; nLength > 0; nLength -= nStep)
    {
        nStep = std::min<UINT>(nLength, sizeof(szConverted));
        EnsureRead(aPiece, nStep * 2);
        for (UINT i = 0; i < nStep; ++i)
        {
            const int nCode =
                UnicodeToWindows1252(static_cast<char32_t>(aPiece[2 * i] | aPiece[2 * i + 1] << 8));
            szConverted[i] = nCode >= 0 ? static_cast<char>(nCode) : '?';
        }
        text.Append(szConverted, static_cast<int>(nStep));
    }
    return text;
}
