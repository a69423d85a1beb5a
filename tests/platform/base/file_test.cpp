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
    file.Close();
    EXPECT_EQ(Content(path), "012345x789");

    CFile again(path.c_str(), CFile::modeReadWrite);
    char aRead[20];
    EXPECT_EQ(again.Seek(2, CFile::begin), 2U);
    EXPECT_EQ(again.Read(aRead, 20), 8U);
    EXPECT_EQ(again.Read(aRead, 20), 0U);
    EXPECT_EQ(again.GetLength(), 10U);
    EXPECT_EQ(FileFault([&] { again.Seek(-1, CFile::begin); }).first, CFileException::badSeek);
    again.Seek(7, CFile::begin);
    EXPECT_EQ(ReadRest(again), (std::vector<BYTE>{ '7', '8', '9' }));
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
    for (const bool bAborted : { false, true })
    {
        {
            CMirrorFile file;
            ASSERT_TRUE(file.Open(path.c_str(), nCreateWrite));
            file.Write("new", 3);
            EXPECT_EQ(Content(path), "old");
            EXPECT_EQ(FilesInFolder(), 2U);
            EXPECT_EQ(CMirrorFile::CountOpen(), 1);
            if (bAborted)
            {
                file.Abort();
                file.Close();
            }
        }
        EXPECT_EQ(Content(path), "old");
        EXPECT_EQ(FilesInFolder(), 1U);
        EXPECT_EQ(CMirrorFile::CountOpen(), 0);
    }
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
    file.Seek(39, CFile::begin);
    file.Write("x", 1);
    EXPECT_EQ(file.GetLength(), 40U);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(file.GetData()), 40),
              std::string("abc\0\0f", 6) + std::string(33, '\0') + "x");
    EXPECT_EQ(FileFault([&] { file.Seek(-41, CFile::end); }).first, CFileException::badSeek);
    EXPECT_EQ(FileFault([&] { file.Seek(0, 3); }).first, CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 40U);
    char aRead[10];
    EXPECT_EQ(file.Read(aRead, 10), 0U);
    EXPECT_EQ(file.Seek(-38, CFile::current), 2U);
    EXPECT_EQ(file.Read(aRead, 4), 4U);
    EXPECT_EQ(std::string_view(aRead, 4), std::string_view("c\0\0f", 4));
    file.Seek(INT64_MAX, CFile::begin);
    EXPECT_THROW(file.Write("x", 1), CMemoryException*);
    file.Close();
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("again", 5);
    EXPECT_EQ(file.GetLength(), 5U);
}

TEST(CMemFile, WorksOnTheCallersMemory)
{
    BYTE aBytes[] = { 'a', 'b', 'c' };
    CMemFile file(aBytes, 3);
    EXPECT_EQ(ReadRest(file), (std::vector<BYTE>{ 'a', 'b', 'c' }));
    file.SeekToBegin();
    file.Write("x", 1);
    EXPECT_EQ(aBytes[0], 'x');
    EXPECT_THROW(file.Write("12345", 3), CMemoryException*);
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
    EXPECT_EQ(std::string(static_cast<const char*>(GlobalLock(hMemory)), 100), text);
    GlobalUnlock(hMemory);
    GlobalFree(hMemory);
}
