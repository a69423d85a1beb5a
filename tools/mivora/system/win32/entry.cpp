// Where the system starts the program: words are wide, and everything behind here is UTF-8.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "batch/win32/worker_entry.h"
#include "platform/base/file.h"
#include "platform/base/win32/wide_text.h"
#include "program.h"
#include "system/win32/console.h"

// A word such as a*b is a formula: the run-time library is not to look for files of such names.
extern "C"
{
    int _dowildcard = 0;
}

namespace
{
UINT s_nConsoleCodePage = 0;  // what it was; 0: not changed

BOOL WINAPI RestoreAtBreak(DWORD)
{
    RestoreConsole();
    return FALSE;  // and end
}

bool IsConsole(DWORD nStream)
{
    DWORD nMode = 0;
    return GetConsoleMode(GetStdHandle(nStream), &nMode) != 0;
}

// The console, which outlives this program, shows UTF-8 meanwhile.
void ShowUtf8()
{
    if (!IsConsole(STD_OUTPUT_HANDLE) && !IsConsole(STD_ERROR_HANDLE))
        return;
    s_nConsoleCodePage = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCtrlHandler(RestoreAtBreak, TRUE);
}

// Lines end as the program writes them.
void KeepBytes()
{
    for (FILE* pFile : { stdin, stdout, stderr })
        _setmode(_fileno(pFile), _O_BINARY);
}

std::vector<std::string> Words(int argc, wchar_t** argv)
{
    std::vector<std::string> astrWords;
    for (int n = 1; n < argc; ++n)
        astrWords.push_back(FromWide(argv[n], CP_UTF8).value_or(std::string()));
    return astrWords;
}
}  // namespace

void RestoreConsole()
{
    if (s_nConsoleCodePage != 0)
        SetConsoleOutputCP(s_nConsoleCodePage);
}

extern "C" int wmain(int argc, wchar_t** argv)
{
    UsePathsInUtf8();
    KeepBytes();
    const std::vector<std::string> astrWords = Words(argc, argv);
    std::vector<const char*> apszWords;
    for (const std::string& strWord : astrWords)
        apszWords.push_back(strWord.c_str());
    if (apszWords.size() == 3 && astrWords[0] == WORKER_WORD)
        return RunWorker(apszWords[1], apszWords[2]);
    ShowUtf8();
    const int nStatus = RunMivora(static_cast<int>(apszWords.size()), apszWords.data());
    RestoreConsole();
    return nStatus;
}
