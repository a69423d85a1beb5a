// Calls members and Windows functions of the same names, with the characters that the including
// file has chosen: MIVORA_HOST_SUITE names its tests. Both have to find the same text and font.
#include <gtest/gtest.h>

#include <cstring>

#include <mivora/platform/win/menu.h>
#include <mivora/platform/win/window.h>

namespace
{
TEST(MIVORA_HOST_SUITE, TextsAndFontsAreTheSameByMemberAndFunction)
{
    LOGFONTA ours = {};
    ours.lfHeight = -30;
    std::strcpy(ours.lfFaceName, "Arial");
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(&ours));
    LOGFONT theirs = {};
    ASSERT_EQ(::GetObject(font.GetSafeHandle(), sizeof theirs, &theirs),
              static_cast<int>(sizeof theirs));
    EXPECT_EQ(theirs.lfHeight, -30);
    EXPECT_EQ(theirs.lfFaceName[4], TEXT('l'));
    LOGFONTA again = {};
    ASSERT_GT(font.GetLogFont(&again), 0);
    EXPECT_STREQ(again.lfFaceName, "Arial");

    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(100, 100, 1, 32, nullptr));
    CBitmap* pOldBitmap = dc.SelectObject(&bitmap);
    ::SetBoundsRect(dc, nullptr, DCB_ENABLE | DCB_RESET);
    const auto drawn = [&]
    {
        CRect rect(0, 0, 0, 0);
        ::GetBoundsRect(dc, &rect, DCB_RESET);
        return rect;
    };
    RECT rect = { 5, 5, 95, 95 };
    constexpr int anSpacing[] = { 40, 40 };
    CFont* pOldFont = dc.SelectObject(&font);
    TEXTMETRICA ourMetrics = {};
    ASSERT_TRUE(dc.GetTextMetrics(&ourMetrics));
    EXPECT_GT(ourMetrics.tmHeight, 30);
    const int nHeight = dc.DrawText("Ab", -1, &rect, DT_RIGHT);
    const CRect ourText = drawn();
    EXPECT_GT(ourText.left, 30);
    dc.ExtTextOut(10, 20, 0, nullptr, "Ef", 2, anSpacing);
    const CRect ourSpaced = drawn();
    EXPECT_GT(ourSpaced.Width(), 40);

    const HFONT hSameFont = ::CreateFontIndirect(&theirs);
    ::SelectObject(dc, hSameFont);
    TEXTMETRIC theirMetrics = {};
    ASSERT_TRUE(::GetTextMetrics(dc, &theirMetrics));
    EXPECT_EQ(ourMetrics.tmHeight, theirMetrics.tmHeight);
    EXPECT_EQ(ourMetrics.tmAscent, theirMetrics.tmAscent);
    EXPECT_EQ(ourMetrics.tmAveCharWidth, theirMetrics.tmAveCharWidth);
    EXPECT_EQ(::DrawText(dc, TEXT("Ab"), -1, &rect, DT_RIGHT), nHeight);
    EXPECT_EQ(drawn(), ourText);
    ::ExtTextOut(dc, 10, 20, 0, nullptr, TEXT("Ef"), 2, anSpacing);
    EXPECT_EQ(drawn(), ourSpaced);
    dc.SelectObject(pOldFont);
    dc.SelectObject(pOldBitmap);
    ::DeleteObject(hSameFont);
}

TEST(MIVORA_HOST_SUITE, WindowsAndMenusAreTheSameByMemberAndFunction)
{
    TCHAR szText[20];
    CString strText;
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, "STATIC", "", 0, CRect(0, 0, 50, 20), nullptr, 0));
    window.SetWindowText("Ab");
    EXPECT_EQ(::GetWindowText(window, szText, 20), 2);
    EXPECT_EQ(szText[1], TEXT('b'));
    EXPECT_EQ(::GetWindowTextLength(window), 2);
    ::SetWindowText(window, TEXT("Cde"));
    window.GetWindowText(strText);
    EXPECT_STREQ(strText, "Cde");
    EXPECT_EQ(::SendMessage(window, WM_GETTEXTLENGTH, 0, 0), window.SendMessage(WM_GETTEXTLENGTH));
    WNDPROC pfnDefault = ::DefWindowProc;
    EXPECT_EQ(pfnDefault(window, WM_NULL, 0, 0), 0);

    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    ASSERT_TRUE(menu.AppendMenu(MF_STRING, 5, "Fg"));
    EXPECT_EQ(::GetMenuString(menu, 5, szText, 20, MF_BYCOMMAND), 2);
    ASSERT_TRUE(::ModifyMenu(menu, 5, MF_BYCOMMAND, 6, TEXT("Hij")));
    EXPECT_EQ(menu.GetMenuString(6, strText, MF_BYCOMMAND), 3);
    EXPECT_STREQ(strText, "Hij");
}
}  // namespace
