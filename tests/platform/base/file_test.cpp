// Files: positions, faults of every operation, replacing whole, memory.
#include "platform/base/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "platform/base/exception.h"
#include "platform/base/system.h"

namespace
{
namespace fs = std::filesystem;

class CFileTest : public ::testing::Test
{
protected:
    CFileTest()
    {
        std::string name = (fs::temp_directory_path() / "mivora-file-test-XXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~CFileTest() override
    {
        g_pfnFileFault = nullptr;
        fs::remove_all(m_folder);
    }

    std::string Path(const char* pszName) const { return (m_folder / pszName).string(); }
    static std::string Content(const std::string& path)
    {
        std::ostringstream stream;
        stream << std::ifstream(path, std::ios::binary).rdbuf();
        return stream.str();
    }
    static void Put(const std::string& path, const std::string& content)
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    std::size_t FilesInFolder() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()));
    }

    fs::path m_folder;
};

constexpr UINT nCreateWrite = CFile::modeCreate | CFile::modeWrite;

EFileOperation g_eFailing;
int g_nPassesLeft;
int FailOne(EFileOperation eOperation, const char*)
{
    return eOperation == g_eFailing && g_nPassesLeft-- == 0 ? ENOSPC : 0;
}

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

void Save(const std::string& path, const char* pszText)
{
    CMirrorFile file;
    CFileException error;
    if (!file.Open(path.c_str(), nCreateWrite, &error))
    {
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    }
    const std::string_view text(pszText);
    file.Write(text.data(), static_cast<UINT>(text.size() / 2));
    file.Write(text.data() + text.size() / 2, static_cast<UINT>(text.size() - text.size() / 2));
    file.Flush();
    file.Close();
}
}  // namespace

TEST_F(CFileTest, WritesAndReadsAtPositions)
{
    const std::string path = Path("a");
    CFile file(path.c_str(), nCreateWrite);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.Seek(-4, CFile::end), 6U);
    file.Write("x", 1);
    EXPECT_EQ(file.GetPosition(), 7U);
    file.SetLength(8);
    file.Close();
    EXPECT_EQ(Content(path), "012345x7");

    CFile again(path.c_str(), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
    char aRead[20];
    EXPECT_EQ(again.Seek(2, CFile::begin), 2U);
    EXPECT_EQ(again.Read(aRead, 20), 6U);
    EXPECT_EQ(again.Read(aRead, 20), 0U);
    EXPECT_EQ(again.GetLength(), 8U);
    EXPECT_EQ(FileFault([&] { again.Seek(-1, CFile::begin); }).first, CFileException::badSeek);
}

TEST_F(CFileTest, TellsWhyItCannotOpen)
{
    const std::string missing = Path("none");
    const std::string below = Path("file") + "/x";
    Put(Path("file"), "x");
    const struct
    {
        std::string path;
        UINT nFlags;
        int nCause;
    } aCases[] = {
        { missing, CFile::modeRead, CFileException::fileNotFound },
        { missing + "/x", nCreateWrite, CFileException::fileNotFound },
        { below, nCreateWrite, CFileException::badPath },
        { m_folder.string(), nCreateWrite, CFileException::accessDenied },
        { m_folder.string(), CFile::modeRead, CFileException::accessDenied },
        { Path(std::string(300, 'n').c_str()), nCreateWrite, CFileException::badPath },
        { "", nCreateWrite, CFileException::fileNotFound },
    };
    for (const auto& c : aCases)
    {
        for (CFile* pFile :
             { static_cast<CFile*>(new CFile), static_cast<CFile*>(new CMirrorFile) })
        {
            const std::unique_ptr<CFile> owner(pFile);
            CFileException error;
            EXPECT_FALSE(pFile->Open(c.path.c_str(), c.nFlags, &error));
            EXPECT_EQ(error.m_cause, c.nCause) << c.path;
            EXPECT_EQ(error.m_strFileName, c.path.c_str());
            EXPECT_FALSE(pFile->Open(c.path.c_str(), c.nFlags));
        }
        EXPECT_EQ(FileFault([&] { CFile file(c.path.c_str(), c.nFlags); }).first, c.nCause);
    }
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(CFileTest, EveryFaultLeavesTheOldFile)
{
    const std::string path = Path("target");
    const struct
    {
        EFileOperation eOperation;
        int nPasses;
    } aCases[] = {
        { fileOpOpen, 0 },  { fileOpWrite, 0 }, { fileOpWrite, 1 },
        { fileOpFlush, 0 }, { fileOpClose, 0 }, { fileOpRename, 0 },
    };
    for (const auto& c : aCases)
    {
        for (const bool bExists : { true, false })
        {
            fs::remove(path);
            if (bExists)
            {
                Put(path, "old");
            }
            g_eFailing = c.eOperation;
            g_nPassesLeft = c.nPasses;
            g_pfnFileFault = FailOne;
            EXPECT_EQ(FileFault([&] { Save(path, "new content"); }).first, CFileException::diskFull)
                << c.eOperation;
            g_pfnFileFault = nullptr;
            EXPECT_EQ(Content(path), bExists ? "old" : "");
            EXPECT_EQ(FilesInFolder(), bExists ? 1U : 0U) << c.eOperation;
        }
    }
    Save(path, "new content");
    EXPECT_EQ(Content(path), "new content");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(CFileTest, AFileGivenUpLeavesTheOldOne)
{
    const std::string path = Path("target");
    Put(path, "old");
    {
        CMirrorFile file;
        ASSERT_TRUE(file.Open(path.c_str(), nCreateWrite));
        file.Write("new", 3);
        EXPECT_EQ(Content(path), "old");
        EXPECT_EQ(FilesInFolder(), 2U);
    }
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
    CMirrorFile file;
    ASSERT_TRUE(file.Open(path.c_str(), nCreateWrite));
    file.Abort();
    file.Close();
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(CFileTest, LinksAndModesStay)
{
    const std::string target = Path("target");
    const std::string link = Path("link");
    fs::create_directory(m_folder / "sub");
    fs::create_symlink("sub/../target", link);
    Save(link, "first");  // the link's end does not exist yet
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(target), "first");

    chmod(target.c_str(), 0640);
    Save(link, "second");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(target), "second");
    struct stat status;
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    const std::string fresh = Path("fresh");
    const mode_t nOld = umask(027);
    Save(fresh, "x");
    umask(nOld);
    ASSERT_EQ(stat(fresh.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    fs::create_symlink("loop", m_folder / "loop");
    EXPECT_EQ(FileFault([&] { Save(Path("loop"), "x"); }).first, CFileException::badPath);
}

TEST_F(CFileTest, ALongNameHasRoomForItsTemporary)
{
    const std::string path = Path(std::string(255, 'n').c_str());
    Save(path, "content");
    EXPECT_EQ(Content(path), "content");
}

TEST_F(CFileTest, WhatIsNoRegularFileIsWrittenDirectly)
{
    Save("/dev/null", "content");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));

    const std::string pipe = Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    CFile reader(pipe.c_str(), CFile::modeReadWrite);  // so that nobody waits for the other end
    Save(pipe, "content");
    char aRead[7];
    EXPECT_EQ(reader.Read(aRead, 7), 7U);
    EXPECT_EQ(std::string_view(aRead, 7), "content");
    EXPECT_TRUE(fs::is_fifo(pipe));

    EXPECT_EQ(FileFault([] { Save("/dev/full", "content"); }).first, CFileException::diskFull);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(CMemFile, GrowsInStepsAndFillsGapsWithZero)
{
    CMemFile file(16);
    file.Write("abc", 3);
    file.Seek(5, CFile::begin);
    file.Write("f", 1);
    file.SetLength(40);
    file.Seek(-1, CFile::end);
    file.Write("x", 1);
    EXPECT_EQ(file.GetLength(), 40U);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(file.GetData()), 40),
              std::string("abc\0\0f", 6) + std::string(33, '\0') + "x");
    file.SetLength(4);
    EXPECT_EQ(file.GetPosition(), 4U);
    EXPECT_EQ(FileFault([&] { file.Seek(-5, CFile::end); }).first, CFileException::badSeek);
    char aRead[10];
    EXPECT_EQ(file.Read(aRead, 10), 0U);
    file.SetLength(6);  // what was cut off does not come back
    file.SeekToBegin();
    EXPECT_EQ(file.Read(aRead, 10), 6U);
    EXPECT_EQ(std::string_view(aRead, 6), std::string_view("abc\0\0\0", 6));
    file.Seek(INT64_MAX, CFile::begin);
    EXPECT_THROW(file.Write("x", 1), CMemoryException*);

    BYTE* pDetached = file.Detach();
    EXPECT_EQ(pDetached[2], 'c');
    std::free(pDetached);
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("again", 5);
    EXPECT_EQ(file.GetLength(), 5U);
}

TEST(CMemFile, WorksOnTheCallersMemory)
{
    BYTE aBytes[] = { 'a', 'b', 'c' };
    CMemFile file(aBytes, 3);
    char aRead[4];
    EXPECT_EQ(file.Read(aRead, 4), 3U);
    file.SeekToBegin();
    file.Write("x", 1);
    EXPECT_EQ(aBytes[0], 'x');
    EXPECT_THROW(file.Write("12345", 3), CMemoryException*);
    file.Close();

    file.Attach(static_cast<BYTE*>(std::malloc(4)), 4, 4);
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("123456", 6);
    EXPECT_EQ(file.GetLength(), 6U);
}

TEST(CSharedFile, HandsOutItsBlock)
{
    CSharedFile file(0x2042, 16);
    EXPECT_EQ(file.Detach(), nullptr);
    const std::string text(100, 't');
    file.Write(text.data(), 100);
    const auto nLength = static_cast<SIZE_T>(file.GetLength());
    HGLOBAL hMemory = file.Detach();
    ASSERT_NE(hMemory, nullptr);
    EXPECT_EQ(file.GetLength(), 0U);
    hMemory = GlobalReAlloc(hMemory, nLength, 0x2042);
    EXPECT_EQ(GlobalSize(hMemory), 100U);

    CSharedFile reader;
    reader.SetHandle(hMemory);
    std::string read(200, '\0');
    EXPECT_EQ(reader.Read(read.data(), 200), 100U);
    EXPECT_EQ(read.substr(0, 100), text);
    reader.Write("more", 4);
    EXPECT_EQ(reader.GetLength(), 104U);
}
