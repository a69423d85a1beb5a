// What tests use of the machine that they were built on: its commands, its paths, a locale. Under
// Wine that is the system beneath.
#pragma once

#include <filesystem>
#include <string>

struct CCommandResult
{
    int m_nStatus = -1;  // -1: not started, or not ended in time
    std::string m_strOutput;
};

// Runs a line of the POSIX shell and gives what it wrote on both its streams.
CCommandResult RunCommand(const std::string& strCommand);

// The name of a file as those commands know it.
std::string NativePath(const std::filesystem::path& path);

// Gives the process a locale whose decimal point is a comma; files for it go to the folder. False
// if there is none to be had. Until setlocale says otherwise.
bool SetCommaLocale(const std::filesystem::path& folder);
