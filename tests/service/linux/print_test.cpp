// Printing on a device with a resolution of its own, which a host's cairo context is.
#include <algorithm>

#include "nodes/node.h"
#include "platform/gdi/cairo_dc.h"
#include "platform/gdi/linux/cairo_host.h"
#include "service/service_helpers.h"

namespace
{
using CPrintTest = CServiceTest;

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

    const int nSide = 3 * std::max(rect.Width(), rect.Height());
    const CHost host(nSide);
    CCairoDC dc(host, 192, 192);
    EXPECT_EQ(formula.PrintDDB(&dc), 1);
    CRect printed;
    const std::vector<COLORREF> colours = host.Colours();
    for (int n = 0; n < nSide * nSide; ++n)
    {
        if (colours[static_cast<size_t>(n)] != 0xFFFFFF)
            printed |= CRect(CPoint(n % nSide, n / nSide), CSize(1, 1));
    }
    EXPECT_NEAR(printed.left, 2 * inked.left, 1);
    EXPECT_NEAR(printed.top, 2 * inked.top, 1);
    EXPECT_NEAR(printed.right, 2 * inked.right, 1);
    EXPECT_NEAR(printed.bottom, 2 * inked.bottom, 1);

    CBinTree empty;
    EXPECT_EQ(empty.PrintBitmap(&dc), 1);

    // A letter of 133,333 pixels is more than a bitmap can hold.
    formula.m_Tree.GetRootNode()->GetLeft()->GetLeft()->m_logFont.lfHeight = -1000000;
    EXPECT_EQ(formula.PrintDDB(&dc), 0);
    EXPECT_EQ(formula.m_Tree.WriteBitmapFile(File("x.bmp")), 0);
}
}  // namespace
