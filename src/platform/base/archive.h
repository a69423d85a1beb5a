// Stores objects in a file or loads them from it, through a buffer; numbers are little-endian.
// Failures raise CArchiveException, those of the file CFileException.
#pragma once

#include <bit>
#include <cstring>
#include <memory>
#include <type_traits>

#include "platform/base/cstring.h"
#include "platform/base/file.h"

class CDocument;

template <class T>
concept CArchiveNumber = std::is_arithmetic_v<T> && !std::is_same_v<T, wchar_t> && sizeof(T) <= 8;

class CArchive
{
public:
    enum Mode
    {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2  // the destructor drops what Close has not written
    };

    // The file stays the caller's, open in the right mode, and outlives the archive. The archive
    // makes its own buffer of nBufSize bytes, if pBuffer does not give it one.
    CArchive(CFile* pFile, UINT nMode, int nBufSize = 4096, void* pBuffer = nullptr);
    // Closes the archive, and may throw as Close does; while an exception is on its way it drops
    // what has not been written.
    ~CArchive() noexcept(false);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }

    // The number of bytes read, fewer than nCount at the end of the file only.
    UINT Read(void* pBuffer, UINT nCount);
    // All of nCount bytes, or cause endOfFile.
    void EnsureRead(void* pBuffer, UINT nCount);
    void Write(const void* pBuffer, UINT nCount);

    // Storing: hands all to the file. Loading: puts the file's position to what was read last.
    void Flush();
    // Flushes and lets go of the file, which stays open.
    void Close();
    void Abort();

    template <CArchiveNumber T>
    CArchive& operator<<(T value)
    {
        RequireStoring();
        if (m_pEnd - m_pCurrent < static_cast<std::ptrdiff_t>(sizeof(T)))
            Flush();
        BYTE aBytes[sizeof(T)];
        std::memcpy(aBytes, &value, sizeof(T));
        ToLittleEndian(aBytes);
        std::memcpy(m_pCurrent, aBytes, sizeof(T));
        m_pCurrent += sizeof(T);
        return *this;
    }

    template <CArchiveNumber T>
    CArchive& operator>>(T& value)
    {
        RequireLoading();
        if (m_pEnd - m_pCurrent < static_cast<std::ptrdiff_t>(sizeof(T)))
            FillBuffer(sizeof(T));
        BYTE aBytes[sizeof(T)];
        std::memcpy(aBytes, m_pCurrent, sizeof(T));
        ToLittleEndian(aBytes);
        if constexpr (std::is_same_v<T, bool>)
            value = aBytes[0] != 0;
        else
            std::memcpy(&value, aBytes, sizeof(T));
        m_pCurrent += sizeof(T);
        return *this;
    }

    // One byte a character is stored. Text of two bytes a character that another program stored is
    // loaded as Windows-1252, '?' for what that has not.
    CArchive& operator<<(const CString& str);
    CArchive& operator>>(CString& str);

    CDocument* m_pDocument = nullptr;  // set by a document that serializes itself

private:
    template <std::size_t N>
    static void ToLittleEndian(BYTE (&aBytes)[N])
    {
        if constexpr (std::endian::native == std::endian::big)
        {
            for (std::size_t i = 0; i < N / 2; ++i)
                std::swap(aBytes[i], aBytes[N - 1 - i]);
        }
    }
    void RequireStoring() const
    {
        if (IsLoading())
            ThrowCause(false);
    }
    void RequireLoading() const
    {
        if (IsStoring())
            ThrowCause(true);
    }
    [[noreturn]] void ThrowCause(bool bWantsToRead) const;
    [[noreturn]] void ThrowEndOfFile() const;
    void FillBuffer(UINT nNeeded);
    CFile& OpenFile() const;
    CString LoadBytes(UINT nLength);
    CString LoadTwoByteText(UINT nLength);

    CFile* m_pFile;  // null after Close and Abort
    UINT m_nMode;
    bool m_bFailed = false;  // a write has failed: nothing more may go to the file
    int m_nUncaught;         // exceptions on their way when the archive was made
    std::unique_ptr<BYTE[]> m_ownBuffer;
    BYTE* m_pStart;
    BYTE* m_pCurrent;
    BYTE* m_pEnd;  // storing: of the buffer; loading: of what was read into it
    UINT m_nBufferSize;
};
