// Files by the system's calls; paths go through their wide forms.
#include "platform/base/native_file.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/base/win32/wide_text.h"

namespace
{
int ErrorOf(BOOL bDone)
{
    return bDone ? 0 : static_cast<int>(GetLastError());
}

HANDLE HandleOf(INT_PTR hFile)
{
    return reinterpret_cast<HANDLE>(hFile);
}

// What others may do meanwhile, by the share bits of CFile.
DWORD ShareMode(UINT nOpenFlags)
{
    switch (nOpenFlags & 0x70)
    {
        case CFile::shareDenyWrite:
            return FILE_SHARE_READ;
        case CFile::shareDenyRead:
            return FILE_SHARE_WRITE;
        case CFile::shareExclusive:
            return 0;
        default:
            return FILE_SHARE_READ | FILE_SHARE_WRITE;
    }
}

DWORD Disposition(UINT nOpenFlags)
{
    return (nOpenFlags & CFile::modeCreate) == 0 ? OPEN_EXISTING : CREATE_ALWAYS;
}

// A handle that asks and does not touch; a folder has one too.
class CProbe
{
public:
    explicit CProbe(const std::wstring& path)
        : m_hFile(CreateFileW(path.c_str(), 0,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr))
    {
    }
    ~CProbe()
    {
        if (IsOpen())
            CloseHandle(m_hFile);
    }
    CProbe(const CProbe&) = delete;
    CProbe& operator=(const CProbe&) = delete;

    bool IsOpen() const { return m_hFile != INVALID_HANDLE_VALUE; }
    bool IsOnDisk() const { return GetFileType(m_hFile) == FILE_TYPE_DISK; }
    DWORD Attributes() const
    {
        BY_HANDLE_FILE_INFORMATION info{};
        return GetFileInformationByHandle(m_hFile, &info) ? info.dwFileAttributes : 0;
    }
    // Where links led to; empty if the system does not tell.
    std::wstring FinalPath() const
    {
        constexpr DWORD nMost = 32768;
        std::wstring path(nMost, L'\0');
        const DWORD nLength =
            GetFinalPathNameByHandleW(m_hFile, path.data(), nMost, FILE_NAME_NORMALIZED);
        path.resize(nLength < nMost ? nLength : 0);
        return path;
    }

private:
    HANDLE m_hFile;
};

bool IsLink(const std::wstring& path)
{
    const DWORD nAttributes = GetFileAttributesW(path.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES &&
           (nAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// The folder of a path, with its separator; empty for the current one.
std::string_view FolderOf(std::string_view path)
{
    return path.substr(0, path.find_last_of("\\/:") + 1);  // npos + 1 is 0
}
}  // namespace

int native_file::Open(const char* pszPath, UINT nOpenFlags, INT_PTR& hFile)
{
    constexpr DWORD aAccess[] = { GENERIC_READ, GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE,
                                  GENERIC_READ | GENERIC_WRITE };
    const HANDLE h =
        CreateFileW(WidePath(pszPath).c_str(), aAccess[nOpenFlags & 3], ShareMode(nOpenFlags),
                    nullptr, Disposition(nOpenFlags), FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return ErrorOf(FALSE);
    hFile = reinterpret_cast<INT_PTR>(h);
    return 0;
}

int native_file::Read(INT_PTR hFile, void* pBuffer, UINT nCount, UINT& nRead)
{
    nRead = 0;
    while (nRead < nCount)
    {
        DWORD n = 0;
        if (!ReadFile(HandleOf(hFile), static_cast<BYTE*>(pBuffer) + nRead, nCount - nRead, &n,
                      nullptr))
        {
            const int nError = ErrorOf(FALSE);
            return nError == ERROR_BROKEN_PIPE ? 0 : nError;  // the writer has ended
        }
        if (n == 0)
            break;
        nRead += n;
    }
    return 0;
}

int native_file::Write(INT_PTR hFile, const void* pBuffer, UINT nCount)
{
    const auto* p = static_cast<const BYTE*>(pBuffer);
    while (nCount > 0)
    {
        DWORD n = 0;
        if (!WriteFile(HandleOf(hFile), p, nCount, &n, nullptr))
            return ErrorOf(FALSE);
        if (n == 0)
            return ERROR_WRITE_FAULT;
        p += n;
        nCount -= n;
    }
    return 0;
}

int native_file::Seek(INT_PTR hFile, LONGLONG nOffset, UINT nFrom, ULONGLONG& nPosition)
{
    constexpr DWORD aFrom[] = { FILE_BEGIN, FILE_CURRENT, FILE_END };
    if (nFrom > CFile::end)
        return ERROR_INVALID_PARAMETER;
    LARGE_INTEGER offset;
    LARGE_INTEGER position{};
    offset.QuadPart = nOffset;
    const BOOL bDone = SetFilePointerEx(HandleOf(hFile), offset, &position, aFrom[nFrom]);
    nPosition = static_cast<ULONGLONG>(position.QuadPart);
    return ErrorOf(bDone);
}

int native_file::GetLength(INT_PTR hFile, ULONGLONG& nLength)
{
    LARGE_INTEGER size{};
    const BOOL bDone = GetFileSizeEx(HandleOf(hFile), &size);
    nLength = static_cast<ULONGLONG>(size.QuadPart);
    return ErrorOf(bDone);
}

int native_file::Close(INT_PTR hFile)
{
    return ErrorOf(CloseHandle(HandleOf(hFile)));
}

// Takes away what was begun, also where memory is missing: paths of usual length need none.
int native_file::Remove(const char* pszPath)
{
    WCHAR szPath[2 * MAX_PATH];
    if (MultiByteToWideChar(PathCodePage(), 0, pszPath, -1, szPath, std::size(szPath)) > 0)
        return ErrorOf(DeleteFileW(szPath));
    return ErrorOf(DeleteFileW(WidePath(pszPath).c_str()));
}

namespace
{
int MoveOver(const char* pszOld, const char* pszNew)
{
    return ErrorOf(
        MoveFileExW(WidePath(pszOld).c_str(), WidePath(pszNew).c_str(), MOVEFILE_REPLACE_EXISTING));
}
}  // namespace

int native_file::Replace(const char* pszNew, const char* pszTarget)
{
    const std::wstring target = WidePath(pszTarget);
    const DWORD nAttributes = GetFileAttributesW(target.c_str());
    if (nAttributes == INVALID_FILE_ATTRIBUTES)
        return MoveOver(pszNew, pszTarget);
    // Whoever has it open keeps it. Asked first: a replacement that fails may leave the new file
    // open, and so undeleted.
    const HANDLE hTarget =
        CreateFileW(target.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (hTarget == INVALID_HANDLE_VALUE)
        return ErrorOf(FALSE);
    CloseHandle(hTarget);
    // Takes over the target's rights as well, where its file system can do that.
    if (!ReplaceFileW(target.c_str(), WidePath(pszNew).c_str(), nullptr,
                      REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
    {
        const int nError = MoveOver(pszNew, pszTarget);
        if (nError != 0)
            return nError;
    }
    SetFileAttributesW(target.c_str(), nAttributes);
    return 0;
}

int native_file::FindTarget(const char* pszPath, CString& strTarget, bool& bReplaceable)
{
    strTarget = pszPath;
    const std::wstring path = WidePath(pszPath);
    const CProbe probe(path);
    if (!probe.IsOpen())
    {
        const int nError = ErrorOf(FALSE);
        // A link that leads nowhere is written through: the system makes what it points to.
        bReplaceable = nError == ERROR_FILE_NOT_FOUND && !IsLink(path);
        return nError == ERROR_FILE_NOT_FOUND && !path.empty() ? 0 : nError;
    }
    bReplaceable = probe.IsOnDisk();
    const DWORD nAttributes = bReplaceable ? probe.Attributes() : 0;
    if ((nAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
        return ERROR_ACCESS_DENIED;
    if (bReplaceable && IsLink(path))
    {
        const std::optional<std::string> end = FromWide(probe.FinalPath(), PathCodePage());
        bReplaceable = end && !end->empty();
        if (bReplaceable)
            strTarget = end->c_str();
    }
    return 0;
}

int native_file::CreateBeside(const char* pszTarget, CString& strTemporary, INT_PTR& hFile)
{
    static std::atomic<unsigned> s_nNumber = 0;
    constexpr int nMaxTries = 1000;
    const std::string prefix =
        std::string(FolderOf(pszTarget)) + ".mivora-" + std::to_string(GetCurrentProcessId()) + "-";
    for (int nTry = 0; nTry < nMaxTries; ++nTry)
    {
        const std::string name = prefix + std::to_string(s_nNumber++) + ".tmp";
        const CString strName = name.c_str();
        const HANDLE h = CreateFileW(WidePath(name.c_str()).c_str(), GENERIC_WRITE, 0, nullptr,
                                     CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (h != INVALID_HANDLE_VALUE)
        {
            strTemporary = strName;  // needs no memory: the file must not be forgotten
            hFile = reinterpret_cast<INT_PTR>(h);
            return 0;
        }
        const int nError = ErrorOf(FALSE);
        if (nError != ERROR_FILE_EXISTS && nError != ERROR_ALREADY_EXISTS)
            return nError;
    }
    return ERROR_FILE_EXISTS;
}

int native_file::CauseOf(int nError, const char*)
{
    return CFileException::OsErrorToException(nError);
}

int CFileException::OsErrorToException(LONG lOsError)
{
    static constexpr struct
    {
        LONG nError;
        int nCause;
    } s_aCauses[] = {
        { ERROR_SUCCESS, none },
        { ERROR_FILE_NOT_FOUND, fileNotFound },
        { ERROR_PATH_NOT_FOUND, badPath },
        { ERROR_INVALID_NAME, badPath },
        { ERROR_BAD_PATHNAME, badPath },
        { ERROR_FILENAME_EXCED_RANGE, badPath },
        { ERROR_INVALID_DRIVE, badPath },
        { ERROR_DIRECTORY, badPath },
        { ERROR_BAD_NETPATH, badPath },
        { ERROR_TOO_MANY_OPEN_FILES, tooManyOpenFiles },
        { ERROR_ACCESS_DENIED, accessDenied },
        { ERROR_WRITE_PROTECT, accessDenied },
        { ERROR_NETWORK_ACCESS_DENIED, accessDenied },
        { ERROR_FILE_EXISTS, accessDenied },
        { ERROR_ALREADY_EXISTS, accessDenied },
        { ERROR_INVALID_HANDLE, invalidFile },
        { ERROR_CURRENT_DIRECTORY, removeCurrentDir },
        { ERROR_CANNOT_MAKE, directoryFull },
        { ERROR_SEEK, badSeek },
        { ERROR_NEGATIVE_SEEK, badSeek },
        { ERROR_INVALID_PARAMETER, badSeek },
        { ERROR_NOT_READY, hardIO },
        { ERROR_CRC, hardIO },
        { ERROR_READ_FAULT, hardIO },
        { ERROR_WRITE_FAULT, hardIO },
        { ERROR_IO_DEVICE, hardIO },
        { ERROR_SHARING_VIOLATION, sharingViolation },
        { ERROR_BUSY, sharingViolation },
        { ERROR_LOCK_VIOLATION, lockViolation },
        { ERROR_DISK_FULL, diskFull },
        { ERROR_HANDLE_DISK_FULL, diskFull },
        { ERROR_HANDLE_EOF, endOfFile },
    };
    const auto* pRow = std::find_if(std::begin(s_aCauses), std::end(s_aCauses),
                                    [=](const auto& row) { return row.nError == lOsError; });
    return pRow != std::end(s_aCauses) ? pRow->nCause : genericException;
}
