// Bitmaps: making them, their colours, device-independent bitmaps, block transfers.
#include "platform/gdi/dib_info.h"
#include "platform/gdi/test_fonts.h"

#include "platform/gdi/dc.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <utility>

namespace
{

BITMAP Describe(HGDIOBJ hBitmap)
{
    BITMAP bitmap{};
    GetObjectA(hBitmap, sizeof bitmap, &bitmap);
    return bitmap;
}

TEST(Bitmaps, AreMadeInTheirDepthAndSize)
{
    // Width, height, planes, bits; width, height, bits and bytes of a row, all 0: refused.
    const std::tuple<int, int, UINT, UINT, std::array<int, 4>> aCases[] = {
        { 5, 7, 1, 1, { 5, 7, 1, 2 } },
        { 17, 7, 1, 1, { 17, 7, 1, 4 } },
        { 5, 7, 1, 32, { 5, 7, 32, 20 } },
        { 0, 7, 1, 32, { 1, 1, 1, 2 } },
        { 7, 0, 9, 99, { 1, 1, 1, 2 } },
        { 1, 100000, 1, 1, { 1, 100000, 1, 2 } },
        { 32767, 1, 1, 32, { 32767, 1, 32, 131068 } },
        { 5, 7, 1, 33, {} },
        { 5, 7, 0, 32, {} },
        { 32767, 32767, 1, 32, {} },
        { INT32_MAX, 1, 1, 1, {} },
        { INT32_MAX, INT32_MAX, 1, 32, {} },
    };
    for (const auto& [nWidth, nHeight, nPlanes, nBits, anMade] : aCases)
    {
        const HBITMAP hBitmap = CreateBitmap(nWidth, nHeight, nPlanes, nBits, nullptr);
        const BITMAP made = Describe(hBitmap);
        const std::array<int, 4> anFound{ made.bmWidth, made.bmHeight, made.bmBitsPixel,
                                          made.bmWidthBytes };
        EXPECT_EQ(anFound, anMade) << nWidth << 'x' << nHeight << ' ' << nBits;
        EXPECT_EQ(made.bmPlanes, hBitmap != nullptr ? 1 : 0);
        EXPECT_EQ(DeleteObject(hBitmap), hBitmap != nullptr ? TRUE : FALSE);
    }
}

TEST(Bitmaps, CompatibleOnesHaveTheDepthOfWhatIsSelected)
{
    CMemoryPicture deep(2, 2);
    CDC empty;
    ASSERT_TRUE(empty.CreateCompatibleDC(nullptr));
    CClientDC screen(nullptr);
    for (const auto& [hDC, nBits] :
         { std::pair<HDC, int>(deep, 32), { empty.m_hDC, 1 }, { screen.m_hDC, 32 } })
    {
        const HBITMAP hBitmap = CreateCompatibleBitmap(hDC, 3, 3);
        EXPECT_EQ(Describe(hBitmap).bmBitsPixel, nBits);
        DeleteObject(hBitmap);
    }
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, 3, 3), nullptr);
}

// With none selected, drawing has no effect and does no harm.
TEST(Bitmaps, AreSelectedIntoOneMemoryContextOnly)
{
    CMemoryPicture picture(4, 4);
    CClientDC screen(nullptr);
    CDC other;
    ASSERT_TRUE(other.CreateCompatibleDC(&screen));
    EXPECT_EQ(other.GetDeviceCaps(BITSPIXEL), 32);
    EXPECT_EQ(SelectObject(other, picture.Bitmap()), nullptr);
    EXPECT_EQ(SelectObject(screen, picture.Bitmap()), nullptr);
    EXPECT_TRUE(other.LineTo(9, 9));
    EXPECT_TRUE(ExtTextOutA(other, 0, 0, 0, nullptr, "x", 1, nullptr));
    EXPECT_EQ(other.GetPixel(1, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(picture, 0, -1), CLR_INVALID);
    EXPECT_EQ(GetPixel(nullptr, 0, 0), CLR_INVALID);

    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(4, 3, 1, 32, nullptr));
    CBitmap* pOld = other.SelectObject(&bitmap);
    ASSERT_NE(pOld, nullptr);
    BITMAP data{};
    EXPECT_GT(pOld->GetBitmap(&data), 0);
    EXPECT_EQ(std::pair(data.bmWidth, data.bmBitsPixel), std::pair(LONG{ 1 }, WORD{ 1 }));
    EXPECT_EQ(other.SelectObject(pOld), &bitmap);
    CDC next;
    ASSERT_TRUE(next.CreateCompatibleDC(nullptr));
    EXPECT_NE(next.SelectObject(&bitmap), nullptr);
}

// A bitmap that is deleted while it is selected goes when it is let go of.
TEST(Bitmaps, DeletedWhileSelectedStillTakeDrawing)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    const HBITMAP hBitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    const HGDIOBJ hOld = SelectObject(dc, hBitmap);
    DeleteObject(hBitmap);
    EXPECT_EQ(dc.SetPixel(0, 0, 0x123456), 0x123456u);
    SelectObject(dc, hOld);
}

// The nearest colour of the depth, worked out by hand.
TEST(Bitmaps, HoldTheNearestColourOfTheirDepth)
{
    const std::tuple<UINT, COLORREF, COLORREF> aCases[] = {
        { 1, 0x7F7F7F, 0x000000 }, { 1, 0x808080, 0xFFFFFF },  { 1, 0x0000FF, 0x000000 },
        { 1, 0x00FFFF, 0xFFFFFF }, { 32, 0x123456, 0x123456 }, { 32, 0xFEDCBA, 0xFEDCBA },
    };
    for (const auto& [nBits, colour, held] : aCases)
    {
        CMemoryPicture picture(1, 1, nBits);
        EXPECT_EQ(SetPixel(picture, 0, 0, colour), held) << nBits << ' ' << colour;
        EXPECT_EQ(GetPixel(picture, 0, 0), held);
    }
}

TEST(Dibs, HoldRowsFromTheBottomFilledToFourBytes)
{
    CMemoryPicture picture(3, 2);
    SetPixel(picture, 0, 0, 0x0000FF);  // red above
    SetPixel(picture, 2, 1, 0x000000);  // black below
    const std::tuple<WORD, int, CBytes> aCases[] = {
        { 1, 2, { 0xC0, 0, 0, 0, 0x60, 0, 0, 0 } },
        { 32, 2, { 255, 255, 255, 0, 255, 255, 255, 0, 0,   0,   0,   0,
                   0,   0,   255, 0, 255, 255, 255, 0, 255, 255, 255, 0 } },
        { 1, -2, { 0x60, 0, 0, 0, 0xC0, 0, 0, 0 } },
    };
    for (const auto& [nBits, nHeight, expected] : aCases)
    {
        CInfo info(3, nHeight, nBits);
        GetDIBits(picture, picture.Bitmap(), 0, 1, nullptr, info.Get(), DIB_RGB_COLORS);
        EXPECT_EQ(info.Header().biSizeImage, expected.size());
        CBytes bits(expected.size(), 0xEE);
        EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), 0, 2, bits.data(), info.Get(), 0), 2);
        for (std::size_t i = 3; nBits == 32 && i < bits.size(); i += 4)
            bits[i] = 0;  // no colour
        EXPECT_EQ(bits, expected) << nBits;
        const CBytes table(info.m_bytes.begin() + sizeof(BITMAPINFOHEADER), info.m_bytes.end());
        EXPECT_EQ(table, nBits == 1 ? CBytes({ 0, 0, 0, 0, 255, 255, 255, 0 }) : CBytes());
    }
}

TEST(Dibs, TellTheFormatOfTheBitmap)
{
    for (const UINT nBits : { 1u, 32u })
    {
        CMemoryPicture picture(9, 5, nBits);
        CInfo info(0, 0, 0);
        info.Header().biPlanes = 0;
        EXPECT_NE(GetDIBits(picture, picture.Bitmap(), 0, 0, nullptr, info.Get(), DIB_RGB_COLORS),
                  0);
        const BITMAPINFOHEADER& h = info.Header();
        EXPECT_EQ(std::tuple(h.biWidth, h.biHeight, h.biPlanes, h.biBitCount),
                  std::tuple(9, 5, 1, nBits));
        EXPECT_EQ(h.biSizeImage, (9 * nBits + 31) / 32 * 4 * 5);
    }
}

TEST(Dibs, GiveTheLinesThatAreAskedFor)
{
    CMemoryPicture picture(1, 4);
    SetPixel(picture, 0, 0, 0x0000FF);
    // The first byte of each line, the blue; EE: not written.
    const std::tuple<UINT, UINT, int, int, CBytes> aCases[] = {
        { 0, 4, 4, 4, { 255, 255, 255, 0 } },        { 2, 2, 4, 2, { 255, 0, 0xEE, 0xEE } },
        { 2, 9, 4, 2, { 255, 0, 0xEE, 0xEE } },      { 2, 2, -4, 2, { 0, 255, 0xEE, 0xEE } },
        { 0, UINT_MAX, 4, 4, { 255, 255, 255, 0 } },
    };
    for (const auto& [nStart, nLines, nHeight, nGiven, first] : aCases)
    {
        CInfo info(1, nHeight, 32);
        CBytes bits(16, 0xEE);
        EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), nStart, nLines, bits.data(), info.Get(),
                            DIB_RGB_COLORS),
                  nGiven);
        EXPECT_EQ((CBytes{ bits[0], bits[4], bits[8], bits[12] }), first)
            << nStart << '+' << nLines;
    }
}

TEST(Dibs, RefuseWhatMakesNoSense)
{
    CMemoryPicture picture(2, 2);
    EXPECT_EQ(AskDib(picture, [](BITMAPINFOHEADER&) {}), 2);
    const CSpoilHeader aSpoil[] = {
        [](BITMAPINFOHEADER& h) { h.biBitCount = 0; },
        [](BITMAPINFOHEADER& h) { h.biBitCount = 2; },
        [](BITMAPINFOHEADER& h) { h.biWidth = 0; },
        [](BITMAPINFOHEADER& h) { h.biWidth = -2; },
        [](BITMAPINFOHEADER& h) { h.biHeight = 0; },
        [](BITMAPINFOHEADER& h) { h.biHeight = INT32_MIN; },
        [](BITMAPINFOHEADER& h) { h.biCompression = 1; },  // run lengths
    };
    for (const CSpoilHeader& spoil : aSpoil)
        EXPECT_EQ(AskDib(picture, spoil), 0) << &spoil - aSpoil;
    CInfo info(2, 2, 32);
    const auto hPen = static_cast<HBITMAP>(GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetDIBits(picture, nullptr, 0, 2, nullptr, info.Get(), 0), 0);
    EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), 0, 2, nullptr, nullptr, 0), 0);
    EXPECT_EQ(GetDIBits(nullptr, picture.Bitmap(), 0, 2, nullptr, info.Get(), 0), 0);
    EXPECT_EQ(GetDIBits(picture, hPen, 0, 2, nullptr, info.Get(), DIB_RGB_COLORS), 0);
}

TEST(Bitmaps, TakeTheirFirstContentFromTheTop)
{
    const BYTE aMono[] = { 0xA0, 0, 0x40, 0 };  // rows filled up to 16 bits
    CMemoryPicture mono(3, 2);
    const CUseObject use(mono, CreateBitmap(3, 2, 1, 1, aMono));
    CMemoryPicture picture(3, 2);
    BitBlt(picture, 0, 0, 3, 2, mono, 0, 0, SRCCOPY);
    EXPECT_EQ(picture.Lines(), CLines({ ".#.", "#.#" }));
}

TEST(BlockTransfers, StretchShrinkAndMirror)
{
    CMemoryPicture source(4, 2);
    SetSigns(source, { "rgb#", "####" });
    // Rectangles are origin and extent.
    const std::tuple<const char*, RECT, RECT, CLines> aCases[] = {
        // clang-format off
        { "copied", { 1, 0, 4, 1 }, { 0, 0, 4, 1 }, { ".rgb#...", "........" } },
        { "twice", { 0, 0, 8, 2 }, { 0, 0, 4, 1 }, { "rrggbb##", "rrggbb##" } },
        { "half: black wins", { 0, 0, 2, 1 }, { 0, 0, 4, 2 }, { "##......", "........" } },
        { "half across: dark wins", { 0, 0, 2, 1 }, { 0, 0, 4, 1 }, { "##......", "........" } },
        { "beyond the source", { 0, 0, 6, 1 }, { -1, 0, 6, 1 }, { ".rgb#...", "........" } },
        { "beyond the end", { 6, 1, 4, 2 }, { 0, 0, 4, 2 }, { "........", "......rg" } },
        // An inverted extent runs from its first pixel to the left.
        { "mirrored", { 4, 0, -4, 1 }, { 0, 0, 4, 1 }, { ".#bgr...", "........" } },
        { "mirrored twice", { 4, 0, -4, 1 }, { 3, 0, -4, 1 }, { ".rgb#...", "........" } },
        { "nothing", { 0, 0, 0, 1 }, { 0, 0, 4, 1 }, { "........", "........" } },
        { "of nothing", { 0, 0, 4, 1 }, { 0, 0, 0, 1 }, { "........", "........" } },
        { "absurd", { INT32_MIN, 0, INT32_MAX, 9 }, { 0, 0, INT32_MAX, 1 }, { "........", "........" } },
        // clang-format on
    };
    for (const auto& [pszName, to, from, lines] : aCases)
    {
        CMemoryPicture picture(8, 2);
        EXPECT_TRUE(StretchBlt(picture, to.left, to.top, to.right, to.bottom, source, from.left,
                               from.top, from.right, from.bottom, SRCCOPY));
        EXPECT_EQ(picture.Lines(), lines) << pszName;
    }
}

TEST(BlockTransfers, WithinOneBitmapReadBeforeTheyWrite)
{
    CMemoryPicture picture(6, 1);
    SetSigns(picture, { "rgb..." });
    BitBlt(picture, 1, 0, 5, 1, picture, 0, 0, SRCCOPY);
    EXPECT_EQ(picture.Lines(), CLines({ "rrgb.." }));
    BitBlt(picture, 0, 0, 5, 1, picture, 1, 0, SRCCOPY);
    EXPECT_EQ(picture.Lines(), CLines({ "rgb..." }));
    EXPECT_FALSE(BitBlt(picture, 0, 0, 4, 1, nullptr, 0, 0, SRCCOPY)) << "it needs two contexts";
    EXPECT_FALSE(BitBlt(nullptr, 0, 0, 4, 1, picture, 0, 0, SRCCOPY));
    EXPECT_EQ(picture.Lines(), CLines({ "rgb..." }));
}

// One bit has two colours of the destination; what is not the source's background becomes black.
TEST(BlockTransfers, ChangeBetweenOneBitAndColours)
{
    CMemoryPicture mono(3, 1, 1);
    SetSigns(mono, { "#.#" });
    CMemoryPicture colours(3, 1);
    SetTextColor(colours, 0x0000FF);
    SetBkColor(colours, 0x00FF00);
    BitBlt(colours, 0, 0, 3, 1, mono, 0, 0, SRCCOPY);
    EXPECT_EQ(colours.Lines(), CLines({ "rgr" }));
    SetBkColor(colours, 0x0000FF);
    BitBlt(mono, 0, 0, 3, 1, colours, 0, 0, SRCCOPY);
    EXPECT_EQ(mono.Lines(), CLines({ ".#." }));
}
}  // namespace
