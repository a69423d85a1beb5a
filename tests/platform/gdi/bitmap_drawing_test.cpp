// Shapes and text on bitmaps, pixel by pixel.
#include "platform/gdi/dc.h"

#include "platform/gdi/memory_picture.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace
{

using CLines = std::vector<std::string>;
using CPlaces = std::set<std::pair<int, int>>;

CPlaces DarkPlaces(const CMemoryPicture& picture)
{
    CPlaces places;
    const std::vector<COLORREF> colours = picture.Colours();
    for (int i = 0; i < picture.Width() * picture.Height(); ++i)
    {
        if (colours[static_cast<std::size_t>(i)] != 0xFFFFFF)
            places.emplace(i % picture.Width(), i / picture.Width());
    }
    return places;
}

CPlaces LinePlaces(POINT from, POINT to)
{
    CMemoryPicture picture(40, 40);
    MoveToEx(picture, from.x, from.y, nullptr);
    EXPECT_TRUE(LineTo(picture, to.x, to.y));
    POINT now{};
    MoveToEx(picture, 0, 0, &now);
    EXPECT_EQ(now.x, to.x);
    EXPECT_EQ(now.y, to.y);
    return DarkPlaces(picture);
}

TEST(BitmapLines, TakeTheFirstPointAndLeaveTheLast)
{
    const struct
    {
        POINT from, to;
        CPlaces places;
    } aCases[] = {
        { { 10, 10 }, { 15, 10 }, { { 10, 10 }, { 11, 10 }, { 12, 10 }, { 13, 10 }, { 14, 10 } } },
        { { 15, 10 }, { 10, 10 }, { { 15, 10 }, { 14, 10 }, { 13, 10 }, { 12, 10 }, { 11, 10 } } },
        { { 7, 3 }, { 7, 6 }, { { 7, 3 }, { 7, 4 }, { 7, 5 } } },
        { { 7, 6 }, { 7, 3 }, { { 7, 6 }, { 7, 5 }, { 7, 4 } } },
        { { 5, 5 }, { 5, 5 }, {} },
        { { 20, 10 },
          { 16, 20 },
          { { 20, 10 },
            { 20, 11 },
            { 19, 12 },
            { 19, 13 },
            { 18, 14 },
            { 18, 15 },
            { 18, 16 },
            { 17, 17 },
            { 17, 18 },
            { 16, 19 } } },
        { { 3, 3 }, { 6, 6 }, { { 3, 3 }, { 4, 4 }, { 5, 5 } } },
    };
    for (const auto& c : aCases)
    {
        EXPECT_EQ(LinePlaces(c.from, c.to), c.places)
            << c.from.x << ',' << c.from.y << " to " << c.to.x << ',' << c.to.y;
    }
}

// Backwards a line meets the pixels that it meets forwards; ends apart.
TEST(BitmapLines, MeetTheSamePixelsInBothDirections)
{
    const POINT middle{ 20, 20 };
    for (int dx = -15; dx <= 15; ++dx)
    {
        for (int dy = -15; dy <= 15; ++dy)
        {
            const POINT end{ middle.x + dx, middle.y + dy };
            CPlaces there = LinePlaces(middle, end);
            CPlaces back = LinePlaces(end, middle);
            there.insert({ end.x, end.y });
            back.insert({ middle.x, middle.y });
            if (dx == 0 && dy == 0)
                continue;
            EXPECT_EQ(there, back) << dx << ',' << dy;
        }
    }
}

// What lies outside is left out, and shifts nothing that lies inside.
TEST(BitmapLines, FromFarOutsideCrossAtTheSamePlaces)
{
    CPlaces crossing;
    for (int i = 0; i < 40; ++i)
        crossing.emplace(i, i);
    EXPECT_EQ(LinePlaces({ -1000000, -1000000 }, { 1000000, 1000000 }), crossing);
    EXPECT_EQ(LinePlaces({ INT32_MAX, INT32_MAX }, { INT32_MIN, INT32_MIN }), crossing);
    EXPECT_EQ(LinePlaces({ 0, 100 }, { INT32_MAX, 101 }), CPlaces());
}

TEST(BitmapFills, FollowTheRulesForInvertedRectangles)
{
    enum CKind
    {
        fillRect,
        fillSolid
    };
    const struct
    {
        const char* pszName;
        CKind kind;
        RECT rect, filled;
    } aCases[] = {
        { "upright", fillRect, { 5, 6, 9, 8 }, { 5, 6, 9, 8 } },
        { "no width", fillRect, { 5, 5, 5, 9 }, {} },
        { "x inverted: shifted by one", fillRect, { 9, 5, 5, 9 }, { 6, 5, 10, 9 } },
        { "y inverted: shifted by one", fillRect, { 5, 9, 9, 5 }, { 5, 6, 9, 10 } },
        { "upright", fillSolid, { 5, 6, 9, 8 }, { 5, 6, 9, 8 } },
        { "no height", fillSolid, { 5, 5, 9, 5 }, {} },
        { "x inverted: swapped", fillSolid, { 9, 5, 5, 9 }, { 5, 5, 9, 9 } },
        { "y inverted: swapped", fillSolid, { 5, 9, 9, 5 }, { 5, 5, 9, 9 } },
        { "larger than all", fillRect, { -99999999, -1000000000, 5, 1000000000 }, { 0, 0, 5, 16 } },
        { "larger than all", fillSolid, { INT32_MIN, 3, INT32_MAX, 4 }, { 0, 3, 16, 4 } },
    };
    for (const auto& c : aCases)
    {
        CMemoryPicture picture(16, 16);
        if (c.kind == fillSolid)
            CDC::FromHandle(picture)->FillSolidRect(&c.rect, 0x0000FF);
        else
            FillRect(picture, &c.rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        CPlaces expected;
        for (int y = c.filled.top; y < c.filled.bottom; ++y)
        {
            for (int x = c.filled.left; x < c.filled.right; ++x)
                expected.emplace(x, y);
        }
        EXPECT_EQ(DarkPlaces(picture), expected) << c.pszName << ' ' << c.kind;
    }
}

TEST(BitmapRectangles, HaveAnEdgeOfOnePixel)
{
    const struct
    {
        RECT rect;
        CLines lines;
    } aCases[] = {
        { { 1, 1, 6, 5 },
          { "........", ".#####..", ".#rrr#..", ".#rrr#..", ".#####..", "........" } },
        { { 6, 5, 1, 1 },
          { "........", ".#####..", ".#rrr#..", ".#rrr#..", ".#####..", "........" } },
        { { 1, 1, 3, 4 },
          { "........", ".##.....", ".##.....", ".##.....", "........", "........" } },
        { { 1, 1, 2, 5 },
          { "........", ".#......", ".#......", ".#......", ".#......", "........" } },
        { { 5, 3, 1, 2 },
          { "........", "........", ".####...", "........", "........", "........" } },
        { { 1, 1, 6, 1 },
          { "........", "........", "........", "........", "........", "........" } },
    };
    for (const auto& c : aCases)
    {
        CMemoryPicture picture(8, 6);
        CUseObject brush(picture, CreateSolidBrush(0x0000FF));
        EXPECT_TRUE(Rectangle(picture, c.rect.left, c.rect.top, c.rect.right, c.rect.bottom));
        EXPECT_EQ(picture.Lines(), c.lines);
    }
}

TEST(BitmapRectangles, HatchIsFixedToTheDevice)
{
    const auto draw = [](int nBkMode, int nShift)
    {
        CMemoryPicture picture(18, 12);
        SetWindowOrgEx(picture, -nShift, 0, nullptr);
        SetBkMode(picture, nBkMode);
        SetBkColor(picture, 0x00FF00);
        CUseObject pen(picture, CreatePen(PS_SOLID, 1, 0xFF0000));
        CUseObject brush(picture, CreateHatchBrush(HS_BDIAGONAL, 0x0000FF));
        Rectangle(picture, 1 - nShift, 1, 17 - nShift, 11);
        return picture.Lines();
    };
    for (const int nBkMode : { TRANSPARENT, OPAQUE })
    {
        const CLines lines = draw(nBkMode, 0);
        for (int y = 0; y < 12; ++y)
        {
            for (int x = 0; x < 18; ++x)
            {
                const bool bInside = x >= 1 && x < 17 && y >= 1 && y < 11;
                const bool bEdge = bInside && (x == 1 || x == 16 || y == 1 || y == 10);
                char cExpected = nBkMode == OPAQUE ? 'g' : '.';
                if (!bInside)
                    cExpected = '.';
                else if (bEdge)
                    cExpected = 'b';
                else if ((x + y) % 8 == 7)
                    cExpected = 'r';
                EXPECT_EQ(lines[y][x], cExpected) << x << ',' << y;
            }
        }
        EXPECT_EQ(draw(nBkMode, 5), lines);
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

void ExpectNear(const CRect& box, const CRect& expected, const char* pszCase)
{
    EXPECT_NEAR(box.left, expected.left, 1) << pszCase;
    EXPECT_NEAR(box.top, expected.top, 1) << pszCase;
    EXPECT_NEAR(box.right, expected.right, 1) << pszCase;
    EXPECT_NEAR(box.bottom, expected.bottom, 1) << pszCase;
}

// Ink of a glyph by its bounding box in the font file, that of "Symbol" in its published metrics
// (units of 2048 to the em), at 100 pixels to the em; the base line lies at the cell's top plus the
// ascent.
TEST(BitmapText, StandsOnTheBaseLineAtItsSize)
{
    const struct
    {
        const char* pszName;
        LOGFONTA font;
        char cByte;
        int nAscent;
        double xMin, yMin, xMax, yMax;  // font units
        double fRatio;
    } aCases[] = {
        { "H", FontOf("Times New Roman", -100), 'H', 89, 59, 0, 1419, 1341, 1 },
        { "f slanted", FontOf("Times New Roman", -100, 0, 400, true), 'f', 89, 23, -436, 805, 1442,
          1 },
        { "sum", FontOf("Symbol", -100), '\xE5', 101, 29, -252, 1423, 1540, 1 },
        { "radical", FontOf("Symbol", -100), '\xD6', 101, 20, -72, 1055, 1870, 1 },
        // The average width is 59: the bracket is drawn twice as wide.
        { "wide bracket", FontOf("Symbol", -100, 118), '(', 101, 109, -352, 614, 1393, 2 },
        { "h bar", FontOf("MT Extra", -100), 'h', 93, 99, 0, 1131, 1556, 1 },
    };
    for (const auto& c : aCases)
    {
        CMemoryPicture picture(200, 200);
        SetBkMode(picture, TRANSPARENT);
        CUseFont font(picture, c.font);
        EXPECT_TRUE(ExtTextOutA(picture, 50, 20, 0, nullptr, &c.cByte, 1, nullptr));
        const double fScale = 100.0 / 2048;
        const int nBase = 20 + c.nAscent;
        ExpectNear(picture.Inked(),
                   { static_cast<int>(50 + c.xMin * fScale * c.fRatio),
                     static_cast<int>(nBase - c.yMax * fScale),
                     static_cast<int>(50 + c.xMax * fScale * c.fRatio + 0.99),
                     static_cast<int>(nBase - c.yMin * fScale + 0.99) },
                   c.pszName);
    }
}

TEST(BitmapText, TakesItsAdvancesFromTheFontOrTheCaller)
{
    CMemoryPicture picture(60, 20);
    SetBkMode(picture, TRANSPARENT);
    CUseFont font(picture, FontOf("Arial", -10));
    const CMemoryPicture* pPicture = &picture;
    const auto columns = [pPicture]
    {
        std::set<int> tens;
        for (const auto& [x, y] : DarkPlaces(*pPicture))
            tens.insert(x / 10);
        return tens;
    };
    const INT anDx[] = { 20, 30, 10 };
    ExtTextOutA(picture, 1, 2, 0, nullptr, "lll", 3, anDx);
    EXPECT_EQ(columns(), (std::set<int>{ 0, 2, 5 }));
    picture.Clear();
    ExtTextOutA(picture, 1, 2, 0, nullptr, "l l", 3, nullptr);  // advances 2, 3, 2
    EXPECT_EQ(columns(), (std::set<int>{ 0 }));
}

TEST(BitmapText, FillsItsCellWhenOpaque)
{
    CMemoryPicture picture(60, 40);
    CUseFont font(picture, FontOf("Times New Roman", -16));  // ascent 14, descent 3
    SIZE extent{};
    GetTextExtentPoint32A(picture, "ab", 2, &extent);
    ASSERT_EQ(extent.cy, 17);
    SetBkColor(picture, 0x00FF00);
    SetTextColor(picture, 0x00FF00);
    ExtTextOutA(picture, 10, 5, 0, nullptr, "ab", 2, nullptr);
    const CRect ink = picture.Inked();
    EXPECT_EQ(ink.left, 10);
    EXPECT_EQ(ink.top, 5);
    EXPECT_EQ(ink.right, 10 + extent.cx);
    EXPECT_EQ(ink.bottom, 22);
    EXPECT_EQ(picture.Lines()[5].substr(9, 3), ".gg");
}

// Clipped text keeps to its rectangle, and to the clip of the device context.
TEST(BitmapText, KeepsToItsClip)
{
    CMemoryPicture picture(60, 40);
    SetBkMode(picture, TRANSPARENT);
    CUseFont font(picture, FontOf("Times New Roman", -30));
    const RECT rect{ 12, 10, 20, 25 };
    ExtTextOutA(picture, 5, 0, ETO_CLIPPED, &rect, "MMM", 3, nullptr);
    CRect ink = picture.Inked();
    EXPECT_GE(ink.left, 12);
    EXPECT_GE(ink.top, 10);
    EXPECT_LE(ink.right, 20);
    EXPECT_LE(ink.bottom, 25);
    EXPECT_GT(DarkPlaces(picture).size(), 20u);

    picture.Clear();
    SaveDC(picture);
    IntersectClipRect(picture, 0, 15, 60, 18);
    ExtTextOutA(picture, 5, 0, 0, nullptr, "MMM", 3, nullptr);
    ink = picture.Inked();
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
    EXPECT_GT(DarkPlaces(picture).size(), 10u);
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
