// Recordings against an independent reader: records, texts, bounds, files.
#include "platform/gdi/emf_dump.h"
#include "platform/gdi/test_fonts.h"

#include "platform/base/file.h"
#include "platform/base/system.h"
#include "system_errors.h"

namespace
{

constexpr UINT s_nLine = DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

const BYTE* AsBytes(const char* pszText)
{
    return reinterpret_cast<const BYTE*>(pszText);
}

// A line without what depends on where the parts of its record lie: for a fill our own recorder
// keeps room between the record's head and its end.
std::string WithoutPlaces(const std::string& strLine)
{
    std::string strRest = strLine.substr(strLine.find(" bounds="));
    for (std::size_t n; (n = strRest.find(" at=")) != strRest.npos;)
        strRest.erase(n, strRest.find(' ', n + 1) - n);
    return strRest;
}

// 508 mm over 1920 pixels and 286 mm over 1080, in hundredths of a millimetre; the quotients are
// single floats before they are multiplied.
#define SCALE "mode=1 scale=26.458332,26.481482 "

void DrawExample(HDC hDC)
{
    GdiComment(hDC, 1, AsBytes("c"));
    RECT rect{ 2, 3, 102, 43 };
    FillRect(hDC, &rect, GetSysColorBrush(COLOR_WINDOW));
    SetBkColor(hDC, 0x0080FF);
    ExtTextOutA(hDC, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    const CUseFont use(hDC, FontOf("Times New Roman", -16));
    SetBkMode(hDC, TRANSPARENT);
    SetTextColor(hDC, 0x030201);
    RECT box{ 10, 10, 60, 40 };
    DrawTextA(hDC, "abc", 3, &box, s_nLine | DT_CENTER | DT_VCENTER);
}

}  // namespace

TEST(MetafileWriter, WritesTheRecordsOfADrawing)
{
    std::vector<std::string> expected = {
        "HEADER 140 bounds=0,0,101,42 frame=0,0,2672,1112 device=1920,1080 mm=508,286 "
        "um=508000,286000 handles=3 version=10000 pal=0 text=\"Maker\\0Picture\\0\\0\"",
        "GDICOMMENT 16 bytes=1 data=\"c\"",
        "CREATEBRUSHINDIRECT 24 1,0,16777215,0",
        "SELECTOBJECT 12 1",
        "BITBLT 100 bounds=2,3,101,42 dest=2,3,100,40 rop=00f00021 src=0,0 xform=1,0,0,1,0,0 "
        "bk=000000 usage=0",
        "SELECTOBJECT 12 stock0",
        "SETBKCOLOR 12 0080ff",
        " bounds=0,0,1,1 " SCALE "ref=0,0 options=2 rect=2,3,102,43 text=\"\" dx=",
        "EXTCREATEFONTINDIRECTW 332 handle=2 height=-16 width=0 escapement=0 orientation=0 "
        "weight=400 italic=0 underline=0 strikeout=0 charset=0 out=0 clip=0 quality=0 pitch=0 "
        "face=\"Times New Roman\"",
        "SELECTOBJECT 12 2",
        "SETBKMODE 12 1",
        "SETTEXTCOLOR 12 030201",
        "EXTTEXTOUTW 96 bounds=24,17,47,35 " SCALE
        "ref=24,17 options=0 rect=10,10,60,40 text=\"abc\" at=76 dx=7,8,7 at=84",
        "SELECTOBJECT 12 stock13",
        "DELETEOBJECT 12 2",
        "EOF 20 0,16,20",
    };
    CRecordLines lines = DumpRecords(Record(DrawExample, nullptr, "Maker\0Picture\0"));
    for (std::string& strLine : lines)
    {
        if (Field(strLine, "text") == "\"\"")
            strLine = WithoutPlaces(strLine);
    }
    EXPECT_EQ(lines, expected);
}

TEST(MetafileWriter, WritesEachCallAsTheSystemDoes)
{
    const struct
    {
        const char* pszName;
        CDraw draw;
        CRecordLines expected;  // without header and end
    } aCases[] = {
        { "StatesAlsoWhenNothingChanges",
          [](HDC h)
          {
              SaveDC(h);
              SaveDC(h);
              IntersectClipRect(h, 1, 2, 30, 40);
              RestoreDC(h, 1);
              SaveDC(h);
              RestoreDC(h, -1);
              SetMapMode(h, MM_TEXT);
              SetBkMode(h, OPAQUE);
              SetTextColor(h, 0);
              SetTextAlign(h, TA_BASELINE);
              SetHundredths(h);
              SetWindowOrgEx(h, -3, 4, nullptr);
              SetViewportOrgEx(h, 7, -8, nullptr);
          },
          { "SAVEDC 8", "SAVEDC 8", "INTERSECTCLIPRECT 24 1,2,30,40", "RESTOREDC 12 -2", "SAVEDC 8",
            "RESTOREDC 12 -1", "SETMAPMODE 12 1", "SETBKMODE 12 2", "SETTEXTCOLOR 12 000000",
            "SETTEXTALIGN 12 24", "SETMAPMODE 12 8", "SETWINDOWEXTEX 16 100,-100",
            "SETVIEWPORTEXTEX 16 96,96", "SETWINDOWORGEX 16 -3,4", "SETVIEWPORTORGEX 16 7,-8" } },
        { "StockObjectsAreNotCreatedAndRectanglesCountTheirLastPixelsIn",
          [](HDC h)
          {
              RECT rect{ 0, 0, 4, 3 };
              FillRect(h, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
              {
                  const CUseObject pen(h, CreatePen(PS_SOLID, 1, 0x112233));
                  MoveToEx(h, 10, 20, nullptr);
                  LineTo(h, 30, 20);
              }
              const CUseObject brush(h, CreateHatchBrush(HS_BDIAGONAL, 0x800000));
              Rectangle(h, 5, 5, 50, 30);
              Rectangle(h, 50, 30, 5, 5);
              Rectangle(h, 7, 5, 7, 30);
          },
          { "SELECTOBJECT 12 stock4",
            "BITBLT 100 bounds=0,0,3,2 dest=0,0,4,3 rop=00f00021 src=0,0 xform=1,0,0,1,0,0 "
            "bk=000000 usage=0",
            "SELECTOBJECT 12 stock0", "CREATEPEN 28 1,0,1,0,1122867", "SELECTOBJECT 12 1",
            "MOVETOEX 16 10,20", "LINETO 16 30,20", "SELECTOBJECT 12 stock7", "DELETEOBJECT 12 1",
            "CREATEBRUSHINDIRECT 24 1,2,8388608,3", "SELECTOBJECT 12 1", "RECTANGLE 24 5,5,49,29",
            "RECTANGLE 24 5,5,49,29", "SELECTOBJECT 12 stock0", "DELETEOBJECT 12 1" } },
        { "DeletedObjectsGiveTheirNumbersBack",
          [](HDC h)
          {
              HGDIOBJ hFirst = CreateSolidBrush(1), hSecond = CreateSolidBrush(2);
              SelectObject(h, hFirst);
              SelectObject(h, hSecond);
              DeleteObject(hFirst);
              HGDIOBJ hThird = CreatePen(PS_SOLID, 1, 3);
              SelectObject(h, hThird);
              SelectObject(h, hSecond);
              DeleteObject(CreateSolidBrush(4));  // never selected: the metafile does not know it
              SelectObject(h, GetStockObject(NULL_BRUSH));
              SelectObject(h, GetStockObject(BLACK_PEN));
              DeleteObject(hThird);
              DeleteObject(hSecond);
              SelectObject(h, GetSysColorBrush(COLOR_HIGHLIGHT));
              SelectObject(h, GetStockObject(WHITE_BRUSH));
              DeleteObject(GetSysColorBrush(COLOR_HIGHLIGHT));
              SelectObject(h, GetSysColorBrush(COLOR_HIGHLIGHT));
          },
          { "CREATEBRUSHINDIRECT 24 1,0,1,0", "SELECTOBJECT 12 1", "CREATEBRUSHINDIRECT 24 2,0,2,0",
            "SELECTOBJECT 12 2", "DELETEOBJECT 12 1", "CREATEPEN 28 1,0,1,0,3", "SELECTOBJECT 12 1",
            "SELECTOBJECT 12 2", "SELECTOBJECT 12 stock5", "SELECTOBJECT 12 stock7",
            "DELETEOBJECT 12 1", "DELETEOBJECT 12 2", "CREATEBRUSHINDIRECT 24 1,0,14120960,0",
            "SELECTOBJECT 12 1", "SELECTOBJECT 12 stock0", "DELETEOBJECT 12 1",
            "CREATEBRUSHINDIRECT 24 1,0,14120960,0", "SELECTOBJECT 12 1" } },
        { "CommentsAreFilledUpWithZeros",
          [](HDC h)
          {
              GdiComment(h, 0, nullptr);
              GdiComment(h, 4, AsBytes("abcd"));
              GdiComment(h, 5, AsBytes("a\0b'c"));
          },
          { "GDICOMMENT 12 bytes=0 data=\"\"", "GDICOMMENT 16 bytes=4 data=\"abcd\"",
            "GDICOMMENT 20 bytes=5 data=\"a\\0b'c\"" } },
    };
    const std::vector<CRecordLines> dumps = RecordTable(aCases);
    for (std::size_t i = 0; i < std::size(aCases); ++i)
    {
        SCOPED_TRACE(aCases[i].pszName);
        ASSERT_GE(dumps[i].size(), 2U);
        EXPECT_EQ(CRecordLines(dumps[i].begin() + 1, dumps[i].end() - 1), aCases[i].expected);
    }
}

TEST(MetafileWriter, WritesTextsAsUnicode)
{
    const auto text = [](const char* pszFace, const char* pszText, UINT nFormat)
    {
        return [=](HDC hDC)
        {
            const CUseFont use(hDC, FontOf(pszFace, -16));
            RECT rect{ 10, 10, 60, 40 };
            DrawTextA(hDC, pszText, -1, &rect, nFormat);
            DrawTextA(hDC, "", 0, &rect, nFormat);  // no characters, no record
        };
    };
    const auto placed = [](const INT* pDx)
    {
        return [=](HDC hDC)
        {
            const CUseFont use(hDC, FontOf("Times New Roman", -16));
            ExtTextOutA(hDC, 5, 6, 0, nullptr, "Wi", 2, pDx);
        };
    };
    // 17 hundredths are 16 pixels; "abc" is 23 hundredths wide and 18 high, and does not turn
    // round.
    const CDraw mapped = [](HDC hDC)
    {
        SetHundredths(hDC);
        const CUseFont use(hDC, FontOf("Times New Roman", -17));
        RECT rect{ 10, 10, 60, 40 };
        DrawTextA(hDC, "abc", -1, &rect, s_nLine | DT_CENTER | DT_VCENTER);
    };
    const INT anDx[] = { 30, -4 };
    const struct
    {
        CDraw draw;
        const char *pszText, *pszReference, *pszOptions, *pszRect, *pszDx;
    } aCases[] = {
        // clang-format off
        { text("Times New Roman", "a", s_nLine), "\"a\"", "10,10", "0", "10,10,60,40", "7" },
        { text("Times New Roman", "a", s_nLine & ~DT_NOCLIP), "\"a\"", "10,10", "4", "10,10,60,40", "7" },
        { text("Times New Roman", "\xE4\x80\x9F\x81", s_nLine), "\"\\u00e4\\u20ac\\u0178\\u0081\"", "10,10", "0", "10,10,60,40", "7,8,12,6" },
        { text("Symbol", "\xE5\x61", s_nLine), "\"\\uf0e5\\uf061\"", "10,10", "0", "10,10,60,40", "11,10" },
        { text("MT Extra", "h", s_nLine), "\"h\"", "10,10", "0", "10,10,60,40", "10" },
        { placed(nullptr), "\"Wi\"", "5,6", "0", "0,0,-1,-1", "15,4" },
        { placed(anDx), "\"Wi\"", "5,6", "0", "0,0,-1,-1", "30,-4" },
        { mapped, "\"abc\"", "23,16", "0", "10,10,60,40", "7,8,7" },
        // clang-format on
    };
    std::vector<CRecordLines> dumps = RecordTable(aCases);
    for (std::size_t i = 0; i < std::size(aCases); ++i)
    {
        SCOPED_TRACE(aCases[i].pszText);
        std::erase_if(dumps[i], [](const std::string& str) { return !str.starts_with("EXTTEXT"); });
        ASSERT_EQ(dumps[i].size(), 1U);
        EXPECT_EQ(Field(dumps[i][0], "text"), aCases[i].pszText);
        EXPECT_EQ(Field(dumps[i][0], "ref"), aCases[i].pszReference);
        EXPECT_EQ(Field(dumps[i][0], "options"), aCases[i].pszOptions);
        EXPECT_EQ(Field(dumps[i][0], "rect"), aCases[i].pszRect);
        EXPECT_EQ(Field(dumps[i][0], "dx"), aCases[i].pszDx);
    }
}

TEST(MetafileWriter, CountsWhatIsDrawnIntoItsBounds)
{
    const auto fill = [](RECT rect)
    {
        return [rect](HDC h)
        {
            Fill(h, rect, 0);
        };
    };
    const CDraw mapped = [](HDC h)
    {
        SetHundredths(h, 96, 1);
        Fill(h, { 100, 100, 200, 300 }, 0);
    };
    const CDraw line = [](HDC h)
    {
        MoveToEx(h, 20, 30, nullptr);
        LineTo(h, 10, 40);
    };
    const CDraw rectangles = [](HDC h)
    {
        Rectangle(h, 10, 11, 20, 21);
        Rectangle(h, -4, 15, -2, 30);
    };
    const CDraw text = [](HDC h)
    {
        const CUseFont use(h, FontOf("Times New Roman", -16));
        ExtTextOutA(h, 40, 50, 0, nullptr, "abc", 3, nullptr);
    };
    const struct
    {
        CDraw draw;
        const char* pszBounds;
        const char* pszFrame;  // bounds * 508 * 100 / 1920 and * 286 * 100 / 1080, cut
    } aCases[] = {
        { [](HDC) {}, "0,0,-1,-1", "0,0,-26,-26" },
        { [](HDC h) { GdiComment(h, 3, AsBytes("abc")); }, "0,0,-1,-1", "0,0,-26,-26" },
        { fill({ 5, 6, 21, 10 }), "5,6,20,9", "132,158,529,238" },
        { fill({ 5, 6, 5, 10 }), "4,6,5,9", "105,158,132,238" },
        { line, "10,30,20,40", "264,794,529,1059" },
        { rectangles, "-4,11,19,29", "-105,291,502,767" },
        { mapped, "96,96,191,287", "2540,2542,5053,7600" },  // 100 units are 96 pixels
        { text, "40,50,63,68", "1058,1324,1666,1800" },      // 22 wide, 17 high
    };
    const std::vector<CRecordLines> dumps = RecordTable(aCases);
    for (std::size_t i = 0; i < std::size(aCases); ++i)
    {
        EXPECT_EQ(Field(dumps[i].at(0), "bounds"), aCases[i].pszBounds);
        EXPECT_EQ(Field(dumps[i].at(0), "frame"), aCases[i].pszFrame) << aCases[i].pszBounds;
    }
    const RECT frame{ 0, 0, 1234, 567 };
    EXPECT_EQ(Field(DumpRecords(Record(DrawExample, &frame)).at(0), "frame"), "0,0,1234,567");
}

TEST(MetafileWriter, KeepsABitmapWhole)
{
    const std::string strBytes = Record(DrawStretchedBitmap);
    const CRecordLines lines = DumpRecords(strBytes);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[1].starts_with("STRETCHBLT")) << lines[1];
    for (const auto& [pszField, pszValue] :
         { std::pair("bounds", "4,5,9,12"), std::pair("dest", "4,5,6,8"),
           std::pair("rop", "00cc0020"), std::pair("size", "2,2"), std::pair("bits", "24") })
        EXPECT_EQ(Field(lines[1], pszField), pszValue);
    // The place in the bitmap, of points in the source's own units.
    float afSource[6];  // a matrix by rows, and a shift
    LONG anPlace[2];
    DWORD nBits;
    std::memcpy(anPlace, &strBytes[108 + 44], sizeof anPlace);
    std::memcpy(afSource, &strBytes[108 + 52], sizeof afSource);
    EXPECT_EQ(static_cast<float>(anPlace[0]) * afSource[0] + afSource[4], 1.0F);
    EXPECT_EQ(static_cast<float>(anPlace[1]) * afSource[3] + afSource[5], 0.0F);
    // From the lowest row up, blue first.
    std::memcpy(&nBits, &strBytes[108 + 92], sizeof nBits);
    std::string strBits = strBytes.substr(108 + nBits, 24);
    for (std::size_t i = 3; i < strBits.size(); i += 4)
        strBits[i] = '.';
    EXPECT_EQ(strBits, std::string("\xFF\0\0.\0\0\xFF.\0\0\xFF.\0\0\xFF.\0\0\xFF.\0\0\xFF.", 24));
}

TEST(MetafileWriter, WritesEqualBytesEachTime)
{
    const auto draw = [](HDC hDC)
    {
        DrawExample(hDC);
        CMemoryPicture source(3, 2, 1);
        EXPECT_TRUE(BitBlt(hDC, 0, 0, 3, 2, source, 0, 0, SRCCOPY));
    };
    const std::string strFirst = Record(draw, nullptr, "Maker\0Picture\0");
    // What is left in the memory must not show.
    const std::vector<BYTE> noise(20000, 0xA5);
    Record([&](HDC hDC) { GdiComment(hDC, 20000, noise.data()); });
    EXPECT_EQ(Record(draw, nullptr, "Maker\0Picture\0"), strFirst);
}

TEST(MetafileWriter, RecordsSideBySide)
{
    HDC hFirst = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    HDC hSecond = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    HBRUSH hBrush = CreateSolidBrush(7), hOther = CreateSolidBrush(8);
    SelectObject(hFirst, hBrush);
    SelectObject(hSecond, hOther);
    SelectObject(hSecond, hBrush);
    DeleteObject(hBrush);
    DeleteDC(hFirst);  // given up
    const CMetafilePtr pMetafile(CloseEnhMetaFile(hSecond));
    const CRecordLines lines = DumpRecords(MetafileBytes(pMetafile.get()));
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[5], "DELETEOBJECT 12 2");
    DeleteObject(hOther);
}

namespace
{

int g_nFailing;  // operation that fails, -1 for none

int FailOne(EFileOperation eOperation, const char*)
{
    return eOperation == g_nFailing ? SYSTEM_DISK_FULL : 0;
}

}  // namespace

TEST(MetafileWriter, LeavesTheOldFileWhenACopyFails)
{
    CTestFolder folder;
    const std::string strPath = folder.File("x.wmf");
    WriteFile(strPath, "old");
    HDC hDC = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    DrawExample(hDC);
    CMetafilePtr pMetafile(CloseEnhMetaFile(hDC));

    g_pfnFileFault = FailOne;
    for (int nOperation : { fileOpOpen, fileOpWrite, fileOpClose, fileOpRename })
    {
        SCOPED_TRACE(nOperation);
        g_nFailing = nOperation;
        EXPECT_FALSE(SaveEnhMetaFile(pMetafile.get(), strPath.c_str()));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(SYSTEM_DISK_FULL));
        EXPECT_EQ(ReadFile(strPath), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
    }
    g_pfnFileFault = nullptr;
    EXPECT_TRUE(SaveEnhMetaFile(pMetafile.get(), strPath.c_str()));
    EXPECT_EQ(ReadFile(strPath), Record(DrawExample));
    EXPECT_FALSE(CopyEnhMetaFileA(pMetafile.get(), folder.File("none/x.wmf").c_str()));

    CMetafilePtr pCopy(CopyEnhMetaFileA(pMetafile.get(), strPath.c_str()));
    ASSERT_TRUE(pCopy);
    EXPECT_EQ(ReadFile(strPath), MetafileBytes(pMetafile.get()));
    // A copy outlives the original, also when other metafiles come.
    const CMetafilePtr pInMemory(CopyEnhMetaFileA(pCopy.get(), nullptr));
    pMetafile.reset();
    pCopy.reset();
    Record([](HDC h) { GdiComment(h, 5, AsBytes("other")); });
    EXPECT_EQ(MetafileBytes(pInMemory.get()), ReadFile(strPath));
}

TEST(MetafileWriter, WritesTheFileThatItWasMadeFor)
{
    CTestFolder folder;
    HDC hDC = CreateEnhMetaFileA(nullptr, folder.File("x.emf").c_str(), nullptr, nullptr);
    DrawExample(hDC);
    const CMetafilePtr pMetafile(CloseEnhMetaFile(hDC));
    ASSERT_TRUE(pMetafile);
    EXPECT_EQ(ReadFile(folder.File("x.emf")), MetafileBytes(pMetafile.get()));

    hDC = CreateEnhMetaFileA(nullptr, folder.File("none/x.emf").c_str(), nullptr, nullptr);
    EXPECT_FALSE(CloseEnhMetaFile(hDC));
    EXPECT_FALSE(CloseEnhMetaFile(nullptr));
}

// The other reader draws the text where the record says, in the font of the record.
TEST(MetafileWriter, IsReadByAnotherProgram)
{
    CTestFolder folder;
    WriteFile(folder.File("x.emf"), Record(DrawExample, nullptr, "Maker\0Picture\0"));
    RunTool("emf2svg-conv -i " + NativePath(folder.File("x.emf")) + " -o " +
            NativePath(folder.Path()) + "/x.svg");
    const std::string strSvg = ReadFile(folder.File("x.svg"));
    for (const char* pszPart : { "<![CDATA[abc]]>", "Times New Roman", "fill=\"#010203\"" })
        EXPECT_NE(strSvg.find(pszPart), strSvg.npos) << pszPart << " in\n" << strSvg;
}
