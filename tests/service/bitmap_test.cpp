#include <algorithm>

#include "platform/base/system.h"
#include "platform/gdi/cairo_dc.h"
#include "platform/gdi/dc.h"
#include "service/service_helpers.h"

namespace
{
using CBitmapTest = CServiceTest;

std::int32_t SignedAt(const std::string& strBytes, size_t nOffset)
{
    return static_cast<std::int32_t>(NumberAt(strBytes, nOffset));
}

CRect ScreenRect(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    return formula.GetFormulaRect(&screen);
}

// What holds all points that are inked.
template <class IsInked>
CRect InkedPart(int cx, int cy, IsInked isInked)
{
    CRect inked(cx, cy, 0, 0);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
        {
            if (isInked(x, y))
            {
                inked =
                    CRect(std::min<int>(inked.left, x), std::min<int>(inked.top, y),
                          std::max<int>(inked.right, x + 1), std::max<int>(inked.bottom, y + 1));
            }
        }
    }
    return inked;
}

// A memory device context with a white bitmap.
class CCanvas
{
public:
    CCanvas(int cx, int cy) : m_rect(0, 0, cx, cy)
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_bitmap.CreateBitmap(cx, cy, 1, 32, nullptr);
        m_pOld = m_dc.SelectObject(&m_bitmap);
        m_dc.FillSolidRect(&m_rect, 0xFFFFFF);
    }
    ~CCanvas() { m_dc.SelectObject(m_pOld); }
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;

    // Where something other than white is.
    CRect Inked() const
    {
        return InkedPart(m_rect.right, m_rect.bottom,
                         [&](int x, int y) { return m_dc.GetPixel(x, y) != 0xFFFFFF; });
    }

    CDC m_dc;

private:
    CRect m_rect;
    CBitmap m_bitmap;
    CBitmap* m_pOld;
};

// A page with a resolution of its own.
class CPage
{
    cairo_surface_t* m_pSurface;
    cairo_t* m_pCairo;

public:
    CPage(int cx, int cy, int nDpi)
        : m_pSurface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, cx, cy)),
          m_pCairo(cairo_create(m_pSurface)),
          m_dc(m_pCairo, nDpi, nDpi)
    {
        cairo_set_source_rgb(m_pCairo, 1, 1, 1);
        cairo_paint(m_pCairo);
    }
    ~CPage()
    {
        cairo_destroy(m_pCairo);
        cairo_surface_destroy(m_pSurface);
    }
    CPage(const CPage&) = delete;
    CPage& operator=(const CPage&) = delete;

    CRect Inked() const
    {
        cairo_surface_flush(m_pSurface);
        const unsigned char* pData = cairo_image_surface_get_data(m_pSurface);
        const int nStride = cairo_image_surface_get_stride(m_pSurface);
        return InkedPart(cairo_image_surface_get_width(m_pSurface),
                         cairo_image_surface_get_height(m_pSurface),
                         [&](int x, int y)
                         {
                             std::uint32_t nPixel = 0;
                             std::memcpy(&nPixel, pData + y * nStride + 4 * x, sizeof nPixel);
                             return (nPixel & 0xFFFFFF) != 0xFFFFFF;
                         });
    }

    CCairoDC m_dc;
};

TEST_F(CBitmapTest, WritesABmpOfTheFormulasSize)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    ASSERT_EQ(formula.m_Tree.WriteBitmapFile(File("x.bmp")), 1);
    const std::string strFile = ReadWhole(File("x.bmp"));
    const size_t nPixels = static_cast<size_t>(rect.Width() * rect.Height());
    ASSERT_EQ(strFile.size(), 14 + 40 + nPixels * 4);
    EXPECT_EQ(strFile.substr(0, 2), "BM");
    EXPECT_EQ(NumberAt(strFile, 2), strFile.size());
    EXPECT_EQ(NumberAt(strFile, 6), 0U);
    EXPECT_EQ(NumberAt(strFile, 10), 54U);
    EXPECT_EQ(NumberAt(strFile, 14), 40U);
    EXPECT_EQ(SignedAt(strFile, 18), rect.Width());
    EXPECT_EQ(SignedAt(strFile, 22), rect.Height());
    EXPECT_EQ(NumberAt(strFile, 26), 1U | 32U << 16);
    EXPECT_EQ(NumberAt(strFile, 30), 0U);
    // White in the corner, ink somewhere.
    EXPECT_EQ(NumberAt(strFile, 54) & 0xFFFFFF, 0xFFFFFFU);
    size_t nInk = 0;
    for (size_t n = 0; n < nPixels; ++n)
        nInk += (NumberAt(strFile, 54 + 4 * n) & 0xFFFFFF) < 0x808080 ? 1 : 0;
    EXPECT_GT(nInk, 20U);
    EXPECT_LT(nInk, nPixels / 4);

    ASSERT_EQ(formula.m_Tree.WriteBitmapFile(File("y.bmp")), 1);
    EXPECT_EQ(ReadWhole(File("y.bmp")), strFile);
}

// A bitmap of no size is one of 1 by 1 with one bit: two colours, a row of four bytes.
TEST_F(CBitmapTest, AnEmptyTreeIsOneMonochromePixel)
{
    CBinTree tree;
    ASSERT_EQ(tree.WriteBitmapFile(File("x.bmp")), 1);
    const std::string strFile = ReadWhole(File("x.bmp"));
    EXPECT_EQ(strFile.size(), 14U + 40 + 8 + 4);
    EXPECT_EQ(NumberAt(strFile, 10), 62U);
    EXPECT_EQ(SignedAt(strFile, 18), 1);
    EXPECT_EQ(NumberAt(strFile, 26), 1U | 1U << 16);
}

TEST_F(CBitmapTest, PacksBitmapsOfEveryDepth)
{
    const struct
    {
        int nBits;
        SIZE_T nColours;
    } aCases[] = { { 1, 2 }, { 4, 16 }, { 8, 256 }, { 24, 0 }, { 32, 0 } };
    CBinTree tree;
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.nBits);
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.CreateBitmap(5, 3, 1, static_cast<UINT>(c.nBits), nullptr));
        HANDLE hDib = tree.BitmapToDIB(&bitmap, BI_RGB, nullptr);
        ASSERT_NE(hDib, nullptr);
        const SIZE_T nRow = static_cast<SIZE_T>((5 * c.nBits + 31) / 32 * 4);
        EXPECT_EQ(GlobalSize(hDib), 40 + 4 * c.nColours + 3 * nRow);
        GlobalFree(hDib);
        EXPECT_EQ(tree.BitmapToDIB(&bitmap, BI_BITFIELDS, nullptr), nullptr);
    }
}

// The device has twice the screen's resolution: the picture, laid out for the screen, is as large
// in inches, and what is inked lies where it does on the screen.
TEST_F(CBitmapTest, PrintsEnlargedByTheRatioOfResolutions)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    CCanvas plain(rect.Width(), rect.Height());
    formula.DrawTree(&plain.m_dc, CRect(0, 0, 0, 0));
    const CRect inked = plain.Inked();
    ASSERT_GT(inked.Height(), 20);

    CPage page(3 * rect.Width(), 3 * rect.Height(), 192);
    EXPECT_EQ(formula.PrintDDB(&page.m_dc), 1);
    const CRect printed = page.Inked();
    EXPECT_NEAR(printed.left, 2 * inked.left, 1);
    EXPECT_NEAR(printed.top, 2 * inked.top, 1);
    EXPECT_NEAR(printed.right, 2 * inked.right, 1);
    EXPECT_NEAR(printed.bottom, 2 * inked.bottom, 1);

    CBinTree empty;
    EXPECT_EQ(empty.PrintBitmap(&page.m_dc), 1);
}
}  // namespace
