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
    const CRecordLines lines = DumpRecords(Record(DrawExample, nullptr, "Maker\0Picture\0"));
    EXPECT_EQ(lines.size(), 16U);
    // Where the parts of a fill lie is each recorder's own affair.
    ExpectParts(
        lines,
        { "\nHEADER 140 bounds=0,0,101,42 frame=0,0,2672,1112 device=1920,1080 mm=508,286 "
          "um=508000,286000 handles=3 version=10000 pal=0 text=\"Maker\\0Picture\\0\\0\"\n"
          "GDICOMMENT 16 bytes=1 data=\"c\"\nCREATEBRUSHINDIRECT 24 1,0,16777215,0\n"
          "SELECTOBJECT 12 1\nBITBLT 100 bounds=2,3,101,42 dest=2,3,100,40 rop=00f00021 src=0,0 "
          "xform=1,0,0,1,0,0 bk=000000 usage=0\nSELECTOBJECT 12 stock0\nSETBKCOLOR 12 0080ff\n"
          "EXTTEXTOUTW ",
          " bounds=0,0,1,1 " SCALE "ref=0,0 options=2 rect=2,3,102,43 text=\"\" at=", " dx= ",
          "\nEXTCREATEFONTINDIRECTW 332 handle=2 height=-16 width=0 escapement=0 orientation=0 "
          "weight=400 italic=0 underline=0 strikeout=0 charset=0 out=0 clip=0 quality=0 pitch=0 "
          "face=\"Times New Roman\"\nSELECTOBJECT 12 2\nSETBKMODE 12 1\nSETTEXTCOLOR 12 030201\n"
          "EXTTEXTOUTW 96 bounds=24,17,47,35 " SCALE "ref=24,17 options=0 rect=10,10,60,40 "
          "text=\"abc\" at=76 dx=7,8,7 at=84\nSELECTOBJECT 12 stock13\nDELETEOBJECT 12 2\n"
          "EOF 20 0,16,20" });
}

// Between the end of the header and that of the file.
TEST(MetafileWriter, WritesEachCallAsTheSystemDoes)
{
    ExpectRecords({
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
          { " text=-\nSAVEDC 8\nSAVEDC 8\nINTERSECTCLIPRECT 24 1,2,30,40\nRESTOREDC 12 -2\n"
            "SAVEDC 8\nRESTOREDC 12 -1\nSETMAPMODE 12 1\nSETBKMODE 12 2\nSETTEXTCOLOR 12 000000\n"
            "SETTEXTALIGN 12 24\nSETMAPMODE 12 8\nSETWINDOWEXTEX 16 100,-100\n"
            "SETVIEWPORTEXTEX 16 96,96\nSETWINDOWORGEX 16 -3,4\nSETVIEWPORTORGEX 16 7,-8\nEOF" } },
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
          { " text=-\nSELECTOBJECT 12 stock4\nBITBLT 100 bounds=0,0,3,2 dest=0,0,4,3 rop=00f00021 "
            "src=0,0 xform=1,0,0,1,0,0 bk=000000 usage=0\nSELECTOBJECT 12 stock0\n"
            "CREATEPEN 28 1,0,1,0,1122867\nSELECTOBJECT 12 1\nMOVETOEX 16 10,20\nLINETO 16 30,20\n"
            "SELECTOBJECT 12 stock7\nDELETEOBJECT 12 1\nCREATEBRUSHINDIRECT 24 1,2,8388608,3\n"
            "SELECTOBJECT 12 1\nRECTANGLE 24 5,5,49,29\nRECTANGLE 24 5,5,49,29\n"
            "SELECTOBJECT 12 stock0\nDELETEOBJECT 12 1\nEOF" } },
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
          { " text=-\nCREATEBRUSHINDIRECT 24 1,0,1,0\nSELECTOBJECT 12 1\n"
            "CREATEBRUSHINDIRECT 24 2,0,2,0\nSELECTOBJECT 12 2\nDELETEOBJECT 12 1\n"
            "CREATEPEN 28 1,0,1,0,3\nSELECTOBJECT 12 1\nSELECTOBJECT 12 2\nSELECTOBJECT 12 stock5\n"
            "SELECTOBJECT 12 stock7\nDELETEOBJECT 12 1\nDELETEOBJECT 12 2\n"
            "CREATEBRUSHINDIRECT 24 1,0,14120960,0\nSELECTOBJECT 12 1\nSELECTOBJECT 12 stock0\n"
            "DELETEOBJECT 12 1\nCREATEBRUSHINDIRECT 24 1,0,14120960,0\nSELECTOBJECT 12 1\nEOF" } },
        { "CommentsAreFilledUpWithZeros",
          [](HDC h)
          {
              GdiComment(h, 0, nullptr);
              GdiComment(h, 4, AsBytes("abcd"));
              GdiComment(h, 5, AsBytes("a\0b'c"));
          },
          { " bounds=0,0,-1,-1 frame=0,0,-26,-26 ",
            " text=-\nGDICOMMENT 12 bytes=0 data=\"\"\nGDICOMMENT 16 bytes=4 data=\"abcd\"\n"
            "GDICOMMENT 20 bytes=5 data=\"a\\0b'c\"\nEOF" } },
    });
}

TEST(MetafileWriter, WritesTextsAsUnicode)
{
    const auto text = [](const char* pszFace, const char* pszText, UINT nFormat = s_nLine)
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
    const char* pszTimes = "Times New Roman";
    const std::string strHere = " ref=10,10 options=0 rect=10,10,60,40 text=";
    const std::string strClipped = " ref=10,10 options=4 rect=10,10,60,40 text=";
    const std::string strThere = " ref=5,6 options=0 rect=0,0,-1,-1 text=";
    ExpectRecords({
        { "a letter", text(pszTimes, "a"), { strHere + "\"a\" ", " dx=7 " } },
        { "clipped",
          text(pszTimes, "a", s_nLine & ~DT_NOCLIP),
          { strClipped + "\"a\"", " dx=7 " } },
        { "bytes above ASCII",
          text(pszTimes, "\xE4\x80\x9F\x81"),
          { strHere + "\"\\u00e4\\u20ac\\u0178\\u0081\" ", " dx=7,8,12,6 " } },
        { "symbols",
          text("Symbol", "\xE5\x61"),
          { strHere + "\"\\uf0e5\\uf061\" ", " dx=11,10 " } },
        { "MT Extra", text("MT Extra", "h"), { strHere + "\"h\" ", " dx=10 " } },
        { "advances of the font", placed(nullptr), { strThere + "\"Wi\" ", " dx=15,4 " } },
        { "advances of the caller", placed(anDx), { strThere + "\"Wi\" ", " dx=30,-4 " } },
        { "mapped",
          mapped,
          { " ref=23,16 options=0 rect=10,10,60,40 text=\"abc\" ", " dx=7,8,7 " } },
    });
}

// The frame is the bounds * 508 * 100 / 1920 and * 286 * 100 / 1080, cut.
TEST(MetafileWriter, CountsWhatIsDrawnIntoItsBounds)
{
    ExpectRecords({
        { "nothing", [](HDC) {}, { " bounds=0,0,-1,-1 frame=0,0,-26,-26 " } },
        { "fill",
          [](HDC h) {
              Fill(h, { 5, 6, 21, 10 }, 0);
          },
          { " bounds=5,6,20,9 frame=132,158,529,238 " } },
        { "fill of no width",
          [](HDC h) {
              Fill(h, { 5, 6, 5, 10 }, 0);
          },
          { " bounds=4,6,5,9 frame=105,158,132,238 " } },
        { "line",
          [](HDC h)
          {
              MoveToEx(h, 20, 30, nullptr);
              LineTo(h, 10, 40);
          },
          { " bounds=10,30,20,40 frame=264,794,529,1059 " } },
        { "rectangles",
          [](HDC h)
          {
              Rectangle(h, 10, 11, 20, 21);
              Rectangle(h, -4, 15, -2, 30);
          },
          { " bounds=-4,11,19,29 frame=-105,291,502,767 " } },
        { "mapped: 100 units are 96 pixels",
          [](HDC h)
          {
              SetHundredths(h, 96, 1);
              Fill(h, { 100, 100, 200, 300 }, 0);
          },
          { " bounds=96,96,191,287 frame=2540,2542,5053,7600 " } },
        { "text, 22 wide and 17 high",
          [](HDC h)
          {
              const CUseFont use(h, FontOf("Times New Roman", -16));
              ExtTextOutA(h, 40, 50, 0, nullptr, "abc", 3, nullptr);
          },
          { " bounds=40,50,63,68 frame=1058,1324,1666,1800 " } },
        { "bitmap",
          DrawStretchedBitmap,
          { " text=-\nSTRETCHBLT ", " bounds=4,5,9,12 dest=4,5,6,8 rop=00cc0020 ", " size=2,2 ",
            " bits=24\nEOF" } },
    });
    const RECT frame{ 0, 0, 1234, 567 };
    EXPECT_EQ(Field(DumpRecords(Record(DrawExample, &frame)).at(0), "frame"), "0,0,1234,567");
}

TEST(MetafileWriter, KeepsABitmapWhole)
{
    const std::string strBytes = Record(DrawStretchedBitmap);
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

TEST(MetafileWriter, LeavesTheOldFileWhenACopyFails)
{
    CTestFolder folder;
    const std::string strPath = folder.File("x.wmf");
    WriteFile(strPath, "old");
    HDC hDC = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    DrawExample(hDC);
    CMetafilePtr pMetafile(CloseEnhMetaFile(hDC));

    static EFileOperation s_eFailing;
    g_pfnFileFault = [](EFileOperation eOperation, const char*)
    {
        return eOperation == s_eFailing ? SYSTEM_DISK_FULL : 0;
    };
    for (const EFileOperation e : { fileOpOpen, fileOpWrite, fileOpClose, fileOpRename })
    {
        s_eFailing = e;
        EXPECT_FALSE(SaveEnhMetaFile(pMetafile.get(), strPath.c_str())) << e;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(SYSTEM_DISK_FULL)) << e;
        EXPECT_EQ(ReadFile(strPath), "old") << e;
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
