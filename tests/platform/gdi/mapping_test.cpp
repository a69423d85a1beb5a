// Logical units to pixels and back, to the last bit of the factors.
#include "platform/gdi/dc.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

namespace
{

using CDirection = decltype(&::LPtoDP);
const CDirection toDevice = ::LPtoDP, toLogical = ::DPtoLP;

CPoint Mapped(CDC& dc, CDirection direction, CPoint point)
{
    direction(dc, &point, 1);
    return point;
}

// Which way each of them is rounded depends on the last bit of a single factor.
TEST(Mapping, ScalesAndRoundsByItsSingleFactorsAndAddsOriginsOnTheDevice)
{
    struct CMapping
    {
        SIZE window, viewport;
        POINT windowOrigin, viewportOrigin;
    };
    constexpr CMapping hundredths{ { 100, -100 }, { 96, 96 }, {}, {} };
    constexpr CMapping downwards{ { 100, 100 }, { 150, 150 }, {}, {} };
    constexpr CMapping moved{ { 100, -100 }, { 96, 96 }, { 10, 20 }, { 5, 7 } };
    constexpr CMapping text{ { 1, 1 }, { 1, 1 }, { 10, 20 }, { 5, 7 } };
    const std::tuple<CMapping, CDirection, CPoint, CPoint> aCases[] = {
        // The inverse of 96 to 100 is a little less than 25 / 24, so that halves go down.
        { hundredths, toLogical, { 12, 12 }, { 12, -12 } },  // 12.4999995, -12.4999995
        { hundredths, toLogical, { 36, -36 }, { 37, 37 } },  // 37.4999986
        { hundredths, toLogical, { -12, -12 }, { -12, 12 } },
        { hundredths, toLogical, { 11, 16 }, { 11, -17 } },  // 11.458, -16.667
        { hundredths, toDevice, { 25, 25 }, { 24, -24 } },   // 23.9999995
        { hundredths, toDevice, { 17, 100 }, { 16, -96 } },  // 16.32
        // The inverse goes by the determinant in single precision: the reciprocal has another bit.
        { { { 100, -100 }, { 72, 72 }, {}, {} }, toLogical, { 9, 27 }, { 13, -38 } },
        { { { 1000, -1000 }, { 96, 96 }, {}, {} }, toLogical, { 6, 6 }, { 62, -62 } },
        // Halves go up on both sides of zero.
        { downwards, toDevice, { 1, -1 }, { 2, -1 } },
        { downwards, toDevice, { 3, -3 }, { 5, -4 } },
        { moved, toDevice, { 10, 20 }, { 5, 7 } },
        { moved, toDevice, { 110, 120 }, { 101, -89 } },
        { moved, toLogical, { 101, -89 }, { 110, 120 } },
        { { { 100, -100 }, { 96, 96 }, { -1000, 333 }, { 5, 7 } },
          toDevice,
          { 0, 0 },
          { 965, 327 } },  // 960 + 5; 319.68 + 7
        { text, toDevice, { 7, -3 }, { 2, -16 } },
        { text, toLogical, { -5, -13 }, { 0, 0 } },
    };
    for (const auto& [mapping, direction, from, to] : aCases)
    {
        CClientDC dc(nullptr);
        dc.SetWindowOrg(mapping.windowOrigin);
        dc.SetViewportOrg(mapping.viewportOrigin);
        dc.SetMapMode(mapping.window.cx == 1 ? MM_TEXT : MM_ANISOTROPIC);
        dc.SetWindowExt(mapping.window);
        dc.SetViewportExt(mapping.viewport);
        EXPECT_EQ(Mapped(dc, direction, from), to)
            << mapping.viewport.cx << ": " << from.x << ',' << from.y;
    }
}

TEST(Mapping, ExtentsOfZeroAndUnknownModesAreRefused)
{
    CClientDC dc(nullptr);
    EXPECT_EQ(dc.SetWindowExt(50, 60), CSize(1, 1)) << "extents are fixed";
    EXPECT_EQ(Mapped(dc, toDevice, { 7, -3 }), CPoint(7, -3));
    SetHundredths(dc);
    EXPECT_FALSE(SetWindowExtEx(dc, 0, 5, nullptr));
    EXPECT_FALSE(SetViewportExtEx(dc, 5, 0, nullptr));
    EXPECT_EQ(dc.SetMapMode(9), 0);
    EXPECT_EQ(dc.SetMapMode(0), 0);
    EXPECT_EQ(dc.SetWindowExt(1, 1), CSize(100, -100));
    EXPECT_EQ(dc.SetViewportExt(1, 1), CSize(96, 96));
    EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_ANISOTROPIC);
}

TEST(Mapping, ExtremeNumbersDoNoHarm)
{
    CClientDC dc(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(INT_MAX, INT_MIN);
    dc.SetViewportExt(1, 1);
    EXPECT_EQ(Mapped(dc, toDevice, { INT_MAX, 0 }), CPoint(1, 0));
    dc.SetWindowOrg(INT_MIN, INT_MAX);
    Mapped(dc, toLogical, { INT_MIN, INT_MIN });

    const CUseFont use(dc, FontOf("Arial", INT_MIN, INT_MAX));
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32A(dc, "abc", 3, &size));
}

}  // namespace
