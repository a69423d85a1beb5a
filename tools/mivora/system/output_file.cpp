// Pictures on standard output, or in a file that is whole or stays as it was.
#include "system/output_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/base/file.h"
#include "report.h"
#include "system/system_calls.h"

namespace
{
void WriteToStandardOutput(const std::string& strBytes)
{
    const bool bWritten =
        std::fwrite(strBytes.data(), 1, strBytes.size(), stdout) == strBytes.size() &&
        std::fflush(stdout) == 0;
    if (!bWritten)
        throw CFailure{ std::string("cannot write to standard output: ") + std::strerror(errno) };
}
}  // namespace

void WriteOutput(const std::string& strPath, const std::string& strBytes)
{
    if (strPath == STANDARD_OUTPUT)
        return WriteToStandardOutput(strBytes);
    const auto* pBytes = reinterpret_cast<const BYTE*>(strBytes.data());
    const LONG nError = WriteWholeFile(strPath.c_str(), { { pBytes, strBytes.size() } });
    if (nError != 0)
        throw CFailure{ "cannot write " + strPath + ": " + SystemErrorText(nError) };
}
