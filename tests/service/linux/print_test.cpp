// Printing on a device with a resolution of its own, which a host's cairo context is.
#include "platform/gdi/cairo_dc.h"
#include "platform/gdi/memory_picture.h"
#include "service/service_helpers.h"

namespace
{
using CPrintTest = CServiceTest;

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
        CRect inked;
        for (int y = 0; y < cairo_image_surface_get_height(m_pSurface); ++y)
        {
            for (int x = 0; x < cairo_image_surface_get_width(m_pSurface); ++x)
            {
                if (pData[y * nStride + 4 * x] != 0xFF)
                    inked |= CRect(x, y, x + 1, y + 1);
            }
        }
        return inked;
    }

    CCairoDC m_dc;
};

// The device has twice the screen's resolution: the picture, laid out for the screen, is as large
// in inches, and what is inked lies where it does on the screen.
TEST_F(CPrintTest, PrintsEnlargedByTheRatioOfResolutions)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    const CMemoryPicture plain(rect.Width(), rect.Height());
    formula.DrawTree(CDC::FromHandle(plain), CRect(0, 0, 0, 0));
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
