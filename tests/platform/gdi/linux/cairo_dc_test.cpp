// Drawing on a host's own cairo context: images, PDF and SVG.
#include "platform/gdi/cairo_dc.h"

#include "platform/gdi/linux/cairo_host.h"
#include "platform/gdi/test_fonts.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

namespace
{

// Everything that has to come out the same on a bitmap and on a host's image.
void DrawShapes(CDC& dc)
{
    dc.SetBkMode(TRANSPARENT);
    dc.FillSolidRect(CRect(9, 1, 2, 4), 0x0000FF);
    CBrush green(0x00FF00);
    const CRect inverted(6, 9, 2, 5);
    dc.FillRect(&inverted, &green);
    dc.MoveTo(1, 15);
    dc.LineTo(12, 15);
    dc.MoveTo(12, 14);
    dc.LineTo(1, 14);
    dc.MoveTo(15, 12);
    dc.LineTo(15, 3);
    CBrush hatch(HS_BDIAGONAL, 0xFF0000);
    const CSelectScope brush(&dc, &hatch);
    dc.Rectangle(7, 5, 15, 14);
    dc.IntersectClipRect(CRect(12, 0, 14, 2));
    dc.FillSolidRect(CRect(0, 0, 16, 16), 0);
}

// The host's text is drawn by cairo at once, that of a bitmap from kept pictures of glyphs. Glyphs
// that overlap are left out here: cairo adds them up before it blends them.
TEST(CairoDC, DrawsAsOnABitmap)
{
    constexpr int nSide = 48;
    std::vector<std::function<void(CDC&)>> drawings{ DrawShapes };
    for (const auto& row : {
             std::pair(FontOf("Times New Roman", -12, 0, 400, true), "ax"),
             std::pair(FontOf("Arial", -11, 0, 700), "a\xE4"),
             std::pair(FontOf("Symbol", -14, 0, 700), "\xE5 "),
             std::pair(FontOf("Symbol", -11, 3), "(\xD6"),
             std::pair(FontOf("MT Extra", -12), "hb"),
         })
    {
        drawings.push_back(
            [row](CDC& dc)
            {
                dc.FillSolidRect(CRect(0, 0, 20, nSide), RGB(200, 30, 90));
                dc.SetBkMode(TRANSPARENT);
                dc.SetTextColor(RGB(10, 200, 120));
                CUseFont font(dc, row.first);
                dc.ExtTextOut(10, 5, 0, nullptr, row.second, 2, nullptr);
            });
    }
    for (const auto& draw : drawings)
    {
        CMemoryPicture picture(nSide, nSide);
        draw(*CDC::FromHandle(picture));
        CHost host(nSide);
        // What a host has set besides plays no part.
        cairo_set_operator(host, CAIRO_OPERATOR_DEST_OVER);
        cairo_set_antialias(host, CAIRO_ANTIALIAS_BEST);
        cairo_set_line_width(host, 7);
        cairo_set_line_cap(host, CAIRO_LINE_CAP_SQUARE);
        cairo_set_fill_rule(host, CAIRO_FILL_RULE_EVEN_ODD);
        constexpr double fDash = 2;
        cairo_set_dash(host, &fDash, 1, 0);
        cairo_rectangle(host, 0, 0, 16, 16);
        CCairoDC dc(host);
        draw(dc);
        EXPECT_EQ(host.Lines(), picture.Lines());
        EXPECT_TRUE(host.Colours() == picture.Colours()) << &draw - drawings.data();
    }
}

TEST(CairoDC, TellsTheResolutionAndSizeOfTheHost)
{
    const std::tuple<int, int, int, int> aCases[] = {
        { 200, 150, LOGPIXELSX, 200 },
        { 200, 150, LOGPIXELSY, 150 },
        { 200, 150, HORZRES, CHost::SIZE_PIXELS },
        { 200, 150, HORZSIZE, 2 },  // 16 / 200 of 25.4 mm
        { 200, 150, VERTSIZE, 3 },
        { 1, 1, LOGPIXELSX, 1 },
        { 1, 1, LOGPIXELSY, 1 },
        { 0, -3, LOGPIXELSX, 96 },
        { 0, -3, LOGPIXELSY, 96 },
    };
    CHost host;
    for (const auto& [nDpiX, nDpiY, nIndex, nValue] : aCases)
        EXPECT_EQ(CCairoDC(host, nDpiX, nDpiY).GetDeviceCaps(nIndex), nValue) << nIndex;
    CCairoDC dc(host, 200, 150);
    LOGFONTA font = FontOf("Times New Roman", 720);
    CFont big;
    ASSERT_TRUE(big.CreatePointFontIndirect(&font, &dc));
    big.GetLogFont(&font);
    EXPECT_EQ(font.lfHeight, -150);
}

TEST(CairoDC, LeavesTheStateOfTheHostAlone)
{
    CHost host;
    cairo_t* pCairo = host;
    cairo_set_source_rgb(pCairo, 0, 0, 1);
    cairo_set_line_width(pCairo, 3);
    cairo_set_operator(pCairo, CAIRO_OPERATOR_ADD);
    cairo_set_antialias(pCairo, CAIRO_ANTIALIAS_BEST);
    cairo_rectangle(pCairo, 1, 2, 3, 4);
    const auto state = [pCairo]
    {
        double fBlue = 0, fOther = 0, x1 = 0, y1 = 0, x2 = 0, y2 = 0, fClip = 0;
        cairo_pattern_get_rgba(cairo_get_source(pCairo), &fOther, &fOther, &fBlue, &fOther);
        cairo_path_extents(pCairo, &x1, &y1, &x2, &y2);
        cairo_clip_extents(pCairo, &fOther, &fOther, &fClip, &fOther);
        return std::tuple(cairo_get_line_width(pCairo), cairo_get_operator(pCairo),
                          cairo_get_antialias(pCairo), fBlue, x1, y1, x2, y2, fClip,
                          cairo_status(pCairo));
    };
    const auto before = state();
    {
        CCairoDC dc(pCairo);
        DrawShapes(dc);
        CUseFont font(dc, FontOf("Times New Roman", -12));
        dc.ExtTextOut(1, 1, 0, nullptr, "x", 1, nullptr);
        CMemoryPicture picture(3, 3);
        dc.BitBlt(0, 0, 3, 3, CDC::FromHandle(picture), 0, 0, SRCCOPY);
    }
    EXPECT_EQ(state(), before);
}

TEST(CairoDC, FollowsTheMatrixOfTheHost)
{
    CHost host;
    cairo_translate(host, 2, 0);
    cairo_scale(host, 2, 2);
    CCairoDC dc(host);
    dc.FillSolidRect(CRect(1, 1, 3, 2), 0x0000FF);
    CLines expected(16, std::string(16, '.'));
    expected[2] = expected[3] = "....rrrr........";
    EXPECT_EQ(host.Lines(), expected);
}

TEST(CairoDC, TakesPicturesOfBitmaps)
{
    CMemoryPicture picture(2, 1);
    SetPixel(picture, 0, 0, 0x0000FF);
    CHost host;
    CCairoDC dc(host);
    CDC* pSource = CDC::FromHandle(picture);
    EXPECT_TRUE(dc.StretchBlt(1, 1, 4, 2, pSource, 0, 0, 2, 1, SRCCOPY));
    dc.FillSolidRect(CRect(8, 1, 12, 3), 0x00FF00);
    EXPECT_TRUE(dc.StretchBlt(11, 1, -4, 2, pSource, 0, 0, 2, 1, SRCCOPY));
    EXPECT_TRUE(dc.BitBlt(0, 5, 4, 1, pSource, -1, 0, SRCCOPY));
    CLines expected(16, std::string(16, '.'));
    expected[1] = expected[2] = ".rr.......rr....";
    expected[5] = ".r..............";
    EXPECT_EQ(host.Lines(), expected);
    CMemoryPicture copy(2, 2);
    EXPECT_FALSE(BitBlt(copy, 0, 0, 2, 2, dc, 0, 0, SRCCOPY));  // a host's target is not read
    EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
}

TEST(CairoDC, WithoutAContextOrWithASpoiltOneDrawsNothing)
{
    CCairoDC none(nullptr);
    EXPECT_EQ(none.GetSafeHdc(), nullptr);
    EXPECT_FALSE(none.LineTo(5, 5));

    CSurfacePtr pTooLarge(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 40000, 40000));
    CCairoPtr pSpoilt(cairo_create(pTooLarge.get()));
    ASSERT_NE(cairo_status(pSpoilt.get()), CAIRO_STATUS_SUCCESS);
    CCairoDC dc(pSpoilt.get());
    EXPECT_FALSE(dc.LineTo(5, 5));
    EXPECT_FALSE(dc.Rectangle(0, 0, 5, 5));
    EXPECT_FALSE(dc.ExtTextOut(0, 0, 0, nullptr, "x", 1, nullptr));
    CMemoryPicture picture(3, 3);
    EXPECT_FALSE(dc.BitBlt(0, 0, 3, 3, CDC::FromHandle(picture), 0, 0, SRCCOPY));
}

TEST(CairoDC, AbsurdSizesDoNotSpoilTheContext)
{
    CHost host;
    CCairoDC dc(host);
    for (const int nHeight : { -3000, -70000, INT32_MIN })
    {
        CUseFont font(dc, FontOf("Symbol", nHeight, 300));
        dc.ExtTextOut(0, 0, 0, nullptr, "\xD6", 1, nullptr);
    }
    dc.FillSolidRect(CRect(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX), 0xFFFFFF);
    dc.MoveTo(INT32_MIN, 5);
    dc.LineTo(INT32_MAX, 5);
    EXPECT_EQ(cairo_status(host), CAIRO_STATUS_SUCCESS);
    dc.FillSolidRect(CRect(1, 1, 2, 2), 0x0000FF);
    EXPECT_EQ(host.Lines()[1][1], 'r');
}

cairo_status_t Append(void* pText, const unsigned char* pData, unsigned nLength)
{
    static_cast<std::string*>(pText)->append(reinterpret_cast<const char*>(pData), nLength);
    return CAIRO_STATUS_SUCCESS;
}

using CMakeSurface = cairo_surface_t* (*)(cairo_write_func_t, void*, double, double);

std::string DrawOn(CMakeSurface make)
{
    std::string strBytes;
    const CSurfacePtr pSurface(make(Append, &strBytes, 100, 100));
    const CCairoPtr pCairo(cairo_create(pSurface.get()));
    CCairoDC dc(pCairo.get(), 72, 72);
    dc.SetBkMode(TRANSPARENT);
    {
        CUseFont font(dc, FontOf("Times New Roman", -12));
        dc.ExtTextOut(10, 10, 0, nullptr, "ab", 2, nullptr);
    }
    dc.MoveTo(10, 40);
    dc.LineTo(30, 55);
    CBrush hatch(HS_BDIAGONAL, 0xFF0000);
    const CSelectScope brush(&dc, &hatch);
    dc.Rectangle(40, 40, 60, 60);
    cairo_surface_finish(pSurface.get());
    return strBytes;
}

TEST(CairoDC, KeepsTextAndLinesOnVectorSurfaces)
{
    const std::string strSvg = DrawOn(cairo_svg_surface_create_for_stream);
    EXPECT_NE(strSvg.find("M 10.5 40.5 L 30.5 55.5"), strSvg.npos);  // one line, not its pixels
    // The last of the hatching's lines, of those x + y that are multiples of 8 up to 118.
    EXPECT_NE(strSvg.find("L 45 59 M 71 41 L 53 59 \""), strSvg.npos);
    EXPECT_NE(strSvg.find("<use xlink:href=\"#glyph0-1\""), strSvg.npos);
    EXPECT_EQ(strSvg.find("<image"), strSvg.npos);
    const std::string strPdf = DrawOn(cairo_pdf_surface_create_for_stream);
    EXPECT_NE(strPdf.find("/FontFile2"), strPdf.npos);  // the outlines, as a font
    EXPECT_EQ(strPdf.find("/Subtype /Image"), strPdf.npos);
}
}  // namespace
