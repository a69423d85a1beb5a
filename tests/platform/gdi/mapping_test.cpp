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
    POINT ToDevice(int x, int y)
    {
        POINT point{ x, y };
        ::LPtoDP(m_dc, &point, 1);
        return point;
    }
    POINT ToLogical(int x, int y)
    {
        POINT point{ x, y };
        ::DPtoLP(m_dc, &point, 1);
        return point;
    }
    static void Expect(POINT point, int x, int y)
    {
        EXPECT_EQ(point.x, x);
        EXPECT_EQ(point.y, y);
    }

    CClientDC m_dc{ nullptr };
};

}  // namespace

TEST_F(MappingTest, TextModeOnlyMovesOrigins)
{
    Expect(ToDevice(7, -3), 7, -3);
    m_dc.SetWindowOrg(10, 20);
    m_dc.SetViewportOrg(5, 7);
    Expect(ToDevice(0, 0), -5, -13);
    Expect(ToLogical(-5, -13), 0, 0);
    EXPECT_EQ(m_dc.SetWindowExt(50, 60), CSize(1, 1)) << "extents are fixed";
    Expect(ToDevice(0, 0), -5, -13);
}

// The inverse factor of 96 to 100 is a little less than 25 / 24, so that halves go down.
TEST_F(MappingTest, HundredthsOfAnInchRoundByTheirSingleFactors)
{
    SetHundredths(m_dc);
    Expect(ToLogical(12, 12), 12, -12);  // 12.4999995, -12.4999995
    Expect(ToLogical(36, -36), 37, 37);  // 37.4999986
    Expect(ToLogical(-12, -12), -12, 12);
    Expect(ToLogical(11, 16), 11, -17);  // 11.458, -16.667
    Expect(ToDevice(25, 25), 24, -24);   // 23.9999995
    Expect(ToDevice(17, 100), 16, -96);  // 16.32
}

// The inverse goes by the determinant in single precision: the reciprocal has another last bit.
TEST_F(MappingTest, TheInverseIsNotTheReciprocal)
{
    SetHundredths(m_dc, 72);
    Expect(ToLogical(9, 27), 13, -38);  // 12.5000006, -37.5000018
    m_dc.SetWindowExt(1000, -1000);
    m_dc.SetViewportExt(96, 96);
    Expect(ToLogical(6, 6), 62, -62);  // 62.499996
}

TEST_F(MappingTest, HalvesGoUpOnBothSidesOfZero)
{
    SetHundredths(m_dc, 150, 1);
    Expect(ToDevice(1, -1), 2, -1);
    Expect(ToDevice(3, -3), 5, -4);
}

TEST_F(MappingTest, OriginsAreAddedOnTheDevice)
{
    SetHundredths(m_dc);
    m_dc.SetWindowOrg(10, 20);
    m_dc.SetViewportOrg(5, 7);
    Expect(ToDevice(10, 20), 5, 7);
    Expect(ToDevice(110, 120), 101, -89);
    Expect(ToLogical(101, -89), 110, 120);
    m_dc.SetWindowOrg(-1000, 333);
    Expect(ToDevice(0, 0), 965, 327);  // 960 + 5; 319.68 + 7
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
    Expect(ToDevice(INT_MAX, 0), 1, 0);
    m_dc.SetWindowOrg(INT_MIN, INT_MAX);
    ToLogical(INT_MIN, INT_MIN);

    LOGFONTA font = FontOf("Arial", INT_MIN, INT_MAX);
    CUseFont use(m_dc, font);
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32A(m_dc, "abc", 3, &size));
}
