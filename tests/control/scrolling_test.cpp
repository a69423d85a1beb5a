// Scroll bars, their messages and the wheel. The expected numbers follow by hand from the extents
// of two formulas, 26 x 92 and 30 x 192 pixels.
#include <gtest/gtest.h>

#include <tuple>

#include "control/control_driver.h"

namespace
{

constexpr const char* s_pszLow = "(a/b)/(c/d)";
constexpr const char* s_pszHigh = "((a/b)/(c/d))/((e/f)/(g/h))";

// The bars' last state: what is on, position, end and page of both, client area.
TEST(Scrolling, ScriptsLeadToBars)
{
    constexpr UINT nPages = WHEEL_PAGESCROLL;
    constexpr UINT nWraps = 0x80000001U;  // twice that is 2
    const std::tuple<const char*, UINT, const char*, const char*> aCases[] = {
        { s_pszLow, 3, "size 26 92", "0 0 0 0 0 0 0 26x92" },      // just fits
        { s_pszLow, 3, "size 43 91", "2 0 0 0 0 91 91 26x91" },    // the bar leaves just the width
        { s_pszLow, 3, "size 25 150", "1 0 25 25 0 0 0 25x133" },  // too narrow by one
        { s_pszLow, 3, "size 26 91", "3 0 25 9 0 91 74 9x74" },    // one bar needs the other
        { s_pszLow, 3, "size 25 108", "3 0 25 25 0 91 91 8x91" },  // which gets no room kept for it
        { s_pszLow, 3, "size 30 30", "3 0 25 14 0 91 14 13x13" },  // a bar counts 18 pixels once on
        { s_pszLow, 3, "size 0 0", "0 0 0 0 0 0 0 0x0" },
        // A long thumb cannot reach the end: 191 less a page of 100, and one.
        { s_pszHigh, 3, "vscroll 7", "2 0 0 0 92 191 100 283x100" },
        // Lines of ten pixels or pages
        { s_pszHigh, 3, "vscroll 4 40;wheel -120", "2 0 0 0 70 191 100 283x100" },
        { s_pszHigh, 3, "vscroll 4 40;wheel 40", "2 0 0 0 30 191 100 283x100" },
        { s_pszHigh, 0, "vscroll 4 40;wheel 120", "2 0 0 0 40 191 100 283x100" },
        { s_pszHigh, nPages, "vscroll 4 40;wheel -240", "2 0 0 0 92 191 100 283x100" },
        { s_pszHigh, nPages, "vscroll 4 40;wheel -119", "2 0 0 0 40 191 100 283x100" },
        { s_pszHigh, nWraps, "vscroll 4 40;wheel 240", "2 0 0 0 20 191 100 283x100" },
    };
    for (const auto& [pszText, nWheelLines, pszScript, pszBars] : aCases)
    {
        CControlDriver driver(pszText, CSize(300, 100), nWheelLines);
        EXPECT_EQ(driver.Last(pszScript, BARS), pszBars) << nWheelLines << " lines, " << pszScript;
    }
}

// This one needs its bars only while they are on.
TEST(Scrolling, ASizeWithoutRestIsCutOff)
{
    EXPECT_LT(CControlDriver(s_pszLow, CSize(20, 92)).m_Window.GetPaintCount(), 20);
}

// The formula ends at 191. In a window of one pixel's height a page is one pixel.
TEST(Scrolling, CodesMoveThePosition)
{
    // From, code, to.
    const std::tuple<int, UINT, int> aCases[] = {
        { 10, SB_LINEUP, 0 },
        { 11, SB_LINEUP, 1 },
        { 0, SB_LINEUP, 0 },
        { 180, SB_LINEDOWN, 190 },
        { 181, SB_LINEDOWN, 191 },
        { 191, SB_LINEDOWN, 191 },
        { 1, SB_PAGEUP, 0 },
        { 2, SB_PAGEUP, 1 },
        { 189, SB_PAGEDOWN, 190 },
        { 190, SB_PAGEDOWN, 191 },
        { 50, SB_TOP, 0 },
        { 50, SB_BOTTOM, 191 },
        { 50, 8, 50 },
        { 50, 9, 50 },
    };
    const std::tuple<int, UINT, const char*, CSize> aBars[] = {
        { SB_VERT, SB_THUMBTRACK, s_pszHigh, CSize(300, 1) },
        { SB_HORZ, SB_THUMBPOSITION, "a+b+c+d+e+f+g+h", CSize(1, 300) },
    };
    for (const auto& [nBar, nThumb, pszText, size] : aBars)
    {
        CControlDriver driver(pszText, size);
        const CSize extent = driver.Control().GetMeasuredRect().Size();
        // The twin of a place near the end has the same distance from it.
        const int nFarther = (nBar == SB_VERT ? extent.cy : extent.cx) - 192;
        const auto place = [=](int nPlace)
        {
            return nPlace + (nPlace > 90 ? nFarther : 0);
        };
        for (const auto& [nFrom, nCode, nTo] : aCases)
        {
            driver.m_Window.SendScroll(nBar, nThumb, place(nFrom));
            driver.m_Window.SendScroll(nBar, nCode, 7);
            driver.m_Window.Settle();
            CPoint corner;
            driver.Control().ClientToFormula(corner);
            EXPECT_EQ(nBar == SB_VERT ? corner.y : corner.x, place(nTo))
                << nCode << " from " << nFrom << " of bar " << nBar;
        }
    }
}

}  // namespace
