// Calls members and Windows functions of the same names, with the characters that the including
// file has chosen: MIVORA_HOST_SUITE names its tests. Both have to find the same text and font.
#include <gtest/gtest.h>

#include <cstring>

#include <mivora/platform/win/menu.h>
#include <mivora/platform/win/window.h>

namespace
{
constexpr int SIDE = 100;

class MIVORA_HOST_SUITE : public testing::Test
{
protected:
    void SetUp() override
    {
        CClientDC screen(nullptr);
        ASSERT_TRUE(m_dc.CreateCompatibleDC(&screen));
        ASSERT_TRUE(m_bitmap.CreateCompatibleBitmap(&screen, SIDE, SIDE));
        m_pOldBitmap = m_dc.SelectObject(&m_bitmap);

        LOGFONTA ours = {};
        ours.lfHeight = -30;
        std::strcpy(ours.lfFaceName, "Arial");
        ASSERT_TRUE(m_font.CreateFontIndirect(&ours));

        LOGFONT theirs = {};
        ASSERT_EQ(::GetObject(m_font.GetSafeHandle(), sizeof(theirs), &theirs),
                  static_cast<int>(sizeof(theirs)));
        EXPECT_EQ(theirs.lfHeight, -30);
        EXPECT_EQ(theirs.lfFaceName[4], TEXT('l'));
        m_hSameFont = ::CreateFontIndirect(&theirs);
        ASSERT_NE(m_hSameFont, nullptr);

        LOGFONTA again = {};
        ASSERT_GT(m_font.GetLogFont(&again), 0);
        EXPECT_STREQ(again.lfFaceName, "Arial");
        m_pOldFont = m_dc.SelectObject(&m_font);
    }
    void TearDown() override
    {
        m_dc.SelectObject(m_pOldFont);
        m_dc.SelectObject(m_pOldBitmap);
        ::DeleteObject(m_hSameFont);
    }

    // Draws once through the class and once through the system, and compares the pixels.
    template <class TOurs, class TTheirs>
    void ExpectSamePicture(TOurs ours, TTheirs theirs)
    {
        COLORREF aPixels[2][SIDE * SIDE];
        for (int n = 0; n < 2; ++n)
        {
            m_dc.FillSolidRect(0, 0, SIDE, SIDE, RGB(255, 255, 255));
            n == 0 ? ours() : theirs();
            int nInk = 0;
            for (int i = 0; i < SIDE * SIDE; ++i)
            {
                aPixels[n][i] = m_dc.GetPixel(i % SIDE, i / SIDE);
                nInk += aPixels[n][i] != RGB(255, 255, 255);
            }
            EXPECT_GT(nInk, 50);
        }
        EXPECT_EQ(std::memcmp(aPixels[0], aPixels[1], sizeof(aPixels[0])), 0);
    }

    CDC m_dc;
    CBitmap m_bitmap;
    CFont m_font;
    HFONT m_hSameFont = nullptr;
    CBitmap* m_pOldBitmap = nullptr;
    CFont* m_pOldFont = nullptr;
};

TEST_F(MIVORA_HOST_SUITE, TextIsDrawnTheSameByMemberAndFunction)
{
    RECT rect = { 5, 5, 95, 95 };
    int anHeight[2] = {};
    ExpectSamePicture([&] { anHeight[0] = m_dc.DrawText("Ab", -1, &rect, DT_RIGHT); },
                      [&] { anHeight[1] = ::DrawText(m_dc, TEXT("Ab"), -1, &rect, DT_RIGHT); });
    EXPECT_EQ(anHeight[0], anHeight[1]);

    constexpr int anSpacing[] = { 40, 40 };
    ExpectSamePicture([&] { m_dc.ExtTextOut(10, 20, 0, nullptr, "Ef", 2, anSpacing); },
                      [&] { ::ExtTextOut(m_dc, 10, 20, 0, nullptr, TEXT("Ef"), 2, anSpacing); });
}

TEST_F(MIVORA_HOST_SUITE, MetricsAreTheSameByMemberAndFunction)
{
    TEXTMETRICA ours = {};
    ASSERT_TRUE(m_dc.GetTextMetrics(&ours));

    TEXTMETRIC theirs = {};
    const HGDIOBJ hOld = ::SelectObject(m_dc, m_hSameFont);
    ASSERT_TRUE(::GetTextMetrics(m_dc, &theirs));
    ::SelectObject(m_dc, hOld);
    EXPECT_EQ(ours.tmHeight, theirs.tmHeight);
    EXPECT_EQ(ours.tmAscent, theirs.tmAscent);
    EXPECT_EQ(ours.tmAveCharWidth, theirs.tmAveCharWidth);
    EXPECT_GT(ours.tmHeight, 30);
}

TEST_F(MIVORA_HOST_SUITE, WindowsAndMenusAreTheSameByMemberAndFunction)
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
