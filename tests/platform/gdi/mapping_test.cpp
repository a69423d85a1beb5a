// Logical units to pixels and back, to the last bit of the factors.
#include "platform/gdi/dc.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

class MappingTest : public testing::Test
{
protected:
    CPoint ToDevice(int x, int y)
    {
        CPoint point(x, y);
        ::LPtoDP(m_dc, &point, 1);
        return point;
    }
    CPoint ToLogical(int x, int y)
    {
        CPoint point(x, y);
        ::DPtoLP(m_dc, &point, 1);
        return point;
    }

    CClientDC m_dc{ nullptr };
};

}  // namespace

TEST_F(MappingTest, TextModeOnlyMovesOrigins)
{
    EXPECT_EQ(ToDevice(7, -3), CPoint(7, -3));
    m_dc.SetWindowOrg(10, 20);
    m_dc.SetViewportOrg(5, 7);
    EXPECT_EQ(ToDevice(0, 0), CPoint(-5, -13));
    EXPECT_EQ(ToLogical(-5, -13), CPoint(0, 0));
    EXPECT_EQ(m_dc.SetWindowExt(50, 60), CSize(1, 1)) << "extents are fixed";
    EXPECT_EQ(ToDevice(0, 0), CPoint(-5, -13));
}

// Which way each of them is rounded depends on the last bit of a single factor.
TEST_F(MappingTest, ScalesAndRoundsByItsSingleFactors)
{
    enum
    {
        toDevice,
        toLogical
    };
    const struct
    {
        SIZE window, viewport;
        int nDirection;
        CPoint from, to;
    } aCases[] = {
        // clang-format off
        // The inverse of 96 to 100 is a little less than 25 / 24, so that halves go down.
        { { 100, -100 }, { 96, 96 }, toLogical, { 12, 12 }, { 12, -12 } },  // 12.4999995, -12.4999995
        { { 100, -100 }, { 96, 96 }, toLogical, { 36, -36 }, { 37, 37 } },  // 37.4999986
        { { 100, -100 }, { 96, 96 }, toLogical, { -12, -12 }, { -12, 12 } },
        { { 100, -100 }, { 96, 96 }, toLogical, { 11, 16 }, { 11, -17 } },  // 11.458, -16.667
        { { 100, -100 }, { 96, 96 }, toDevice, { 25, 25 }, { 24, -24 } },   // 23.9999995
        { { 100, -100 }, { 96, 96 }, toDevice, { 17, 100 }, { 16, -96 } },  // 16.32
        // The inverse goes by the determinant in single precision: the reciprocal has another bit.
        { { 100, -100 }, { 72, 72 }, toLogical, { 9, 27 }, { 13, -38 } },   // 12.5000006, -37.5000018
        { { 1000, -1000 }, { 96, 96 }, toLogical, { 6, 6 }, { 62, -62 } },  // 62.499996
        // Halves go up on both sides of zero.
        { { 100, 100 }, { 150, 150 }, toDevice, { 1, -1 }, { 2, -1 } },
        { { 100, 100 }, { 150, 150 }, toDevice, { 3, -3 }, { 5, -4 } },
        // clang-format on
    };
    m_dc.SetMapMode(MM_ANISOTROPIC);
    for (const auto& row : aCases)
    {
        m_dc.SetWindowExt(row.window);
        m_dc.SetViewportExt(row.viewport);
        const CPoint to = row.nDirection == toDevice ? ToDevice(row.from.x, row.from.y)
                                                     : ToLogical(row.from.x, row.from.y);
        EXPECT_EQ(to, row.to) << row.viewport.cx << ": " << row.from.x << ',' << row.from.y;
    }
}

TEST_F(MappingTest, OriginsAreAddedOnTheDevice)
{
    SetHundredths(m_dc);
    m_dc.SetWindowOrg(10, 20);
    m_dc.SetViewportOrg(5, 7);
    EXPECT_EQ(ToDevice(10, 20), CPoint(5, 7));
    EXPECT_EQ(ToDevice(110, 120), CPoint(101, -89));
    EXPECT_EQ(ToLogical(101, -89), CPoint(110, 120));
    m_dc.SetWindowOrg(-1000, 333);
    EXPECT_EQ(ToDevice(0, 0), CPoint(965, 327));  // 960 + 5; 319.68 + 7
}

TEST_F(MappingTest, ExtentsOfZeroAndUnknownModesAreRefused)
{
    SetHundredths(m_dc);
    EXPECT_FALSE(SetWindowExtEx(m_dc, 0, 5, nullptr));
    EXPECT_FALSE(SetViewportExtEx(m_dc, 5, 0, nullptr));
    EXPECT_EQ(m_dc.SetMapMode(9), 0);
    EXPECT_EQ(m_dc.SetMapMode(0), 0);
    EXPECT_EQ(m_dc.SetWindowExt(1, 1), CSize(100, -100));
    EXPECT_EQ(m_dc.SetViewportExt(1, 1), CSize(96, 96));
    EXPECT_EQ(m_dc.SetMapMode(MM_TEXT), MM_ANISOTROPIC);
}

TEST_F(MappingTest, ExtremeNumbersDoNoHarm)
{
    m_dc.SetMapMode(MM_ANISOTROPIC);
    m_dc.SetWindowExt(INT_MAX, INT_MIN);
    m_dc.SetViewportExt(1, 1);
    EXPECT_EQ(ToDevice(INT_MAX, 0), CPoint(1, 0));
    m_dc.SetWindowOrg(INT_MIN, INT_MAX);
    ToLogical(INT_MIN, INT_MIN);

    const CUseFont use(m_dc, FontOf("Arial", INT_MIN, INT_MAX));
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32A(m_dc, "abc", 3, &size));
}
