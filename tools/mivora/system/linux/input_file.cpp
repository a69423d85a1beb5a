// Input by file descriptors.
#include "system/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "report.h"
#include "system/interruption.h"
#include "system/system_calls.h"

struct CInputFile::CNative
{
    int nFile;
};

CInputFile::CInputFile() : m_strPath("-"), m_pNative(new CNative{ STDIN_FILENO }) {}

CInputFile::CInputFile(const std::string& strPath)
    : m_strPath(strPath), m_pNative(new CNative{ open(strPath.c_str(), O_RDONLY | O_CLOEXEC) })
{
    if (m_pNative->nFile < 0)
        throw CFailure{ "cannot open " + strPath + ": " + SystemErrorText(errno) };
}

CInputFile::~CInputFile()
{
    if (m_pNative->nFile != STDIN_FILENO)
        close(m_pNative->nFile);
}

std::size_t CInputFile::Read(char* pchBuffer, std::size_t nSize)
{
    if (IsInterrupted())
        return 0;
    ssize_t nRead = 0;
    do
        nRead = read(m_pNative->nFile, pchBuffer, nSize);
    while (nRead < 0 && errno == EINTR && !IsInterrupted());
    if (nRead < 0 && errno == EINTR)
        return 0;
    if (nRead < 0)
        throw CFailure{ "cannot read " + m_strPath + ": " + SystemErrorText(errno) };
    return static_cast<std::size_t>(nRead);
}

unsigned long long CInputFile::Size() const
{
    struct stat status;
    if (fstat(m_pNative->nFile, &status) != 0 || !S_ISREG(status.st_mode))
        return 0;
    return static_cast<unsigned long long>(status.st_size);
}
