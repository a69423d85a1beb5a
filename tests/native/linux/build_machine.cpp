// The machine itself.
#include "native/build_machine.h"

#include <sys/wait.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

CCommandResult RunCommand(const std::string& strCommand)
{
    CCommandResult result;
    FILE* pPipe = popen(("{ " + strCommand + "; } 2>&1").c_str(), "r");
    if (pPipe == nullptr)
        return result;
    char aBuffer[4096];
    while (const std::size_t nRead = fread(aBuffer, 1, sizeof aBuffer, pPipe))
        result.m_strOutput.append(aBuffer, nRead);
    const int nStatus = pclose(pPipe);
    result.m_nStatus = WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
    return result;
}

std::string NativePath(const std::filesystem::path& path)
{
    return path.string();
}

// The test makes the locale that it needs: German has the comma.
bool SetCommaLocale(const std::filesystem::path& folder)
{
    // A warning is status 1: what counts is whether the locale works.
    RunCommand("localedef -i de_DE -f UTF-8 " + folder.string() + "/de_DE.UTF-8");
    setenv("LOCPATH", folder.c_str(), 1);
    return std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr &&
           *std::localeconv()->decimal_point == ',';
}
