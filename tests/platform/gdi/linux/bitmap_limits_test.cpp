// Answers to requests that make no sense and that each system gives in its own way.
#include "platform/base/system.h"
#include "platform/gdi/dib_info.h"
#include "platform/gdi/memory_picture.h"

namespace
{

TEST(BitmapLimits, OtherDepthsAndAbsurdSizesAreRefused)
{
    const struct
    {
        int nWidth, nHeight;
        UINT nPlanes, nBits;
    } aCases[] = {
        { 5, 7, 4, 1 },   { 5, 7, 1, 2 },   { 5, 7, 1, 24 },
        { -5, 7, 1, 32 }, { 5, -7, 1, 32 }, { 65536, 65536, 1, 1 },
    };
    for (const auto& c : aCases)
    {
        EXPECT_EQ(CreateBitmap(c.nWidth, c.nHeight, c.nPlanes, c.nBits, nullptr), nullptr)
            << c.nWidth << 'x' << c.nHeight << 'x' << c.nBits;
    }
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

TEST(DibLimits, LinesBehindTheLastAreNone)
{
    CMemoryPicture picture(1, 4);
    CInfo info(1, 4, 32);
    CBytes bits(16, 0xEE);
    for (const UINT nStart : { 4u, UINT_MAX })
    {
        for (const UINT nLines : { 1u, UINT_MAX })
        {
            EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), nStart, nLines, bits.data(), info.Get(),
                                DIB_RGB_COLORS),
                      0);
        }
    }
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
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biCompression = 1; }));
}

// Four pixels on six: each takes the one under its middle.
TEST(BlockTransfers, TakeTheSourceUnderTheMiddle)
{
    CMemoryPicture source(4, 1);
    SetSigns(source, { "rgb#" });
    CMemoryPicture picture(6, 1);
    StretchBlt(picture, 0, 0, 6, 1, source, 0, 0, 4, 1, SRCCOPY);
    EXPECT_EQ(picture.Lines(), CLines({ "rggb##" }));
}

TEST(BitmapLimits, ARectangleWithoutAnEdgeIsOnePixelSmaller)
{
    CMemoryPicture picture(5, 4);
    CUseObject pen(picture, GetStockObject(NULL_PEN));
    CUseObject brush(picture, GetStockObject(BLACK_BRUSH));
    Rectangle(picture, 1, 1, 4, 4);
    EXPECT_EQ(picture.Lines(), CLines({ ".....", ".##..", ".##..", "....." }));
}
}  // namespace
