// Files: positions, faults of every operation, replacing whole, memory.
#include "archived.h"
#include "platform/base/file_case.h"
#include "platform/base/system.h"
#include "system_errors.h"

namespace
{
EFileOperation g_eFailing;
int g_nPassesLeft;
int FailOne(EFileOperation eOperation, const char*)
{
    return eOperation == g_eFailing && g_nPassesLeft-- == 0 ? SYSTEM_DISK_FULL : 0;
}

int SeekFault(CFile& file, LONGLONG nOffset, UINT nFrom)
{
    return FileFault([&] { file.Seek(nOffset, nFrom); }).first;
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
    EXPECT_EQ(SeekFault(again, -1, CFile::begin), CFileException::badSeek);
    again.Seek(7, CFile::begin);
    EXPECT_EQ(ReadRest(again), (std::vector<BYTE>{ '7', '8', '9' }));
}

TEST_F(CFileTest, TellsWhyItCannotOpen)
{
    Put(Path("file"), "x");
    const std::string folder = m_folder.Path().string();
    ExpectNoneOpens({
        { Path("none"), CFile::modeRead, CFileException::fileNotFound },
        { Path("file/x"), nCreateWrite, CFileException::badPath },
        { folder, nCreateWrite, CFileException::accessDenied },
        { folder, CFile::modeRead, CFileException::accessDenied },
    });
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(CFileTest, EveryFaultLeavesTheOldFile)
{
    const std::string path = Path("target");
    const std::pair<EFileOperation, int> aCases[] = { { fileOpOpen, 0 },  { fileOpWrite, 0 },
                                                      { fileOpWrite, 1 }, { fileOpFlush, 0 },
                                                      { fileOpClose, 0 }, { fileOpRename, 0 } };
    for (const bool bExists : { false, true })
    {
        if (bExists)
            Put(path, "old");
        for (const auto& [eOperation, nPasses] : aCases)
        {
            g_eFailing = eOperation;
            g_nPassesLeft = nPasses;
            g_pfnFileFault = FailOne;
            EXPECT_EQ(FileFault([&] { Save(path, "new content"); }).first, CFileException::diskFull)
                << eOperation;
            EXPECT_EQ(Content(path), bExists ? "old" : "");
            EXPECT_EQ(FilesInFolder(), bExists ? 1U : 0U) << eOperation;
        }
        g_pfnFileFault = nullptr;
    }
    // A name of any length has room for that of its temporary.
    for (const std::string& strPath : { path, Path(std::string(255, 'n')) })
    {
        Save(strPath, "new content");
        EXPECT_EQ(Content(strPath), "new content");
    }
    EXPECT_EQ(FilesInFolder(), 2U);
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

TEST(CMemFile, GrowsInStepsAndFillsGapsWithZero)
{
    CMemFile file(16);
    file.Write("abc", 3);
    file.Seek(5, CFile::begin);
    file.Write("f", 1);
    file.Seek(39, CFile::begin);
    file.Write("x", 1);
    EXPECT_EQ(BytesOf(file), std::string("abc\0\0f", 6) + std::string(33, '\0') + "x");
    EXPECT_EQ(SeekFault(file, -41, CFile::end), CFileException::badSeek);
    EXPECT_EQ(SeekFault(file, 0, 3), CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 40U);
    char aRead[10];
    EXPECT_EQ(file.Seek(2, CFile::end), 42U);
    EXPECT_EQ(file.Read(aRead, 10), 0U);
    EXPECT_EQ(file.Seek(-40, CFile::current), 2U);
    EXPECT_EQ(file.Read(aRead, 4), 4U);
    EXPECT_EQ(std::string_view(aRead, 4), std::string_view("c\0\0f", 4));
    file.Seek(INT64_MAX, CFile::begin);
    EXPECT_THROW(file.Write("x", 1), CMemoryException*);
    file.Close();
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("again", 5);
    EXPECT_EQ(BytesOf(file), "again");
}

TEST(CSharedFile, HandsOutItsBlock)
{
    CSharedFile file(0x2042, 16);
    EXPECT_EQ(file.Detach(), nullptr);
    const std::string text(100, 't');
    file.Write(text.data(), 10);
    file.Write(text.data(), 90);  // the block grows
    HGLOBAL hMemory = file.Detach();
    EXPECT_EQ(file.GetLength(), 0U);
    hMemory = GlobalReAlloc(hMemory, 100, 0x2042);
    ASSERT_EQ(GlobalSize(hMemory), 100U);
    EXPECT_EQ(std::string(static_cast<const char*>(GlobalLock(hMemory)), 100), text);
    GlobalUnlock(hMemory);
    GlobalFree(hMemory);
}
