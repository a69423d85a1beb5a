// Printing on a device with a resolution of its own, which a host's cairo context is.
#include <memory>

#include "platform/gdi/cairo_dc.h"
#include "platform/gdi/memory_picture.h"
#include "service/service_helpers.h"

namespace
{
using CPrintTest = CServiceTest;

CRect Inked(cairo_surface_t* pSurface)
{
    cairo_surface_flush(pSurface);
    const unsigned char* pData = cairo_image_surface_get_data(pSurface);
    const int nStride = cairo_image_surface_get_stride(pSurface);
    CRect inked;
    for (int y = 0; y < cairo_image_surface_get_height(pSurface); ++y)
    {
        for (int x = 0; x < cairo_image_surface_get_width(pSurface); ++x)
        {
            if (pData[y * nStride + 4 * x] != 0xFF)
                inked |= CRect(x, y, x + 1, y + 1);
        }
    }
    return inked;
}

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

    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> page(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, 3 * rect.Width(), 3 * rect.Height()),
        cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo(cairo_create(page.get()),
                                                                   cairo_destroy);
    cairo_set_source_rgb(cairo.get(), 1, 1, 1);
    cairo_paint(cairo.get());
    CCairoDC dc(cairo.get(), 192, 192);
    EXPECT_EQ(formula.PrintDDB(&dc), 1);
    const CRect printed = Inked(page.get());
    EXPECT_NEAR(printed.left, 2 * inked.left, 1);
    EXPECT_NEAR(printed.top, 2 * inked.top, 1);
    EXPECT_NEAR(printed.right, 2 * inked.right, 1);
    EXPECT_NEAR(printed.bottom, 2 * inked.bottom, 1);

    CBinTree empty;
    EXPECT_EQ(empty.PrintBitmap(&dc), 1);
}
}  // namespace
