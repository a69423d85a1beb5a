// Files by the calls of the C library.
#include "platform/base/native_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>

#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
int ErrorOf(bool bFailed)
{
    return bFailed ? errno : 0;
}

// The folder of a path, with its slash; empty for the current one.
std::string_view FolderOf(std::string_view path)
{
    return path.substr(0, path.rfind('/') + 1);  // npos + 1 is 0
}

// New contents get the mode and, where we may set it, the owner of what they replace.
void TakeOverMode(int fd, const char* pszTarget)
{
    struct stat status;
    if (stat(pszTarget, &status) != 0)
        return;
    mode_t nMode = status.st_mode & 07777;
    if (fchown(fd, status.st_uid, status.st_gid) != 0)
        nMode &= 0777;  // no set-user bit for another user
    static_cast<void>(fchmod(fd, nMode));
}
}  // namespace

int native_file::Open(const char* pszPath, UINT nOpenFlags, INT_PTR& hFile)
{
    int nFlags = O_CLOEXEC;
    switch (nOpenFlags & 3)
    {
        case CFile::modeRead:
            nFlags |= O_RDONLY;
            break;
        case CFile::modeWrite:
            nFlags |= O_WRONLY;
            break;
        default:
            nFlags |= O_RDWR;
            break;
    }
    if ((nOpenFlags & CFile::modeCreate) != 0)
        nFlags |= O_CREAT | O_TRUNC;
    int fd;
    do
    {
        fd = open(pszPath, nFlags, 0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return errno;
    struct stat status;
    if (fstat(fd, &status) == 0 && S_ISDIR(status.st_mode))
    {
        close(fd);
        return EISDIR;
    }
    hFile = fd;
    return 0;
}

int native_file::Read(INT_PTR hFile, void* pBuffer, UINT nCount, UINT& nRead)
{
    nRead = 0;
    while (nRead < nCount)
    {
        const ssize_t n =
            read(static_cast<int>(hFile), static_cast<BYTE*>(pBuffer) + nRead, nCount - nRead);
        if (n == 0)
            break;
        if (n > 0)
            nRead += static_cast<UINT>(n);
        else if (errno != EINTR)
            return errno;
    }
    return 0;
}

int native_file::Write(INT_PTR hFile, const void* pBuffer, UINT nCount)
{
    const auto* p = static_cast<const BYTE*>(pBuffer);
    while (nCount > 0)
    {
        const ssize_t n = write(static_cast<int>(hFile), p, nCount);
        if (n > 0)
        {
            p += n;
            nCount -= static_cast<UINT>(n);
        }
        else if (n == 0 || errno != EINTR)
        {
            return n == 0 ? EIO : errno;
        }
    }
    return 0;
}

int native_file::Seek(INT_PTR hFile, LONGLONG nOffset, UINT nFrom, ULONGLONG& nPosition)
{
    constexpr int aFrom[] = { SEEK_SET, SEEK_CUR, SEEK_END };
    if (nFrom > CFile::end)
        return EINVAL;
    const off_t n = lseek(static_cast<int>(hFile), nOffset, aFrom[nFrom]);
    nPosition = static_cast<ULONGLONG>(n);
    return ErrorOf(n < 0);
}

int native_file::GetLength(INT_PTR hFile, ULONGLONG& nLength)
{
    struct stat status;
    const bool bFailed = fstat(static_cast<int>(hFile), &status) != 0;
    nLength = bFailed ? 0 : static_cast<ULONGLONG>(status.st_size);
    return ErrorOf(bFailed);
}

int native_file::Close(INT_PTR hFile)
{
    // After EINTR the descriptor is gone all the same.
    return ErrorOf(close(static_cast<int>(hFile)) != 0 && errno != EINTR);
}

int native_file::Remove(const char* pszPath)
{
    return ErrorOf(unlink(pszPath) != 0);
}

// Owner and mode were taken over when the new file was made.
int native_file::Replace(const char* pszNew, const char* pszTarget)
{
    return ErrorOf(rename(pszNew, pszTarget) != 0);
}

int native_file::FindTarget(const char* pszPath, CString& strTarget, bool& bReplaceable)
{
    constexpr int nMaxLinks = 40;
    std::string path(pszPath);
    char szLink[PATH_MAX];
    // Not realpath: the last link may point to a file that does not exist yet.
    for (int nLinks = 0;; ++nLinks)
    {
        const ssize_t n = readlink(path.c_str(), szLink, sizeof(szLink));
        if (n < 0 || n == static_cast<ssize_t>(sizeof(szLink)))
            break;
        if (nLinks == nMaxLinks)
            return ELOOP;
        const std::string_view link(szLink, static_cast<std::size_t>(n));
        path = (link.starts_with('/') ? std::string() : std::string(FolderOf(path))) +
               std::string(link);
    }
    strTarget = path.c_str();
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
    {
        bReplaceable = errno == ENOENT && !path.empty() && !path.ends_with('/');
        return bReplaceable ? 0 : errno;
    }
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    bReplaceable = S_ISREG(status.st_mode);
    // The folder alone decides about a rename, but a file that may not be written stays.
    return ErrorOf(bReplaceable && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0);
}

int native_file::CreateBeside(const char* pszTarget, CString& strTemporary, INT_PTR& hFile)
{
    static std::atomic<unsigned> s_nNumber = 0;
    constexpr int nMaxTries = 1000;
    // A name of its own and not the target's with an ending, which might become too long.
    const std::string prefix =
        std::string(FolderOf(pszTarget)) + ".mivora-" + std::to_string(getpid()) + "-";
    for (int nTry = 0; nTry < nMaxTries; ++nTry)
    {
        const std::string name = prefix + std::to_string(s_nNumber++) + ".tmp";
        const int fd = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0)
        {
            TakeOverMode(fd, pszTarget);
            strTemporary = name.c_str();
            hFile = fd;
            return 0;
        }
        if (errno != EEXIST && errno != EINTR)
            return errno;
    }
    return EEXIST;
}

// The system has one number for a missing file and for a missing folder.
int native_file::CauseOf(int nError, const char* pszPath)
{
    const std::string folder(FolderOf(pszPath));
    if (nError == ENOENT && !folder.empty() && access(folder.c_str(), F_OK) != 0)
        return CFileException::badPath;
    return CFileException::OsErrorToException(nError);
}

int CFileException::OsErrorToException(LONG lOsError)
{
    static constexpr struct
    {
        int nError;
        int nCause;
    } s_aCauses[] = {
        { 0, none },
        { ENOENT, fileNotFound },
        { ENOTDIR, badPath },
        { ENAMETOOLONG, badPath },
        { ELOOP, badPath },
        { EMFILE, tooManyOpenFiles },
        { ENFILE, tooManyOpenFiles },
        { EACCES, accessDenied },
        { EPERM, accessDenied },
        { EROFS, accessDenied },
        { EISDIR, accessDenied },
        { EEXIST, accessDenied },
        { EBADF, invalidFile },
        { EINVAL, badSeek },
        { ESPIPE, badSeek },
        { EIO, hardIO },
        { EBUSY, sharingViolation },
        { ETXTBSY, sharingViolation },
        { EDEADLK, lockViolation },
        { ENOLCK, lockViolation },
        { ENOSPC, diskFull },
        { EDQUOT, diskFull },
        { EFBIG, diskFull },
    };
    for (const auto& row : s_aCauses)
    {
        if (row.nError == lOsError)
            return row.nCause;
    }
    return genericException;
}

void UsePathsInUtf8() {}
