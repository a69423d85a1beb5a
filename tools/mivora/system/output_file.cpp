#include "system/output_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/base/exception.h"
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
    if (strPath == s_szStandardOutput)
        return WriteToStandardOutput(strBytes);
    try
    {
        CMirrorFile file;
        CFileException error;
        if (!file.Open(strPath.c_str(), CFile::modeCreate | CFile::modeWrite, &error))
            AfxThrowFileException(error.m_cause, error.m_lOsError, strPath.c_str());
        file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
        file.Close();
    }
    catch (CFileException* pException)
    {
        const LONG nError = pException->m_lOsError;
        pException->Delete();
        throw CFailure{ "cannot write " + strPath + ": " + SystemErrorText(nError) };
    }
}
