// The screen that formulas are measured for: the same on every platform.
#include <gtest/gtest.h>

#include <iterator>

#include "platform/gdi/gdi.h"

namespace
{

// By index: the classic look, which the prefix of the tests under Wine sets as well.
constexpr COLORREF s_acrClassic[] = {
    0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000,  //  0 to  7
    0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0xD77800, 0xFFFFFF, 0xC8D0D4,  //  8 to 15
    0x808080, 0x6D6D6D, 0x000000, 0xC8D0D4, 0xFFFFFF,                                // 16 to 20
};

}  // namespace

TEST(Screen, SystemColoursAndTheirBrushesAreTheClassicOnes)
{
    for (int nIndex = 0; nIndex < static_cast<int>(std::size(s_acrClassic)); ++nIndex)
    {
        EXPECT_EQ(GetSysColor(nIndex), s_acrClassic[nIndex]) << nIndex;
        LOGBRUSH brush{};
        ASSERT_GT(GetObjectA(GetSysColorBrush(nIndex), sizeof brush, &brush), 0) << nIndex;
        EXPECT_EQ(brush.lbStyle, UINT{ BS_SOLID }) << nIndex;
        EXPECT_EQ(brush.lbColor, s_acrClassic[nIndex]) << nIndex;
    }
}
