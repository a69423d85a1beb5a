// Folders, terminals and the words for errors, by POSIX.
#include "system/system_calls.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "platform/base/system.h"
#include "report.h"

void MakeFolder(const std::string& strPath)
{
    std::error_code error;
    std::filesystem::create_directories(strPath, error);
    if (error)
    {
        throw CFailure{ "cannot make the folder " + strPath + ": " +
                        SystemErrorText(error.value()) };
    }
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
        return "unknown error";
    std::string strText = szText;
    while (!strText.empty() && strText.back() == '.')
        strText.pop_back();
    return strText;
}
