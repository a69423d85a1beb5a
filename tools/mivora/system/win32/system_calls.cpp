// Folders, terminals and the words for errors, by Windows.
#include "system/system_calls.h"

#include "platform/base/win32/wide_text.h"
#include "report.h"

namespace
{
bool IsFolder(const std::wstring& path)
{
    const DWORD nAttributes = GetFileAttributesW(path.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES && (nAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// With those above it. Gives the error, 0 for none.
DWORD MakeFolders(const std::wstring& path)
{
    const auto make = [&]() -> DWORD
    {
        const DWORD nError = CreateDirectoryW(path.c_str(), nullptr) ? 0 : GetLastError();
        return nError == 0 || IsFolder(path) ? 0 : nError;
    };
    const DWORD nError = make();
    const size_t nAbove = path.find_last_of(L"/\\");
    if (nError != ERROR_PATH_NOT_FOUND || nAbove == std::wstring::npos || nAbove == 0)
        return nError;
    return MakeFolders(path.substr(0, nAbove)) == 0 ? make() : nError;
}
}  // namespace

std::string SystemErrorText(long nError)
{
    wchar_t szText[512] = L"";
    DWORD nLength =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(nError), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       szText, static_cast<DWORD>(std::size(szText)), nullptr);
    while (nLength > 0 && (szText[nLength - 1] <= L' ' || szText[nLength - 1] == L'.'))
        --nLength;
    if (nError == 0 || nLength == 0)
        return "unknown error";
    return FromWide(std::wstring_view(szText, nLength), CP_UTF8).value_or(std::string());
}

void MakeFolder(const std::string& strPath)
{
    const DWORD nError = MakeFolders(ToWide(strPath, CP_UTF8));
    if (nError != 0)
    {
        throw CFailure{ "cannot make the folder " + strPath + ": " +
                        SystemErrorText(static_cast<long>(nError)) };
    }
}

bool IsErrorTerminal()
{
    const HANDLE hError = GetStdHandle(STD_ERROR_HANDLE);
    DWORD nMode = 0;
    return GetConsoleMode(hError, &nMode) &&
           SetConsoleMode(hError, nMode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}
