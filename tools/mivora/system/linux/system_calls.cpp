#include "system/system_calls.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/base/system.h"
#include "report.h"

void MakeFolder(const std::string& strPath)
{
    struct stat status;
    if (mkdir(strPath.c_str(), 0777) == 0)
        return;
    const int nError = errno;
    if (stat(strPath.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        throw CFailure{ "cannot make the folder " + strPath + ": " + SystemErrorText(nError) };
}

bool IsErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

std::string SystemErrorText(long nError)
{
    char szText[256] = "";
    if (nError <= 0 ||
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(nError), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       szText, sizeof szText, nullptr) == 0)
    {
        return "unknown error";
    }
    std::string strText = szText;
    while (!strText.empty() && strText.back() == '.')
        strText.pop_back();
    return strText;
}
