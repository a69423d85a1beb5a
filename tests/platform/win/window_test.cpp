// Handles, life and thin operations of windows.
#include "platform/gdi/dc.h"
#include "platform/win/window_dc.h"
#include "test_window.h"

#include <gtest/gtest.h>

TEST(Window, IsFoundByItsHandleWhileItLives)
{
    CTestParent parent;
    const HWND hWnd = parent;
    ASSERT_TRUE(::IsWindow(hWnd));
    EXPECT_EQ(CWnd::FromHandle(hWnd), &parent);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), &parent);
    EXPECT_EQ(CClientDC(&parent).GetDeviceCaps(LOGPIXELSX), 96);
    EXPECT_TRUE(parent.DestroyWindow());
    EXPECT_EQ(parent.GetSafeHwnd(), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
    EXPECT_FALSE(parent.DestroyWindow());
}
