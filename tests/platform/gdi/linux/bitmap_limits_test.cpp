// Answers to requests that make no sense and that each system gives in its own way.
#include "platform/base/system.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/dib_info.h"
#include "platform/gdi/test_fonts.h"

#include <tuple>

namespace
{

TEST(BitmapLimits, OtherDepthsAndAbsurdSizesAreRefused)
{
    const std::tuple<int, int, UINT, UINT> aCases[] = {
        { 5, 7, 4, 1 },   { 5, 7, 1, 2 },   { 5, 7, 1, 24 },
        { -5, 7, 1, 32 }, { 5, -7, 1, 32 }, { 65536, 65536, 1, 1 },
    };
    for (const auto& [nWidth, nHeight, nPlanes, nBits] : aCases)
    {
        EXPECT_EQ(CreateBitmap(nWidth, nHeight, nPlanes, nBits, nullptr), nullptr)
            << nWidth << 'x' << nHeight << 'x' << nBits;
    }
}

TEST(BitmapLimits, WhatIsOutsideIsInvalid)
{
    CMemoryPicture picture(4, 4);
    CDC other;
    ASSERT_TRUE(other.CreateCompatibleDC(nullptr));
    EXPECT_EQ(other.GetPixel(0, 0), CLR_INVALID);
    EXPECT_EQ(other.SetPixel(0, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(picture, 4, 0, 0), CLR_INVALID);
    CClientDC screen(nullptr);
    EXPECT_FALSE(BitBlt(picture, 0, 0, 4, 1, screen, 0, 0, SRCCOPY)) << "it has no pixels";
}

TEST(DibLimits, LinesBehindTheLastAreNone)
{
    CMemoryPicture picture(1, 4);
    CInfo info(1, 4, 32);
    CBytes bits(16, 0xEE);
    for (const auto& [nStart, nLines] : { std::pair(4u, 1u), { 4u, UINT_MAX }, { UINT_MAX, 1u } })
    {
        EXPECT_EQ(GetDIBits(picture, picture.Bitmap(), nStart, nLines, bits.data(), info.Get(), 0),
                  0);
    }
    EXPECT_EQ(bits, CBytes(16, 0xEE));
}

TEST(DibLimits, RefusalsHaveAnErrorNumber)
{
    CMemoryPicture picture(2, 2);
    const CSpoilHeader aSpoil[] = {
        [](BITMAPINFOHEADER& h) { h.biSize = 12; },
        [](BITMAPINFOHEADER& h) { h.biPlanes = 3; },
        [](BITMAPINFOHEADER& h) { h.biWidth = INT32_MAX; },
    };
    for (const CSpoilHeader& spoil : aSpoil)
    {
        SetLastError(0);
        EXPECT_EQ(AskDib(picture, spoil), 0) << &spoil - aSpoil;
        EXPECT_NE(GetLastError(), 0u) << &spoil - aSpoil;
    }
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
// Beyond the size of kept pictures glyphs are shapes of one path, which is filled once.
TEST(BitmapLimits, LargeGlyphsAreOutlines)
{
    const auto draw = [](const char* pszText)
    {
        CMemoryPicture picture(300, 300);
        SetBkMode(picture, TRANSPARENT);
        const CUseFont font(picture, FontOf("Times New Roman", -260));
        const INT anDx[] = { 0, 0 };
        ExtTextOutA(picture, 5, 0, 0, nullptr, pszText, static_cast<UINT>(std::strlen(pszText)),
                    anDx);
        return picture.Colours();
    };
    EXPECT_EQ(draw("QQ"), draw("Q"));
}

}  // namespace
