// What an independent reader says of a metafile.
#pragma once

#include "native/build_machine.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/native_gdi.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <sstream>
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

// What a command wrote; fails the test if it does not end well.
inline std::string RunTool(const std::string& strCommand)
{
    const CCommandResult result = RunCommand(strCommand);
    EXPECT_EQ(result.m_nStatus, 0) << strCommand << '\n' << result.m_strOutput;
    return result.m_strOutput;
}

using CRecordLines = std::vector<std::string>;
using CDraw = std::function<void(HDC)>;

// One line a record; the dumper checks all lengths, counts and handles as well. It is asked for all
// metafiles at once: to start it takes longer than to read them.
inline std::vector<CRecordLines> DumpRecords(const std::vector<std::string>& metafiles)
{
    CTestFolder folder;
    std::string strCommand = "python3 " + NativePath(MIVORA_TEST_DATA "/../tools/emf_dump.py");
    for (std::size_t i = 0; i < metafiles.size(); ++i)
    {
        const std::string strFile = folder.File(std::to_string(i));
        WriteFile(strFile, metafiles[i]);
        strCommand += ' ' + NativePath(strFile);
    }
    std::vector<CRecordLines> dumps;
    std::istringstream output(RunTool(strCommand));
    for (std::string strLine; std::getline(output, strLine);)
    {
        if (strLine.starts_with("HEADER "))
            dumps.emplace_back();
        if (!dumps.empty())
            dumps.back().push_back(strLine);
    }
    EXPECT_EQ(dumps.size(), metafiles.size());
    dumps.resize(metafiles.size(), CRecordLines(1));
    return dumps;
}

inline CRecordLines DumpRecords(const std::string& strMetafile)
{
    return DumpRecords(std::vector{ strMetafile }).front();
}

// The bytes of a metafile that was drawn on, as it is saved.
inline std::string Record(const CDraw& draw, const RECT* pFrame = nullptr,
                          const char* pszDescription = nullptr)
{
    HDC hDC = CreateEnhMetaFileA(nullptr, nullptr, pFrame, pszDescription);
    EXPECT_TRUE(hDC);
    draw(hDC);
    const CMetafilePtr pMetafile(CloseEnhMetaFile(hDC));
    const std::vector<BYTE> bytes = EnhMetaFileBytes(pMetafile.get());
    return { bytes.begin(), bytes.end() };
}

// The dump has these parts in their order. Each line begins behind a '\n'.
inline void ExpectParts(const CRecordLines& dump, const std::vector<std::string>& parts)
{
    std::string strDump;
    for (const std::string& strLine : dump)
        strDump += '\n' + strLine;
    std::size_t nPlace = 0;
    for (const std::string& strPart : parts)
    {
        nPlace = strDump.find(strPart, nPlace);
        EXPECT_NE(nPlace, strDump.npos) << strPart << strDump;
    }
}

// What a drawing is to be recorded as: with parts as above, and one text at most.
struct CRecordCase
{
    const char* pszName;
    CDraw draw;
    std::vector<std::string> parts;
};

inline void ExpectRecords(const std::vector<CRecordCase>& cases)
{
    std::vector<std::string> metafiles;
    for (const CRecordCase& c : cases)
        metafiles.push_back(Record(c.draw));
    const std::vector<CRecordLines> dumps = DumpRecords(metafiles);
    for (std::size_t i = 0; i < cases.size(); ++i)
    {
        SCOPED_TRACE(cases[i].pszName);
        ExpectParts(dumps[i], cases[i].parts);
        EXPECT_LE(std::count_if(dumps[i].begin(), dumps[i].end(),
                                [](const std::string& str) { return str.starts_with("EXTTEXT"); }),
                  1);
    }
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

// A red picture of 3 by 2, blue at its lower left, whose last two columns go to a box.
inline void DrawStretchedBitmap(HDC hDC)
{
    CMemoryPicture source(3, 2);
    Fill(source, { 0, 0, 3, 2 }, 0x0000FF);
    SetPixel(source, 0, 1, 0xFF0000);
    SetWindowOrgEx(source, 10, 20, nullptr);
    EXPECT_TRUE(StretchBlt(hDC, 4, 5, 6, 8, source, 11, 20, 2, 2, SRCCOPY));
    EXPECT_FALSE(StretchBlt(hDC, 4, 5, 6, 8, hDC, 0, 0, 2, 2, SRCCOPY));
}
