// Coordinates beyond the range of numbers end at its limits.
#include "platform/gdi/dc.h"

#include <gtest/gtest.h>

#include <climits>

TEST(MappingLimits, ExtremeNumbersStayInRange)
{
    CClientDC dc(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, -1);
    dc.SetViewportExt(INT_MAX, INT_MAX);
    CPoint point(INT_MAX, INT_MAX);
    ::LPtoDP(dc, &point, 1);
    EXPECT_EQ(point, CPoint(INT_MAX, INT_MIN));
}

// Twice as wide as high: each axis has a factor of its own. "x" of the system font is measured.
TEST(MappingLimits, HeightsGoByTheVerticalFactor)
{
    CClientDC dc(nullptr);
    const CSize plain = dc.GetTextExtent("xx", 2);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, 1);
    EXPECT_EQ(dc.GetTextExtent("xx", 2), CSize(plain.cx / 2, plain.cy));
}
