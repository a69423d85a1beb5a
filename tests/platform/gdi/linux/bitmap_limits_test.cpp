// Depths that the system's own bitmaps have only where the screen has them, and answers to requests
// that make no sense and that each system gives in its own way.
#include "platform/base/system.h"
#include "platform/gdi/dib_info.h"
#include "platform/gdi/memory_picture.h"

namespace
{

constexpr UINT s_anDepths[] = { 1, 4, 8, 16, 24, 32 };

TEST(BitmapLimits, PlanesAreDepthAndAbsurdSizesAreRefused)
{
    const struct
    {
        int nWidth, nHeight;
        UINT nPlanes, nBits;
        int nMadeBits;  // 0: refused
    } aCases[] = {
        { 5, 7, 4, 1, 4 },
        { -5, 7, 1, 32, 0 },
        { 5, -7, 1, 32, 0 },
        { 65536, 65536, 1, 1, 0 },
    };
    for (const auto& c : aCases)
    {
        const HBITMAP hBitmap = CreateBitmap(c.nWidth, c.nHeight, c.nPlanes, c.nBits, nullptr);
        BITMAP bitmap{};
        GetObjectA(hBitmap, sizeof bitmap, &bitmap);
        EXPECT_EQ(bitmap.bmBitsPixel, c.nMadeBits) << c.nWidth << 'x' << c.nHeight;
        EXPECT_EQ(DeleteObject(hBitmap), c.nMadeBits ? TRUE : FALSE);
    }
    CMemoryPicture deep(2, 2, 8);
    const HBITMAP hCompatible = CreateCompatibleBitmap(deep, 3, 3);
    BITMAP bitmap{};
    GetObjectA(hCompatible, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmBitsPixel, 8);
    DeleteObject(hCompatible);
}

TEST(BitmapLimits, WhatIsOutsideIsInvalid)
{
    CMemoryPicture picture(4, 4);
    const HDC hOther = CreateCompatibleDC(nullptr);
    EXPECT_EQ(GetPixel(hOther, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(hOther, 0, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(picture, 4, 0, 0), CLR_INVALID);
    DeleteDC(hOther);
    const HDC hScreen = GetDC(nullptr);
    EXPECT_FALSE(BitBlt(picture, 0, 0, 4, 1, hScreen, 0, 0, SRCCOPY)) << "it has no pixels";
    ReleaseDC(nullptr, hScreen);
}

// Worked out by hand. 16 bits: 5 a channel, spread by repeating the upper ones.
TEST(BitmapLimits, AllDepthsHoldTheNearestColour)
{
    const struct
    {
        UINT nBits;
        COLORREF colour, held;
    } aCases[] = {
        { 4, 0x000070, 0x000080 },  { 4, 0x0000C8, 0x0000FF },  { 4, 0xB0B0B0, 0xC0C0C0 },
        { 4, 0xF0F0F0, 0xFFFFFF },  { 4, 0x909090, 0x808080 },  { 8, 0x336699, 0x336699 },
        { 8, 0xFF9900, 0xFF9900 },  { 8, 0x346798, 0x336699 },  { 8, 0xFFFFFF, 0xFFFFFF },
        { 16, 0x040404, 0x000000 }, { 16, 0x050505, 0x080808 }, { 16, 0x0000FE, 0x0000FF },
        { 16, 0x808080, 0x848484 }, { 24, 0x123456, 0x123456 },
    };
    for (const auto& c : aCases)
    {
        CMemoryPicture picture(1, 1, c.nBits);
        EXPECT_EQ(SetPixel(picture, 0, 0, c.colour), c.held) << c.nBits << ' ' << c.colour;
        EXPECT_EQ(GetPixel(picture, 0, 0), c.held);
    }
}

TEST(DibLimits, TablesAndMasksOfAllDepths)
{
    CMemoryPicture picture(1, 1);
    const struct
    {
        WORD nBits;
        std::size_t nColour;
        DWORD quad;
    } aCases[] = { { 4, 7, 0xC0C0C0 },
                   { 4, 8, 0x808080 },
                   { 8, 10, 0x000000 },
                   { 8, 11, 0x000033 },
                   { 8, 225, 0xFFFFFF } };
    for (const auto& c : aCases)
    {
        CInfo info(1, 1, c.nBits);
        EXPECT_NE(GetDIBits(picture, picture.Bitmap(), 0, 1, nullptr, info.Get(), DIB_RGB_COLORS),
                  0);
        EXPECT_EQ(info.Colour(c.nColour), c.quad) << c.nBits << ':' << c.nColour;
    }
    CInfo masks(1, 1, 16, BI_BITFIELDS);
    EXPECT_NE(GetDIBits(picture, picture.Bitmap(), 0, 1, nullptr, masks.Get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(masks.Colour(0), 0x7C00u);
    EXPECT_EQ(masks.Colour(2), 0x001Fu);
}

TEST(DibLimits, TellPlainFormatsForAllDepths)
{
    for (const UINT nBits : s_anDepths)
    {
        CMemoryPicture picture(9, 5, nBits);
        CInfo info(0, 0, 0);
        EXPECT_NE(GetDIBits(picture, picture.Bitmap(), 0, 0, nullptr, info.Get(), DIB_RGB_COLORS),
                  0);
        EXPECT_EQ(info.Header().biBitCount, nBits);
        EXPECT_EQ(info.Header().biCompression, BI_RGB);
        EXPECT_EQ(info.Header().biSizeImage, (9 * nBits + 31) / 32 * 4 * 5);
    }
}

TEST(DibLimits, SetAgainGiveTheSameBitmap)
{
    for (const UINT nBits : s_anDepths)
    {
        CMemoryPicture picture(13, 9, nBits);
        for (int i = 0; i < 13 * 9; ++i)
            SetPixel(picture, i % 13, i / 13, static_cast<COLORREF>(i * 7919 * 31) & 0xFFFFFF);
        CInfo info(13, 9, static_cast<WORD>(nBits));
        const CBytes bits = ReadBits(picture, picture.Bitmap(), info);
        CMemoryPicture copy(13, 9, nBits);
        EXPECT_EQ(SetDIBits(copy, copy.Bitmap(), 0, 9, bits.data(), info.Get(), DIB_RGB_COLORS), 9);
        EXPECT_EQ(copy.Colours(), picture.Colours()) << nBits;
    }
}

TEST(DibLimits, LinesBehindTheLastAreNone)
{
    CMemoryPicture picture(1, 4, 8);
    CInfo info(1, 4, 8);
    CBytes bits(16, 0xEE);
    for (const UINT nStart : { 4u, UINT_MAX })
        for (const UINT nLines : { 1u, UINT_MAX })
            EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), nStart, nLines, bits.data(), info.Get(),
                                DIB_RGB_COLORS),
                      0);
    EXPECT_EQ(bits, CBytes(16, 0xEE));
}

TEST(DibLimits, RefusalsHaveAnErrorNumber)
{
    CMemoryPicture picture(2, 2);
    const auto refused = [&](auto change)
    {
        CInfo info(2, 2, 32);
        change(info.Header());
        CBytes bits(64);
        SetLastError(0);
        return GetDIBits(picture, picture.Bitmap(), 0, 2, bits.data(), info.Get(),
                         DIB_RGB_COLORS) == 0 &&
               GetLastError() != 0;
    };
    EXPECT_FALSE(refused([](BITMAPINFOHEADER&) {}));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biSize = 12; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biBitCount = 2; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biPlanes = 3; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biWidth = -2; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biWidth = INT32_MAX; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biHeight = INT32_MIN; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biCompression = BI_RLE8; }));
}

TEST(BlockTransfers, AverageWhenAskedTo)
{
    CMemoryPicture source(2, 2);
    SetSigns(source, { ".#", ".r" });
    CMemoryPicture picture(1, 1);
    SetStretchBltMode(picture, HALFTONE);
    StretchBlt(picture, 0, 0, 1, 1, source, 0, 0, 2, 2, SRCCOPY);
    // Red 255 * 3 / 4 and the others 255 / 2, rounded.
    EXPECT_EQ(GetPixel(picture, 0, 0), RGB(191, 128, 128));
}
}  // namespace
