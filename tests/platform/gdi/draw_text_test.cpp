// Where texts stand, and what a recorder hears of them.
#include "platform/gdi/dc.h"
#include "platform/gdi/metafile_calls.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{

// The reference point of the only text that is drawn, from the line "text x y options".
template <class F>
CPoint Reference(F draw)
{
    CMetaFileDC dc;
    dc.CreateEnhanced(nullptr, nullptr, nullptr, nullptr);
    {
        const CUseFont use(dc, FontOf("Times New Roman", -16));
        draw(dc.m_hDC);
    }
    int x = -9999, y = -9999, nTexts = 0;
    for (const std::string& strLine : TakeMetafileCalls(dc.CloseEnhanced()))
        nTexts += std::sscanf(strLine.c_str(), "text %d %d", &x, &y) == 2 ? 1 : 0;
    EXPECT_EQ(nTexts, 1);
    return CPoint(x, y);
}

}  // namespace

// "abc" in Times, 16 pixels, is 22 wide and 17 high.
TEST(DrawText, PlacesOneLineByItsFlags)
{
    const std::tuple<CRect, UINT, CPoint> aCases[] = {
        { { 10, 10, 60, 40 }, 0x920, { 10, 10 } },
        { { 10, 10, 60, 40 }, 0x921, { 24, 10 } },
        { { 10, 10, 60, 40 }, 0x922, { 38, 10 } },
        { { 10, 10, 60, 40 }, 0x924, { 10, 17 } },
        { { 10, 10, 60, 40 }, 0x925, { 24, 17 } },
        { { 10, 10, 60, 40 }, 0x926, { 38, 17 } },
        { { 10, 10, 60, 40 }, 0x928, { 10, 23 } },
        { { 10, 10, 60, 40 }, 0x929, { 24, 23 } },
        { { 10, 10, 60, 40 }, 0x92A, { 38, 23 } },
        { { 10, 10, 60, 40 }, 0xB28, { 10, 23 } },  // external leading moves nothing
        { { 10, 10, 60, 40 }, 0xB2A, { 38, 23 } },
        { { 10, 10, 60, 40 }, 0x825, { 24, 17 } },  // clipped
        { { 0, 0, 5, 4 }, 0x925, { -8, -6 } },      // -17 / 2; 4 / 2 - 17 / 2
        { { 0, 0, 5, 5 }, 0x925, { -8, -6 } },      // 5 / 2 - 17 / 2, not -12 / 2
        { { 3, 3, 3, 3 }, 0x925, { -8, -5 } },
        { { 0, 0, 0, -5 }, 0x924, { 0, -10 } },     // -5 / 2 is -2
        { { 60, 40, 10, 10 }, 0x925, { 24, 17 } },  // inverted
        { { 60, 40, 10, 10 }, 0x92A, { -12, -7 } },
        { { -7, -9, -30, -10 }, 0x921, { -29, -9 } },  // (-37 - 22) / 2
    };
    for (const auto& [box, nFlags, point] : aCases)
    {
        CRect rect(box);
        const UINT nFormat = nFlags;
        int nHeight = 0;
        const auto draw = [&](HDC hDC)
        {
            nHeight = DrawTextA(hDC, "abc", 3, &rect, nFormat);
        };
        SCOPED_TRACE(nFormat);
        EXPECT_EQ(Reference(draw), point);
        const int nLeading = nFormat & DT_EXTERNALLEADING ? 1 : 0;
        EXPECT_EQ(nHeight, point.y - box.top + 17 + nLeading);
        EXPECT_EQ(rect, box) << "the rectangle is the caller's";
    }
}
