// What only our own recorder and reader do: paths that only this system has, what lies behind the
// last record of a cut file, and how records are laid out.
#include "platform/gdi/emf_dump.h"
#include "platform/gdi/raw_metafile.h"
#include "platform/gdi/test_fonts.h"

#include <sys/stat.h>

TEST(MetafileFiles, PipesAndDevicesWithoutAMetafileAreRefused)
{
    CTestFolder folder;
    mkfifo(folder.File("pipe").c_str(), 0600);
    for (const std::string& strPath :
         { folder.File("pipe"), std::string("/dev/zero"), std::string("/dev/null") })
        EXPECT_FALSE(GetEnhMetaFileA(strPath.c_str())) << strPath;
}

// Comments are read as texts without regard to the length in the record: the sanitizer sees a step
// over the end. A cut file is not enumerated to its end.
TEST(MetafileFiles, TextsOfACutFileEndInsideItsMemory)
{
    const ENHMFENUMPROC read =
        [](HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM lParam)
    {
        if (pRecord->iType == EMR_GDICOMMENT)
        {
            *reinterpret_cast<std::size_t*>(lParam) +=
                std::strlen(reinterpret_cast<const char*>(pRecord) + 12);
        }
        return 1;
    };
    const std::string strWhole = SampleMetafile();
    std::size_t nRead = 0;
    for (std::size_t nCut = 0; nCut < strWhole.size(); ++nCut)
    {
        const std::vector<BYTE> block(strWhole.data(), strWhole.data() + nCut);
        if (HENHMETAFILE hMetaFile = MakeEnhMetaFile(block))
        {
            EXPECT_FALSE(EnumEnhMetaFile(nullptr, hMetaFile, read, &nRead, nullptr)) << nCut;
            EXPECT_TRUE(DeleteEnhMetaFile(hMetaFile));
        }
    }
    EXPECT_GT(nRead, 1000U);
}

TEST(MetafileRecords, AreLaidOutForAnyReader)
{
    // A reader that looks for letters where there are none would read on into the next record.
    const CDraw opaque = [](HDC hDC)
    {
        const RECT rect{ 2, 3, 102, 43 };
        ExtTextOutA(hDC, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    };
    EXPECT_EQ(Record(opaque).substr(108 + 76, 4), std::string(4, '\0'));
    ExpectRecords({
        { "fill", opaque, { "\nEXTTEXTOUTW 80 ", "text=\"\" at=76 dx= at=80\n" } },
        // 100 units are 96 pixels, and go up.
        { "mapped",
          [](HDC hDC)
          {
              SetHundredths(hDC);
              Fill(hDC, { 100, -100, 200, -300 }, 0);
          },
          { " bounds=96,96,191,287 ", " frame=2540,2542,5053,7600 " } },
        { "the source is told in pixels",
          DrawStretchedBitmap,
          { "\nSTRETCHBLT 172 bounds=4,5,9,12 dest=4,5,6,8 rop=00cc0020 src=1,0 xform=1,0,0,1,0,0 "
            "bk=ffffff usage=0 size=2,2 dib=40,3x2x32 info=40 bits=24\n" } },
        { "one of two colours brings them along",
          [](HDC hDC)
          {
              CMemoryPicture source(3, 2, 1);
              EXPECT_TRUE(BitBlt(hDC, 0, 0, 3, 2, source, 0, 0, SRCCOPY));
          },
          { " dib=40,3x2x1 info=48 bits=8\n" } },
    });
}

// No description shows up as the size of a pixel.
TEST(MetafileFiles, FieldsThatAnOldHeaderHasNotAreZero)
{
    for (std::size_t nHeader : { 88, 100 })
    {
        SCOPED_TRACE(nHeader);
        const std::string strBytes = DescribedMetafile(nHeader);
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
