// Scroll bars, their messages and the wheel. The expected numbers follow by hand from the extents
// of two formulas, which are asserted first: 26 x 92 and 30 x 192 pixels.
#include <gtest/gtest.h>

#include <sstream>

#include "control/control_driver.h"
#include "nodes/node.h"

namespace
{

constexpr const char* s_pszLow = "(a/b)/(c/d)";
constexpr const char* s_pszHigh = "((a/b)/(c/d))/((e/f)/(g/h))";

TEST(Scrolling, TheFormulasAreAsHighAsTheRowsBelowSay)
{
    EXPECT_EQ(CControlDriver(s_pszLow).Control().GetMeasuredRect(), CRect(0, 0, 26, 92));
    EXPECT_EQ(CControlDriver(s_pszHigh).Control().GetMeasuredRect(), CRect(0, 0, 30, 192));
}

struct CBarCase
{
    CSize size;
    const char* pszBars;  // on, position, end and page of both, client area
};

constexpr CBarCase s_aBarCases[] = {
    { { 300, 200 }, "0 0 0 0 0 0 0 300x200" }, { { 26, 92 }, "0 0 0 0 0 0 0 26x92" },  // just fits
    { { 60, 91 }, "2 0 0 0 0 91 91 43x91" },    // too low by one
    { { 43, 91 }, "2 0 0 0 0 91 91 26x91" },    // the bar leaves just the width
    { { 25, 150 }, "1 0 25 25 0 0 0 25x133" },  // too narrow by one
    { { 26, 91 }, "3 0 25 9 0 91 74 9x74" },    // the vertical bar makes the other one needed
    { { 25, 108 }, "3 0 25 25 0 91 91 8x91" },  // and this one gets no room kept for it
    { { 30, 30 }, "3 0 25 14 0 91 14 13x13" },  // a bar counts 18 pixels once it is on
    { { 0, 0 }, "0 0 0 0 0 0 0 0x0" },         { { 0, 50 }, "0 0 0 0 0 0 0 0x50" },
};

TEST(Scrolling, BarsAreOnWhereTheFormulaIsLarger)
{
    for (const CBarCase& one : s_aBarCases)
    {
        CControlDriver driver(s_pszLow);
        std::ostringstream script;
        script << "size " << one.size.cx << ' ' << one.size.cy;
        EXPECT_EQ(driver.Last(script.str(), BARS), one.pszBars) << script.str();
    }
}

// Every size ends the same way whether it is come to from larger or smaller ones or begun with, but
// for those where the bars have no rest.
TEST(Scrolling, EverySizeComesToRest)
{
    for (int nWidth = 20; nWidth < 60; nWidth += 3)
    {
        for (int nHeight = 20; nHeight < 130; nHeight += 7)
        {
            CControlDriver driver(s_pszLow, CSize(nWidth, nHeight));
            EXPECT_LT(driver.m_Window.GetPaintCount(), 20) << nWidth << 'x' << nHeight;
        }
    }
}

struct CScrollCase
{
    int nFrom;
    UINT nCode;
    int nTo;
};

// The formula ends at 191. In a window of one pixel's height a page is one pixel.
constexpr CScrollCase s_aScrollCases[] = {
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

TEST(Scrolling, CodesMoveThePosition)
{
    CControlDriver low(s_pszHigh, CSize(300, 1));
    CControlDriver narrow("a+b+c+d+e+f+g+h", CSize(1, 300));
    const int nWide = narrow.Control().GetMeasuredRect().Width() - 1;
    for (const CScrollCase& one : s_aScrollCases)
    {
        low.m_Window.SendScroll(SB_VERT, SB_THUMBTRACK, one.nFrom);
        low.m_Window.SendScroll(SB_VERT, one.nCode, 7);
        low.m_Window.Settle();
        EXPECT_EQ(low.m_Window.GetBar(SB_VERT).GetPos(), one.nTo)
            << one.nCode << " from " << one.nFrom;

        // The twin, by its distance from the same end.
        const int nOff = one.nFrom > 90 ? nWide - 191 : 0;
        const int nOffTo = one.nTo > 90 ? nWide - 191 : 0;
        narrow.m_Window.SendScroll(SB_HORZ, SB_THUMBPOSITION, one.nFrom + nOff);
        narrow.m_Window.SendScroll(SB_HORZ, one.nCode, 7);
        narrow.m_Window.Settle();
        EXPECT_EQ(narrow.m_Window.GetBar(SB_HORZ).GetPos(), one.nTo + nOffTo)
            << one.nCode << " from " << one.nFrom << " across";
    }
}

// A long thumb cannot reach the end: 191 less a page of 100, and one.
TEST(Scrolling, ThePageKeepsThePositionBack)
{
    CControlDriver driver(s_pszHigh, CSize(300, 100));
    EXPECT_EQ(driver.Last("vscroll 7", BARS), "2 0 0 0 92 191 100 283x100");
    EXPECT_EQ(driver.Last("vscroll 2", BARS), "2 0 0 0 0 191 100 283x100");
    EXPECT_EQ(driver.Last("vscroll 4 40;size 300 150", BARS), "2 0 0 0 40 191 150 283x150");
}

struct CWheelCase
{
    UINT nLines;
    const char* pszScript;  // from position 40
    int nTo;
};

constexpr CWheelCase s_aWheelCases[] = {
    { 3, "wheel 120", 10 },
    { 3, "wheel -120", 70 },
    { 3, "wheel 40", 30 },
    { 3, "wheel 39", 40 },
    { 3, "wheel -39", 40 },
    { 1, "wheel 240", 20 },
    { 0, "wheel 120", 40 },
    { WHEEL_PAGESCROLL, "wheel 120", 0 },
    { WHEEL_PAGESCROLL, "wheel -240", 92 },
    { WHEEL_PAGESCROLL, "wheel -119", 40 },
    { 0x80000001U, "wheel 240", 20 },  // the product wraps to 240
};

TEST(Scrolling, TheWheelMovesLinesOrPages)
{
    for (const CWheelCase& one : s_aWheelCases)
    {
        CControlDriver driver(s_pszHigh, CSize(300, 100), one.nLines);
        driver.Play(std::string("vscroll 4 40;") + one.pszScript);
        EXPECT_EQ(driver.m_Window.GetBar(SB_VERT).GetPos(), one.nTo)
            << one.nLines << " lines, " << one.pszScript;
    }
}

TEST(Scrolling, PicturesAndHitsMoveTogether)
{
    CControlDriver driver(s_pszHigh, CSize(60, 60));
    for (const char* pszPlace : { "LLLL", "LLLR", "LRRR" })
    {
        const CRect rect = driver.NodeAt(pszPlace)->m_rect;
        driver.m_Window.SendScroll(SB_VERT, SB_THUMBPOSITION, rect.top - 20);
        driver.m_Window.Settle();
        EXPECT_EQ(driver.Last(std::string("press @") + pszPlace, SELECTION),
                  std::string("/") + pszPlace + ":1");
    }
}

}  // namespace
