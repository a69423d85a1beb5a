// Files: positions, faults of every operation, replacing whole, memory.
#include <cstdlib>

#include "platform/base/file_case.h"
#include "platform/base/system.h"
#include "system_errors.h"

namespace
{
namespace fs = std::filesystem;

EFileOperation g_eFailing;
int g_nPassesLeft;
int FailOne(EFileOperation eOperation, const char*)
{
    return eOperation == g_eFailing && g_nPassesLeft-- == 0 ? SYSTEM_DISK_FULL : 0;
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
    const std::string below = Path("file") + "/x";
    Put(Path("file"), "x");
    const std::string folder = m_folder.Path().string();
    ExpectNoneOpens({
        { Path("none"), CFile::modeRead, CFileException::fileNotFound },
        { below, nCreateWrite, CFileException::badPath },
        { folder, nCreateWrite, CFileException::accessDenied },
        { folder, CFile::modeRead, CFileException::accessDenied },
    });
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
                Put(path, "old");
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

TEST_F(CFileTest, ALongNameHasRoomForItsTemporary)
{
    const std::string path = Path(std::string(255, 'n').c_str());
    Save(path, "content");
    EXPECT_EQ(Content(path), "content");
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
