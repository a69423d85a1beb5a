// What an independent reader says of a metafile.
#pragma once

#include "platform/gdi/gdi.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// A folder of its own for a test, gone with it.
class CTestFolder
{
public:
    CTestFolder()
    {
        std::string strName = (std::filesystem::temp_directory_path() / "emf_XXXXXX").string();
        if (mkdtemp(strName.data()))
            m_path = strName;
    }
    ~CTestFolder() { std::filesystem::remove_all(m_path); }
    std::string File(const char* pszName) const { return (m_path / pszName).string(); }
    std::filesystem::path m_path;
};

inline std::string ReadFile(const std::string& strPath)
{
    std::ifstream file(strPath, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

inline void WriteFile(const std::string& strPath, const std::string& strBytes)
{
    std::ofstream(strPath, std::ios::binary) << strBytes;
}

inline std::string MetafileBytes(HENHMETAFILE hMetaFile)
{
    std::string strBytes(GetEnhMetaFileBits(hMetaFile, 0, nullptr), '\0');
    GetEnhMetaFileBits(hMetaFile, static_cast<UINT>(strBytes.size()),
                       reinterpret_cast<BYTE*>(strBytes.data()));
    return strBytes;
}

// Lines of a command's output; fails the test if it does not end well.
inline std::vector<std::string> RunLines(const std::string& strCommand)
{
    std::vector<std::string> lines;
    FILE* pPipe = popen((strCommand + " 2>&1").c_str(), "r");
    if (!pPipe)
    {
        ADD_FAILURE() << strCommand;
        return lines;
    }
    std::string strOutput;
    char aBuffer[4096];
    while (std::size_t nRead = fread(aBuffer, 1, sizeof aBuffer, pPipe))
        strOutput.append(aBuffer, nRead);
    EXPECT_EQ(pclose(pPipe), 0) << strCommand << '\n' << strOutput;
    for (std::size_t nStart = 0, nEnd; nStart < strOutput.size(); nStart = nEnd + 1)
    {
        nEnd = std::min(strOutput.find('\n', nStart), strOutput.size());
        lines.push_back(strOutput.substr(nStart, nEnd - nStart));
    }
    return lines;
}

using CRecordLines = std::vector<std::string>;

// One line a record; the dumper checks all lengths, counts and handles as well. It is asked for all
// metafiles at once: to start it takes longer than to read them.
inline std::vector<CRecordLines> DumpRecords(const std::vector<std::string>& metafiles)
{
    CTestFolder folder;
    std::string strCommand = "python3 " MIVORA_TEST_DATA "/../tools/emf_dump.py";
    for (std::size_t i = 0; i < metafiles.size(); ++i)
    {
        std::string strFile = folder.File(std::to_string(i).c_str());
        WriteFile(strFile, metafiles[i]);
        strCommand += ' ' + strFile;
    }
    std::vector<CRecordLines> dumps;
    for (const std::string& strLine : RunLines(strCommand))
    {
        if (strLine.starts_with("HEADER "))
            dumps.emplace_back();
        if (!dumps.empty())
            dumps.back().push_back(strLine);
    }
    EXPECT_EQ(dumps.size(), metafiles.size());
    dumps.resize(metafiles.size());
    return dumps;
}

inline CRecordLines DumpRecords(const std::string& strMetafile)
{
    return DumpRecords(std::vector<std::string>{ strMetafile }).front();
}
