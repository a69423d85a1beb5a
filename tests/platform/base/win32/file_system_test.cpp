// What files are beside their bytes: attributes, sharing, devices, names beyond the code page.
#include <windows.h>

#include "platform/base/file_case.h"

namespace fs = std::filesystem;

TEST_F(CFileTest, AttributesStay)
{
    const std::string path = Path("hidden");
    Put(path, "old");
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN));
    Save(path, "new content");
    EXPECT_EQ(Content(path), "new content");
    EXPECT_NE(GetFileAttributesA(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);

    ASSERT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(FileFault([&] { Save(path, "x"); }).first, CFileException::accessDenied);
    EXPECT_EQ(Content(path), "new content");
    EXPECT_EQ(FilesInFolder(), 1U);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

// A reader that lets nobody write keeps the old file in its place.
TEST_F(CFileTest, SharingIsAsItWasAskedFor)
{
    const std::string path = Path("shared");
    Put(path, "old");
    const struct
    {
        UINT nShare;
        bool bOthersRead;
        bool bOthersWrite;
    } aCases[] = {
        { CFile::shareDenyNone, true, true },
        { CFile::shareDenyWrite, true, false },
        { CFile::shareDenyRead, false, true },
        { CFile::shareExclusive, false, false },
    };
    for (const auto& row : aCases)
    {
        CFile owner(path.c_str(), CFile::modeReadWrite | row.nShare);
        CFile other;
        CFileException error;
        EXPECT_EQ(other.Open(path.c_str(), CFile::modeRead | CFile::shareDenyNone, &error) != FALSE,
                  row.bOthersRead);
        EXPECT_EQ(
            other.Open(path.c_str(), CFile::modeWrite | CFile::shareDenyNone, &error) != FALSE,
            row.bOthersWrite);
        EXPECT_EQ(error.m_cause == CFileException::sharingViolation,
                  !row.bOthersRead || !row.bOthersWrite);
    }
    CFile reader(path.c_str(), CFile::modeRead | CFile::shareDenyWrite);
    EXPECT_NE(FileFault([&] { Save(path, "x"); }).first, CFileException::none);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(CFileTest, WhatIsNoRegularFileIsWrittenDirectly)
{
    Save("NUL", "content");
    EXPECT_FALSE(fs::exists(m_folder.Path() / "NUL.tmp"));
    EXPECT_EQ(FilesInFolder(), 0U);

    const char szPipe[] = "\\\\.\\pipe\\mivora-file-test";
    const HANDLE hPipe =
        CreateNamedPipeA(szPipe, PIPE_ACCESS_INBOUND, PIPE_TYPE_BYTE, 1, 0, 100, 0, nullptr);
    ASSERT_NE(hPipe, INVALID_HANDLE_VALUE);
    CFile writer;
    ASSERT_TRUE(writer.Open(szPipe, CFile::modeWrite));
    writer.Write("content", 7);
    char aRead[7];
    DWORD nRead = 0;
    EXPECT_TRUE(ReadFile(hPipe, aRead, sizeof aRead, &nRead, nullptr));
    EXPECT_EQ(std::string_view(aRead, nRead), "content");
    CloseHandle(hPipe);
}

// From here on the process takes paths as UTF-8; those of the other tests are ASCII.
TEST_F(CFileTest, PathsMayBeUtf8)
{
    const std::string name = "\xE5\x85\xAC\xE5\xBC\x8F \xD1\x84.fml";  // Chinese and Cyrillic
    const fs::path wide = m_folder.Path() / L"\u516C\u5F0F \u0444.fml";
    const std::string path = m_folder.Path().string() + "\\" + name;  // ASCII but for the name
    UsePathsInUtf8();
    Save(path, "content");
    EXPECT_EQ(Content(wide), "content");
    CFile::Remove(path.c_str());
    EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(CFileTest, TellsWhatAPathLacks)
{
    ExpectNoneOpens({
        { Path("none") + "\\x", nCreateWrite, CFileException::badPath },
        { Path("a|b"), nCreateWrite, CFileException::badPath },
        { "", nCreateWrite, CFileException::badPath },
    });
    EXPECT_EQ(FilesInFolder(), 0U);
}
