// What an independent reader says of a metafile.
#pragma once

#include "native/build_machine.h"
#include "platform/gdi/native_gdi.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

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
    const CCommandResult result = RunCommand(strCommand);
    EXPECT_EQ(result.m_nStatus, 0) << strCommand << '\n' << result.m_strOutput;
    std::vector<std::string> lines;
    const std::string& strOutput = result.m_strOutput;
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
    std::string strCommand = "python3 " + NativePath(MIVORA_TEST_DATA "/../tools/emf_dump.py");
    for (std::size_t i = 0; i < metafiles.size(); ++i)
    {
        std::string strFile = folder.File(std::to_string(i).c_str());
        WriteFile(strFile, metafiles[i]);
        strCommand += ' ' + NativePath(strFile);
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

// The bytes of a metafile that was drawn on, as it is saved.
inline std::string Record(const std::function<void(HDC)>& draw, const RECT* pFrame = nullptr,
                          const char* pszDescription = nullptr)
{
    HDC hDC = CreateEnhMetaFileA(nullptr, nullptr, pFrame, pszDescription);
    EXPECT_TRUE(hDC);
    draw(hDC);
    HENHMETAFILE hMetaFile = CloseEnhMetaFile(hDC);
    EXPECT_TRUE(hMetaFile);
    CTestFolder folder;
    EXPECT_TRUE(SaveEnhMetaFile(hMetaFile, folder.File("x.emf").c_str()));
    EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
    return ReadFile(folder.File("x.emf"));
}

// The value of a field in a line of the dump.
inline std::string Field(const std::string& strLine, const std::string& strName)
{
    std::size_t nStart = strLine.find(' ' + strName + '=');
    if (nStart == strLine.npos)
        return "-";
    nStart += strName.size() + 2;
    return strLine.substr(nStart, strLine.find(' ', nStart) - nStart);
}
