// Files on disk and in memory. Failures raise CFileException; missing memory CMemoryException.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

#include "platform/base/cstring.h"
#include "platform/base/object.h"
#include "platform/base/types.h"

class CFileException;

// What a file is about to do. Tests set g_pfnFileFault to a function that returns the system's
// error number with which the operation is to fail, or 0 to let it pass.
enum EFileOperation
{
    fileOpOpen,
    fileOpWrite,
    fileOpFlush,
    fileOpClose,
    fileOpRename
};
extern int (*g_pfnFileFault)(EFileOperation eOperation, const char* pszPath);

// Paths are UTF-8 from now on, for the whole process. Without it they are the system's code page on
// Windows; where paths are bytes this changes nothing.
void UsePathsInUtf8();

// A file of the system, unbuffered.
class CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)

public:
    enum OpenFlags
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeCreate = 0x1000
    };
    enum SeekPosition
    {
        begin,
        current,
        end
    };

    CFile() = default;
    CFile(const char* pszPath, UINT nOpenFlags);
    ~CFile() override;  // closes without a word

    // FALSE and *pError filled if the file cannot be opened; nothing is thrown.
    virtual BOOL Open(const char* pszPath, UINT nOpenFlags, CFileException* pError = nullptr);
    virtual CString GetFilePath() const { return m_strPath; }

    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG Seek(LONGLONG nOffset, UINT nFrom);
    virtual ULONGLONG GetLength() const;

    // The number of bytes read, fewer than nCount at the end only.
    virtual UINT Read(void* pBuffer, UINT nCount);
    virtual void Write(const void* pBuffer, UINT nCount);
    virtual void Flush();
    // Whatever fails, the file is closed afterwards.
    virtual void Close();
    virtual void Abort();

    void SeekToBegin() { Seek(0, begin); }

    static void Remove(const char* pszPath);

protected:
    static constexpr INT_PTR s_hNone = -1;

    INT_PTR m_hFile = s_hNone;  // the system's handle
    CString m_strPath;          // as it was given to Open
};

// A file that is written whole: with modeCreate the bytes go to a temporary file beside the target,
// and Close puts it in the target's place. Without a successful Close the target stays as it was.
// A symbolic link is followed, the target's mode kept; what is no regular file is written directly.
class CMirrorFile : public CFile
{
    DECLARE_DYNAMIC(CMirrorFile)

public:
    CMirrorFile() = default;
    ~CMirrorFile() override;

    BOOL Open(const char* pszPath, UINT nOpenFlags, CFileException* pError = nullptr) override;
    void Close() override;
    void Abort() override;

    // How many files this process is replacing just now: while it is 0, ending the process leaves
    // no temporary file. May be asked in a signal handler.
    static int CountOpen();

private:
    CString m_strTarget;     // where the links end
    CString m_strTemporary;  // empty: written directly
};

// Writes a file of these parts whole, as CMirrorFile does. 0, or the system's number of the error;
// the target is then as it was.
LONG WriteWholeFile(const char* pszPath, std::initializer_list<std::span<const BYTE>> parts);

// The bytes from the file's position to its end.
std::vector<BYTE> ReadRest(CFile& file);

// A file in memory, which grows in steps of nGrowBytes; with 0 it cannot grow.
class CMemFile : public CFile
{
    DECLARE_DYNAMIC(CMemFile)

public:
    explicit CMemFile(UINT nGrowBytes = 1024);
    // Over the caller's memory, which is the content of the file; it cannot grow.
    CMemFile(BYTE* pBuffer, UINT nBufferSize);
    ~CMemFile() override;

    BOOL Open(const char* pszPath, UINT nOpenFlags, CFileException* pError = nullptr) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG Seek(LONGLONG nOffset, UINT nFrom) override;
    ULONGLONG GetLength() const override;
    UINT Read(void* pBuffer, UINT nCount) override;
    void Write(const void* pBuffer, UINT nCount) override;
    void Flush() override {}
    void Close() override;
    void Abort() override { Close(); }

    // The content, valid until the next change.
    const BYTE* GetData() const { return m_pBuffer; }

protected:
    virtual BYTE* Alloc(SIZE_T nBytes);
    virtual BYTE* Realloc(BYTE* pMemory, SIZE_T nBytes);
    virtual void Free(BYTE* pMemory);
    void GrowFile(ULONGLONG nNewLength);
    void ClearUpTo(ULONGLONG nEnd);
    void Reset();

    SIZE_T m_nGrowBytes;
    ULONGLONG m_nPosition = 0;
    SIZE_T m_nBufferSize = 0;
    SIZE_T m_nFileSize = 0;
    BYTE* m_pBuffer = nullptr;
    BOOL m_bAutoDelete = TRUE;  // Close frees the memory
};

// A file in a block of global memory, for the clipboard.
class CSharedFile : public CMemFile
{
    DECLARE_DYNAMIC(CSharedFile)

public:
    // nAllocFlags must have GMEM_MOVEABLE.
    explicit CSharedFile(UINT nAllocFlags = 0x2002, UINT nGrowBytes = 4096);
    ~CSharedFile() override;

    // The block, unlocked, now the caller's; null if nothing was written. Its size is what was
    // allocated, the content's length must be asked for before.
    HGLOBAL Detach();

protected:
    BYTE* Alloc(SIZE_T nBytes) override;
    BYTE* Realloc(BYTE* pMemory, SIZE_T nBytes) override;
    void Free(BYTE* pMemory) override;

private:
    UINT m_nAllocFlags;
    HGLOBAL m_hMemory = nullptr;
};
