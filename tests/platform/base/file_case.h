// A folder to try files in, and the whole way of a file that is replaced.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "test_folder.h"

constexpr UINT nCreateWrite = CFile::modeCreate | CFile::modeWrite;

class CFileTest : public ::testing::Test
{
protected:
    ~CFileTest() override { g_pfnFileFault = nullptr; }

    std::string Path(const std::string& name) const { return m_folder.File(name); }
    static std::string Content(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }
    static void Put(const std::filesystem::path& path, const std::string& content)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    std::size_t FilesInFolder() const
    {
        using CEntries = std::filesystem::directory_iterator;
        return static_cast<std::size_t>(std::distance(CEntries(m_folder.Path()), CEntries()));
    }

    CTestFolder m_folder;
};

// Cause and file name of what the body throws.
template <class F>
std::pair<int, std::string> FileFault(F body)
{
    try
    {
        body();
    }
    catch (CFileException* e)
    {
        std::pair<int, std::string> result(e->m_cause, e->m_strFileName.GetString());
        e->Delete();
        return result;
    }
    return { CFileException::none, "" };
}

inline void Save(const std::string& path, std::string_view text)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(path.c_str(), nCreateWrite, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    for (const std::string_view half :
         { text.substr(0, text.size() / 2), text.substr(text.size() / 2) })
        file.Write(half.data(), static_cast<UINT>(half.size()));
    file.Flush();
    file.Close();
}

// Path, flags, and the cause that it cannot be opened for.
using CCannotOpen = std::tuple<std::string, UINT, int>;

inline void ExpectNoneOpens(const std::vector<CCannotOpen>& cases)
{
    for (const auto& [path, nFlags, nCause] : cases)
    {
        CFile plain;
        CMirrorFile mirror;
        for (CFile* pFile : { &plain, static_cast<CFile*>(&mirror) })
        {
            CFileException error;
            EXPECT_FALSE(pFile->Open(path.c_str(), nFlags, &error)) << path;
            EXPECT_EQ(error.m_cause, nCause) << path;
            EXPECT_EQ(error.m_strFileName, path.c_str());
            EXPECT_FALSE(pFile->Open(path.c_str(), nFlags));
        }
        EXPECT_EQ(CMirrorFile::CountOpen(), 0);
        EXPECT_EQ(
            FileFault([path = path, nFlags = nFlags] { CFile file(path.c_str(), nFlags); }).first,
            nCause);
    }
}
