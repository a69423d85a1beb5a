// Shapes and text on bitmaps, pixel by pixel.
#include "platform/gdi/dc.h"

#include "platform/gdi/memory_picture.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <utility>

namespace
{

// Where ink is, in the order of columns: "x,y " for each place.
std::string Places(const CLines& lines)
{
    std::string strPlaces;
    for (std::size_t x = 0; x < lines[0].size(); ++x)
    {
        for (std::size_t y = 0; y < lines.size(); ++y)
        {
            if (lines[y][x] != '.')
                strPlaces += std::to_string(x) + ',' + std::to_string(y) + ' ';
        }
    }
    return strPlaces;
}

// A line, and a dot where it ends if that is wanted.
CLines LineOn(POINT from, POINT to, bool bDot = false)
{
    CMemoryPicture picture(40, 40);
    MoveToEx(picture, from.x, from.y, nullptr);
    EXPECT_TRUE(LineTo(picture, to.x, to.y));
    CPoint now;
    MoveToEx(picture, 0, 0, &now);
    EXPECT_EQ(now, CPoint(to));
    if (bDot)
        SetPixel(picture, to.x, to.y, 0);
    return picture.Lines();
}

TEST(BitmapLines, TakeTheFirstPointAndLeaveTheLast)
{
    const std::tuple<POINT, POINT, const char*> aCases[] = {
        { { 10, 10 }, { 15, 10 }, "10,10 11,10 12,10 13,10 14,10 " },
        { { 15, 10 }, { 10, 10 }, "11,10 12,10 13,10 14,10 15,10 " },
        { { 7, 3 }, { 7, 6 }, "7,3 7,4 7,5 " },
        { { 7, 6 }, { 7, 3 }, "7,4 7,5 7,6 " },
        { { 5, 5 }, { 5, 5 }, "" },
        { { 20, 10 }, { 16, 20 }, "16,19 17,17 17,18 18,14 18,15 18,16 19,12 19,13 20,10 20,11 " },
        { { 3, 3 }, { 6, 6 }, "3,3 4,4 5,5 " },
    };
    for (const auto& [from, to, pszPlaces] : aCases)
        EXPECT_EQ(Places(LineOn(from, to)), pszPlaces);
}

// Backwards a line meets the pixels that it meets forwards; ends apart.
TEST(BitmapLines, MeetTheSamePixelsInBothDirections)
{
    const POINT middle{ 20, 20 };
    for (int n = 0; n < 31 * 31; ++n)
    {
        const POINT end{ 5 + n % 31, 5 + n / 31 };
        EXPECT_EQ(LineOn(middle, end, true), LineOn(end, middle, true)) << end.x << ',' << end.y;
    }
}

// What lies outside is left out, and shifts nothing that lies inside.
TEST(BitmapLines, FromFarOutsideCrossAtTheSamePlaces)
{
    CLines crossing;
    for (std::size_t i = 0; i < 40; ++i)
        crossing.push_back(std::string(i, '.') + '#' + std::string(39 - i, '.'));
    EXPECT_EQ(LineOn({ -1000000, -1000000 }, { 1000000, 1000000 }), crossing);
    EXPECT_EQ(LineOn({ INT32_MAX, INT32_MAX }, { INT32_MIN, INT32_MIN }), crossing);
    EXPECT_EQ(Places(LineOn({ 0, 100 }, { INT32_MAX, 101 })), "");
}

// What is black, and what is red inside of it.
TEST(BitmapShapes, FollowTheRulesForInvertedRectangles)
{
    using CDrawBox = void (*)(HDC, const RECT&);
    const CDrawBox fill = [](HDC hDC, const RECT& rect)
    {
        FillRect(hDC, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    };
    const CDrawBox solid = [](HDC hDC, const RECT& rect)
    {
        CDC::FromHandle(hDC)->FillSolidRect(&rect, 0);
    };
    const CDrawBox edged = [](HDC hDC, const RECT& rect)
    {
        const CUseObject brush(hDC, CreateSolidBrush(0x0000FF));
        EXPECT_TRUE(Rectangle(hDC, rect.left, rect.top, rect.right, rect.bottom));
    };
    const std::tuple<const char*, CDrawBox, RECT, RECT, RECT> aCases[] = {
        { "upright", fill, { 5, 6, 9, 8 }, { 5, 6, 9, 8 }, {} },
        { "no width", fill, { 5, 5, 5, 9 }, {}, {} },
        { "x inverted: shifted by one", fill, { 9, 5, 5, 9 }, { 6, 5, 10, 9 }, {} },
        { "y inverted: shifted by one", fill, { 5, 9, 9, 5 }, { 5, 6, 9, 10 }, {} },
        { "larger than all", fill, { -99999999, -1000000000, 5, 1000000000 }, { 0, 0, 5, 16 }, {} },
        { "upright", solid, { 5, 6, 9, 8 }, { 5, 6, 9, 8 }, {} },
        { "no height", solid, { 5, 5, 9, 5 }, {}, {} },
        { "x inverted: swapped", solid, { 9, 5, 5, 9 }, { 5, 5, 9, 9 }, {} },
        { "y inverted: swapped", solid, { 5, 9, 9, 5 }, { 5, 5, 9, 9 }, {} },
        { "larger than all", solid, { INT32_MIN, 3, INT32_MAX, 4 }, { 0, 3, 16, 4 }, {} },
        { "an edge of one pixel", edged, { 1, 1, 6, 5 }, { 1, 1, 6, 5 }, { 2, 2, 5, 4 } },
        { "inverted: swapped", edged, { 6, 5, 1, 1 }, { 1, 1, 6, 5 }, { 2, 2, 5, 4 } },
        { "nothing but edges", edged, { 1, 1, 3, 4 }, { 1, 1, 3, 4 }, {} },
        { "one column", edged, { 1, 1, 2, 5 }, { 1, 1, 2, 5 }, {} },
        { "one row, inverted", edged, { 5, 3, 1, 2 }, { 1, 2, 5, 3 }, {} },
        { "no height", edged, { 1, 1, 6, 1 }, {}, {} },
    };
    for (const auto& [pszName, draw, rect, black, red] : aCases)
    {
        const CMemoryPicture picture(16, 16);
        draw(picture, rect);
        CLines lines(16, std::string(16, '.'));
        for (int n = 0; n < 16 * 16; ++n)
        {
            const CPoint point(n % 16, n / 16);
            if (CRect(black).PtInRect(point))
                lines[n / 16][n % 16] = CRect(red).PtInRect(point) ? 'r' : '#';
        }
        EXPECT_EQ(picture.Lines(), lines) << pszName;
    }
}

// Where the sum of the coordinates is 7 in each 8, wherever the rectangle begins.
TEST(BitmapRectangles, HatchIsFixedToTheDevice)
{
    for (const int nBkMode : { TRANSPARENT, OPAQUE })
    {
        for (const int nShift : { 0, 5 })
        {
            CMemoryPicture picture(13, 8);
            SetWindowOrgEx(picture, -nShift, 0, nullptr);
            SetBkMode(picture, nBkMode);
            SetBkColor(picture, 0x00FF00);
            const CUseObject pen(picture, CreatePen(PS_SOLID, 1, 0xFF0000));
            const CUseObject brush(picture, CreateHatchBrush(HS_BDIAGONAL, 0x0000FF));
            Rectangle(picture, 1 - nShift, 1, 13 - nShift, 8);
            CLines lines = { ".............", ".bbbbbbbbbbbb", ".bgggrggggggb", ".bggrgggggggb",
                             ".bgrgggggggrb", ".brgggggggrgb", ".bgggggggrggb", ".bbbbbbbbbbbb" };
            for (std::string& strLine : lines)
                std::replace(strLine.begin(), strLine.end(), 'g', nBkMode == OPAQUE ? 'g' : '.');
            EXPECT_EQ(picture.Lines(), lines) << nBkMode << ' ' << nShift;
        }
    }
}

TEST(BitmapShapes, FollowMappingAndClip)
{
    CMemoryPicture picture(8, 4);
    SetMapMode(picture, MM_ANISOTROPIC);
    SetWindowExtEx(picture, 10, -10, nullptr);
    SetViewportExtEx(picture, 20, 20, nullptr);
    SetViewportOrgEx(picture, 0, 4, nullptr);
    // Up is positive: on the device the rectangle is inverted, and so moves down by one.
    const RECT rect{ 1, 0, 3, 1 };
    FillRect(picture, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(picture.Lines(), CLines({ "........", "........", "........", "..####.." }));
    CDC::FromHandle(picture)->FillSolidRect(&rect, 0x0000FF);
    EXPECT_EQ(picture.Lines(), CLines({ "........", "........", "..rrrr..", "..rrrr.." }));
    IntersectClipRect(picture, 0, 1, 2, 0);
    Fill(picture, { 0, 2, 4, 0 }, 0);
    EXPECT_EQ(picture.Lines(), CLines({ "........", "........", "####rr..", "####rr.." }));
}

// Wide lines are centred on their points and rounded at their ends.
TEST(BitmapLines, TakePensOfAnyWidth)
{
    CMemoryPicture picture(12, 9);
    CUseObject pen(picture, CreatePen(PS_SOLID, 3, 0x0000FF));
    MoveToEx(picture, 3, 4, nullptr);
    EXPECT_TRUE(LineTo(picture, 8, 4));
    const CLines lines = picture.Lines();
    EXPECT_EQ(lines[2], "............");
    EXPECT_EQ(lines[3].substr(3, 6), "rrrrrr");
    EXPECT_EQ(lines[4], "..rrrrrrrr..");
    EXPECT_EQ(lines[5].substr(3, 6), "rrrrrr");
    EXPECT_EQ(lines[6], "............");
    CUseObject none(picture, CreatePen(PS_NULL, 1, 0));
    EXPECT_TRUE(LineTo(picture, 0, 0));
    EXPECT_EQ(picture.Lines(), lines);
}

// Ink of a glyph by its bounding box in the font file, that of "Symbol" in its published metrics
// (units of 2048 to the em), at 100 pixels to the em; the base line lies at the cell's top plus the
// ascent.
TEST(BitmapText, StandsOnTheBaseLineAtItsSize)
{
    // Name, font, byte, ascent; the box of the glyph in font units.
    const std::tuple<const char*, LOGFONTA, char, int, double, double, double, double> aCases[] = {
        { "H", FontOf("Times New Roman", -100), 'H', 89, 59, 0, 1419, 1341 },
        { "slanted f", FontOf("Times New Roman", -100, 0, 400, true), 'f', 89, 23, -436, 805,
          1442 },
        { "sum", FontOf("Symbol", -100), '\xE5', 101, 29, -252, 1423, 1540 },
        { "radical", FontOf("Symbol", -100), '\xD6', 101, 20, -72, 1055, 1870 },
        // The average width is 59: the bracket is drawn twice as wide.
        { "wide bracket", FontOf("Symbol", -100, 118), '(', 101, 2 * 109, -352, 2 * 614, 1393 },
        { "h bar", FontOf("MT Extra", -100), 'h', 93, 99, 0, 1131, 1556 },
    };
    for (const auto& [pszName, font, cByte, nAscent, xMin, yMin, xMax, yMax] : aCases)
    {
        SCOPED_TRACE(pszName);
        CMemoryPicture picture(200, 200);
        SetBkMode(picture, TRANSPARENT);
        const CUseFont use(picture, font);
        EXPECT_TRUE(ExtTextOutA(picture, 50, 20, 0, nullptr, &cByte, 1, nullptr));
        const double fScale = 100.0 / 2048;
        const int nBase = 20 + nAscent;
        const CRect ink = picture.Inked();
        EXPECT_NEAR(ink.left, std::floor(50 + xMin * fScale), 1);
        EXPECT_NEAR(ink.top, std::floor(nBase - yMax * fScale), 1);
        EXPECT_NEAR(ink.right, std::ceil(50 + xMax * fScale), 1);
        EXPECT_NEAR(ink.bottom, std::ceil(nBase - yMin * fScale), 1);
    }
}

TEST(BitmapText, TakesItsAdvancesFromTheFontOrTheCaller)
{
    const CMemoryPicture picture(60, 20);
    SetBkMode(picture, TRANSPARENT);
    const CUseFont font(picture, FontOf("Arial", -10));
    const INT anDx[] = { 20, 30, 10 };
    ExtTextOutA(picture, 1, 2, 0, nullptr, "lll", 3, anDx);
    ExtTextOutA(picture, 31, 2, 0, nullptr, "l l", 3, nullptr);  // advances 2, 3, 2
    std::set<std::size_t> tens;
    for (const std::string& strLine : picture.Lines())
    {
        for (std::size_t x = 0; x < strLine.size(); ++x)
        {
            if (strLine[x] != '.')
                tens.insert(x / 10);
        }
    }
    EXPECT_EQ(tens, (std::set<std::size_t>{ 0, 2, 3, 5 }));
}

// The cell of a text, as its ground and letters of the same colour fill it.
TEST(BitmapText, StandsOnAGroundAsWideAsItsAdvancesAndAsHighAsTheLine)
{
    const INT anDx[] = { 20, 7 };
    const std::tuple<LOGFONTA, UINT, const char*, const INT*, CRect> aCases[] = {
        { FontOf("Arial", -50), TA_TOP, "  ", anDx, { 100, 50, 127, 106 } },     // 45 + 11 high
        { FontOf("Arial", -50), TA_TOP, "  ", nullptr, { 100, 50, 128, 106 } },  // 569 of 2048
        { FontOf("Times New Roman", -16), TA_TOP, "abc", nullptr, { 100, 50, 122, 67 } },
        { FontOf("Times New Roman", -16), TA_BASELINE, "abc", nullptr, { 100, 36, 122, 53 } },
    };
    for (const auto& [font, nAlign, pszText, pDx, cell] : aCases)
    {
        CMemoryPicture picture(200, 120);
        const CUseFont use(picture, font);
        SetBkColor(picture, 0x00FF00);
        SetTextColor(picture, 0x00FF00);
        SetTextAlign(picture, nAlign);
        const auto nLength = static_cast<UINT>(std::strlen(pszText));
        EXPECT_TRUE(ExtTextOutA(picture, 100, 50, 0, nullptr, pszText, nLength, pDx));
        EXPECT_EQ(picture.Inked(), cell) << pszText << nAlign;
    }
}

// Clipped text keeps to its rectangle, and to the clip of the device context.
TEST(BitmapText, KeepsToItsClip)
{
    CMemoryPicture picture(60, 40);
    SetBkMode(picture, TRANSPARENT);
    CUseFont font(picture, FontOf("Times New Roman", -30));
    const RECT rect{ 12, 10, 20, 25 };
    ExtTextOutA(picture, 5, 0, ETO_CLIPPED, &rect, "MMM", 3, nullptr);
    EXPECT_EQ(picture.Inked() | CRect(rect), CRect(rect));
    EXPECT_GT(Places(picture.Lines()).size(), 20u * 6);

    picture.Clear();
    SaveDC(picture);
    IntersectClipRect(picture, 0, 15, 60, 18);
    ExtTextOutA(picture, 5, 0, 0, nullptr, "MMM", 3, nullptr);
    const CRect ink = picture.Inked();
    EXPECT_EQ(ink.top, 15);
    EXPECT_EQ(ink.bottom, 18);
    RestoreDC(picture, -1);
    ExtTextOutA(picture, 5, 0, 0, nullptr, "MMM", 3, nullptr);
    EXPECT_LT(picture.Inked().top, 15);
}

// Sizes and places beyond all bounds draw nothing, or what is seen of them, and spoil nothing.
TEST(BitmapText, SurvivesAbsurdSizesAndPlaces)
{
    CMemoryPicture picture(40, 40);
    CDC& dc = *CDC::FromHandle(picture);
    dc.SetBkMode(TRANSPARENT);
    for (const int nHeight : { -1, -300, -5000, -70000, -100000000, INT32_MIN, INT32_MAX })
    {
        for (const int nWidth : { 0, 1, 5000, INT32_MAX, INT32_MIN })
        {
            CUseFont font(picture, FontOf("Symbol", nHeight, nWidth));
            for (const int n : { 0, INT32_MAX, INT32_MIN })
            {
                RECT rect{ n, n, n, n };
                dc.ExtTextOut(n, n, 0, nullptr, "\xD6(", 2, nullptr);
                dc.DrawText("\xD6(", 2, &rect, DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX);
            }
        }
    }
    const std::string strLong(70000, 'M');
    dc.ExtTextOut(-600000, 0, 0, nullptr, strLong.data(), 70000, nullptr);
    const std::vector<INT> anDx(strLong.size(), INT32_MAX);
    dc.ExtTextOut(0, 0, 0, nullptr, strLong.data(), 70000, anDx.data());

    picture.Clear();
    CUseFont font(picture, FontOf("Times New Roman", -20));
    dc.ExtTextOut(5, 5, 0, nullptr, "x", 1, nullptr);
    EXPECT_GT(Places(picture.Lines()).size(), 10u * 4);
}

// A picture that is too wide for a surface of cairo's takes everything that a narrow one takes.
TEST(BitmapShapes, ReachTheEndOfVeryWidePictures)
{
    constexpr int nWidth = 70000;
    const auto ink = [](int nLeft, auto draw)
    {
        CMemoryPicture picture(nWidth, 8);
        SetBkMode(picture, TRANSPARENT);
        draw(picture, nLeft);
        const CRect box = picture.Inked();
        return std::pair(box.left - nLeft, box.right - nLeft);
    };
    const auto line = [](HDC hDC, int nLeft)
    {
        CUseObject pen(hDC, CreatePen(PS_SOLID, 4, 0));
        MoveToEx(hDC, nLeft, 2, nullptr);
        LineTo(hDC, nLeft + 400, 6);
    };
    const auto text = [](HDC hDC, int nLeft)
    {
        CUseFont font(hDC, FontOf("Times New Roman", -400));
        ExtTextOutA(hDC, nLeft, -200, 0, nullptr, "HH", 2, nullptr);
    };
    for (const int nLeft : { 32500, 60000, 65300 })
    {
        EXPECT_EQ(ink(nLeft, line), ink(100, line)) << nLeft;
        EXPECT_EQ(ink(nLeft, text), ink(100, text)) << nLeft;
    }
    EXPECT_GT(ink(100, text).second, 400);
}
}  // namespace
