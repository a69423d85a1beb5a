// What only our own recorder and reader do: paths that only this system has, what lies behind the
// last record of a cut file, and how records are laid out.
#include "platform/gdi/emf_dump.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/raw_metafile.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstring>
#include <vector>

namespace
{

// Adds up the lengths of comments read as texts without regard to the length in the record.
int CALLBACK ReadTexts(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lParam)
{
    if (pRecord->iType == 70)
    {
        *reinterpret_cast<std::size_t*>(lParam) +=
            std::strlen(reinterpret_cast<const char*>(pRecord) + 12);
    }
    return 1;
}

}  // namespace

TEST(MetafileFiles, PipesAndDevicesWithoutAMetafileAreRefused)
{
    CTestFolder folder;
    mkfifo(folder.File("pipe").c_str(), 0600);
    EXPECT_FALSE(GetEnhMetaFileA(folder.File("pipe").c_str()));
    for (const char* pszPath : { "/dev/zero", "/dev/null" })
        EXPECT_FALSE(GetEnhMetaFileA(pszPath)) << pszPath;
}

// The sanitizer sees a step over the end. A cut file is not enumerated to its end.
TEST(MetafileFiles, TextsOfACutFileEndInsideItsMemory)
{
    const std::string strWhole = SampleMetafile();
    std::size_t nRead = 0;
    for (std::size_t nCut = 0; nCut < strWhole.size(); ++nCut)
    {
        SCOPED_TRACE(nCut);
        const std::vector<BYTE> block(strWhole.begin(),
                                      strWhole.begin() + static_cast<std::ptrdiff_t>(nCut));
        if (HENHMETAFILE hMetaFile =
                SetEnhMetaFileBits(static_cast<UINT>(block.size()), block.data()))
        {
            EXPECT_FALSE(EnumEnhMetaFile(nullptr, hMetaFile, ReadTexts, &nRead, nullptr));
            EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
        }
    }
    EXPECT_GT(nRead, 1000U);
}

// A reader that looks for letters where there are none would read on into the next record.
TEST(MetafileRecords, AnOpaqueFillEndsWithZeros)
{
    const std::string strBytes = Record(
        [](HDC hDC)
        {
            const RECT rect{ 2, 3, 102, 43 };
            ExtTextOutA(hDC, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
        });
    const CRecordLines lines = DumpRecords(strBytes);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[1].starts_with("EXTTEXTOUTW 80 ")) << lines[1];
    EXPECT_TRUE(lines[1].ends_with("text=\"\" at=76 dx= at=80")) << lines[1];
    EXPECT_EQ(strBytes.substr(108 + 76, 4), std::string(4, '\0'));
}

// 100 units are 96 pixels, and go up.
TEST(MetafileRecords, BoundsOfAFillThatGoesUp)
{
    const std::string strBytes = Record(
        [](HDC hDC)
        {
            SetHundredths(hDC);
            Fill(hDC, { 100, -100, 200, -300 }, 0);
        });
    const CRecordLines lines = DumpRecords(strBytes);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(Field(lines[0], "bounds"), "96,96,191,287");
    EXPECT_EQ(Field(lines[0], "frame"), "2540,2542,5053,7600");
}

// The source is told in pixels.
TEST(MetafileRecords, ABitmapHasPlainPixels)
{
    const std::string strBytes = Record(
        [](HDC hDC)
        {
            HDC hSource = CreateCompatibleDC(nullptr);
            HBITMAP hBitmap = CreateBitmap(3, 2, 1, 32, nullptr);
            HGDIOBJ hOld = SelectObject(hSource, hBitmap);
            SetWindowOrgEx(hSource, 10, 20, nullptr);
            EXPECT_TRUE(StretchBlt(hDC, 4, 5, 6, 8, hSource, 11, 20, 2, 2, SRCCOPY));
            SelectObject(hSource, hOld);
            DeleteObject(hBitmap);
            DeleteDC(hSource);
        });
    const CRecordLines lines = DumpRecords(strBytes);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1],
              "STRETCHBLT 172 bounds=4,5,9,12 dest=4,5,6,8 rop=00cc0020 src=1,0 "
              "xform=1,0,0,1,0,0 bk=ffffff usage=0 size=2,2 dib=40,3x2x32 info=40 bits=24");
}

// No description shows up as the size of a pixel.
TEST(MetafileFiles, FieldsThatAnOldHeaderHasNotAreZero)
{
    for (std::size_t nHeader : { 88, 100 })
    {
        SCOPED_TRACE(nHeader);
        std::string strBytes =
            MetafileOf({ CommentRecord("abc") }, nHeader, std::string("d\0e\0\0\0\0\0", 8));
        PutDword(strBytes, 60, 4);
        PutDword(strBytes, 64, static_cast<DWORD>(nHeader));
        HENHMETAFILE hMetaFile =
            MakeEnhMetaFile({ reinterpret_cast<const BYTE*>(strBytes.data()), strBytes.size() });
        ENHMETAHEADER header;
        std::memset(static_cast<void*>(&header), 0xCC, sizeof header);
        EXPECT_EQ(GetEnhMetaFileHeader(hMetaFile, sizeof header, &header), sizeof header);
        EXPECT_EQ(header.bOpenGL, 0U);
        EXPECT_EQ(header.szlMicrometers.cx, 0);
        EXPECT_EQ(GetEnhMetaFileBits(hMetaFile, 7, reinterpret_cast<BYTE*>(&header)), 0U);
        EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
    }
}
