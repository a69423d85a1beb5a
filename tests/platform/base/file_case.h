// A folder to try files in, and the whole way of a file that is replaced.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "test_folder.h"

class CFileTest : public ::testing::Test
{
protected:
    ~CFileTest() override { g_pfnFileFault = nullptr; }

    std::string Path(const char* pszName) const { return m_folder.File(pszName); }
    static std::string Content(const std::filesystem::path& path)
    {
        std::ostringstream stream;
        stream << std::ifstream(path, std::ios::binary).rdbuf();
        return stream.str();
    }
    static void Put(const std::filesystem::path& path, const std::string& content)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    std::size_t FilesInFolder() const
    {
        namespace fs = std::filesystem;
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.Path()), fs::directory_iterator()));
    }

    CTestFolder m_folder;
};

constexpr UINT nCreateWrite = CFile::modeCreate | CFile::modeWrite;

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

inline void Save(const std::string& path, const char* pszText)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(path.c_str(), nCreateWrite, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    const std::string_view text(pszText);
    file.Write(text.data(), static_cast<UINT>(text.size() / 2));
    file.Write(text.data() + text.size() / 2, static_cast<UINT>(text.size() - text.size() / 2));
    file.Flush();
    file.Close();
}

struct CCannotOpen
{
    std::string path;
    UINT nFlags;
    int nCause;
};

inline void ExpectNoneOpens(const std::vector<CCannotOpen>& cases)
{
    for (const CCannotOpen& c : cases)
    {
        CFile plain;
        CMirrorFile mirror;
        for (CFile* pFile : { &plain, static_cast<CFile*>(&mirror) })
        {
            CFileException error;
            EXPECT_FALSE(pFile->Open(c.path.c_str(), c.nFlags, &error)) << c.path;
            EXPECT_EQ(error.m_cause, c.nCause) << c.path;
            EXPECT_EQ(error.m_strFileName, c.path.c_str());
            EXPECT_FALSE(pFile->Open(c.path.c_str(), c.nFlags));
        }
        EXPECT_EQ(FileFault([&] { CFile file(c.path.c_str(), c.nFlags); }).first, c.nCause);
    }
}
