// Handles, life, exceptions and thin operations of windows.
#include "platform/base/app.h"
#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "platform/win/edit.h"
#include "platform/win/module.h"
#include "platform/win/system_call.h"
#include "platform/win/window_dc.h"
#include "test_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace
{
TEST(Window, IsFoundByItsHandleWhileItLives)
{
    CTestParent parent;
    const HWND hWnd = parent;
    ASSERT_TRUE(::IsWindow(hWnd));
    EXPECT_EQ(CWnd::FromHandle(hWnd), &parent);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), &parent);
    EXPECT_TRUE(parent.DestroyWindow());
    EXPECT_EQ(parent.GetSafeHwnd(), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
    EXPECT_FALSE(parent.DestroyWindow());

    // Of somebody else: one object, until the loop is idle. It owns nothing.
    const HWND hForeign =
        ::CreateWindowA("STATIC", "", 0, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    CWnd* pTemporary = CWnd::FromHandle(hForeign);
    EXPECT_EQ(CWnd::FromHandle(hForeign), pTemporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(hForeign), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hForeign));
    CWnd attached;
    EXPECT_TRUE(attached.Attach(hForeign));
    EXPECT_EQ(CWnd::FromHandle(hForeign), &attached);
    EXPECT_EQ(attached.Detach(), hForeign);
    ::DestroyWindow(hForeign);
}

TEST(Window, ThinOperationsAreTheSystems)
{
    CTestParent parent;
    CWnd window;
    MakeChild(window, parent, 17, WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
    EXPECT_EQ(window.GetDlgCtrlID(), 17);
    EXPECT_EQ(parent.GetDlgItem(17), &window);
    EXPECT_EQ(window.GetParent(), &parent);
    EXPECT_EQ(window.GetOwner(), &parent);
    CTestParent owner;
    window.SetOwner(&owner);
    EXPECT_EQ(window.GetOwner(), &owner);
    EXPECT_EQ(window.GetParent(), &parent);
    window.SetOwner(nullptr);
    EXPECT_EQ(window.GetOwner(), &parent);

    CString strText;
    window.SetWindowText("a text of some length");
    window.GetWindowText(strText);
    EXPECT_STREQ(strText, "a text of some length");
    window.SetWindowText("");
    window.GetWindowText(strText);
    EXPECT_TRUE(strText.IsEmpty());

    const int nBar = ::GetSystemMetrics(SM_CXVSCROLL);
    CRect rect;
    window.GetClientRect(&rect);
    EXPECT_EQ(rect, CRect(0, 0, 200 - nBar, 100 - nBar));
    window.EnableScrollBarCtrl(SB_VERT, FALSE);
    window.GetClientRect(&rect);
    EXPECT_EQ(rect, CRect(0, 0, 200, 100 - nBar));
    window.EnableScrollBarCtrl(SB_BOTH, TRUE);
    window.SetScrollRange(SB_HORZ, 0, 99);
    SCROLLINFO info = {};
    info.fMask = SIF_PAGE;
    info.nPage = 20;
    window.SetScrollInfo(SB_HORZ, &info);
    EXPECT_EQ(window.SetScrollPos(SB_HORZ, 200), 0);
    EXPECT_EQ(window.GetScrollPos(SB_HORZ), 80);  // 99 - (20 - 1)
    ASSERT_TRUE(window.GetScrollInfo(SB_HORZ, &info));
    EXPECT_EQ(info.nMax, 99);
    EXPECT_EQ(info.nPage, 20U);

    window.MoveWindow(CRect(5, 6, 55, 46), FALSE);
    window.GetWindowRect(&rect);
    parent.ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(5, 6, 55, 46));
    CPoint point(1, 2);
    window.ClientToScreen(&point);
    window.ScreenToClient(&point);
    EXPECT_EQ(point, CPoint(1, 2));

    CFont font;
    LOGFONTA logFont = {};
    logFont.lfHeight = -20;
    font.CreateFontIndirect(&logFont);
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE, CRect(0, 0, 90, 20), &parent, 3));
    edit.SetFont(&font);
    EXPECT_EQ(edit.GetFont()->GetSafeHandle(), font.GetSafeHandle());
    edit.SetWindowText("number");
    edit.SetSel(1, 3);
    edit.ReplaceSel("");
    int nStart = 9;
    int nEnd = 9;
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(CPoint(nStart, nEnd), CPoint(1, 1));
    edit.SetSel(0, -1);
    edit.GetSel(nStart, nEnd);
    EXPECT_EQ(CPoint(nStart, nEnd), CPoint(0, 4));
}

TEST(Window, ContextsBelongToTheirWindow)
{
    CTestParent parent;
    CWnd window;
    MakeChild(window, parent, 1, WS_VISIBLE | WS_BORDER);
    parent.ShowWindow(SW_SHOW);
    window.ValidateRect(nullptr);
    window.InvalidateRect(CRect(10, 20, 30, 40), FALSE);
    {
        CPaintDC dc(&window);
        EXPECT_EQ(CRect(dc.m_ps.rcPaint), CRect(10, 20, 30, 40));
        EXPECT_EQ(::WindowFromDC(dc), window.GetSafeHwnd());
    }
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE));
    {
        CPaintDC dc(&window);  // nothing to paint: nothing is drawn, and nothing fails
        EXPECT_TRUE(CRect(dc.m_ps.rcPaint).IsRectEmpty());
    }
    CRect rect;
    CWindowDC whole(&window);
    EXPECT_EQ(::GetClipBox(whole, &rect), SIMPLEREGION);
    EXPECT_EQ(rect.Size(), CSize(200, 100));
    CClientDC inside(&window);
    ::GetClipBox(inside, &rect);
    EXPECT_EQ(rect.Size(), CSize(198, 98));
    CWnd none;
    EXPECT_NO_THROW(CWindowDC screen(nullptr));
}

// ---- Life

// Tells its end; bDelete: and deletes itself.
class CMortal : public CWnd
{
public:
    explicit CMortal(bool bDelete = false) : m_bDelete(bDelete) {}
    ~CMortal() override { Log("Deleted"); }

    std::function<int()> m_onCreate;
    std::function<void()> m_onApp;

private:
    int OnCreate(LPCREATESTRUCTA) { return m_onCreate ? m_onCreate() : 0; }
    void OnDestroy()
    {
        Log("Destroy");
        Default();
    }
    LRESULT OnApp(WPARAM, LPARAM)
    {
        m_onApp();
        return 3;
    }
    void PostNcDestroy() override
    {
        Log("Gone", m_hWnd == nullptr);
        if (m_bDelete)
            delete this;
    }
    bool m_bDelete;
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CMortal, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_MESSAGE(WM_APP, OnApp)
END_MESSAGE_MAP()

TEST(Window, ObjectAndWindowMayEndInAnyOrder)
{
    CTestParent parent;
    {
        CMortal window;  // the window first
        MakeChild(window, parent);
        window.DestroyWindow();
        EXPECT_EQ(TakeLog(), "Destroy Gone(1)");
    }
    EXPECT_EQ(TakeLog(), "Deleted");
    auto pWindow = std::make_unique<CMortal>();  // the object first
    MakeChild(*pWindow, parent);
    const HWND hWnd = *pWindow;
    pWindow.reset();
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(TakeLog(), "Deleted") << "the handlers of the derived class are gone by then";

    auto* pSelf = new CMortal(true);  // the window takes the object with it
    MakeChild(*pSelf, parent);
    pSelf->DestroyWindow();
    EXPECT_EQ(TakeLog(), "Destroy Gone(1) Deleted");

    pSelf = new CMortal(true);  // in a handler
    MakeChild(*pSelf, parent);
    pSelf->m_onApp = [=]
    {
        pSelf->DestroyWindow();
    };
    EXPECT_EQ(pSelf->SendMessage(WM_APP), 3);
    EXPECT_EQ(TakeLog(), "Destroy Gone(1) Deleted");

    pSelf = new CMortal;  // the object, in its own handler
    MakeChild(*pSelf, parent);
    pSelf->m_onApp = [=]
    {
        delete pSelf;
    };
    EXPECT_EQ(pSelf->SendMessage(WM_APP), 3);
    EXPECT_EQ(TakeLog(), "Deleted");

    auto* pOwner = new CMortal(true);  // with its parent
    MakeChild(*pOwner, parent);
    MakeChild(*(new CMortal(true)), *pOwner);
    pOwner->DestroyWindow();
    EXPECT_EQ(TakeLog(), "Destroy Destroy Gone(1) Deleted Gone(1) Deleted");

    // Stopped by its own handler, and never begun.
    pSelf = new CMortal(true);
    pSelf->m_onCreate = []
    {
        return -1;
    };
    EXPECT_FALSE(pSelf->Create(nullptr, "", 0, CRect(), &parent, 1));
    EXPECT_NE(TakeLog().find("Gone(1) Deleted"), std::string::npos);
    {
        CMortal window(true);
        EXPECT_FALSE(window.Create("no such class", "", 0, CRect(), &parent, 1));
        EXPECT_EQ(TakeLog(), "");
    }
}

class CUpperEdit : public CEdit
{
    void OnChar(UINT nChar, UINT, UINT)
    {
        Log("Char", nChar);
        Default();
    }
    void PreSubclassWindow() override { Log("Pre"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CUpperEdit, CEdit)
ON_WM_CHAR()
END_MESSAGE_MAP()

TEST(Window, TemporaryObjectsOutliveTheHandlerThatMayUseThem)
{
    CTestParent parent;
    const HWND hForeign =
        ::CreateWindowA("STATIC", "", WS_CHILD, 0, 0, 5, 5, parent, nullptr, nullptr, nullptr);
    CTestParent owner;
    CWnd::FromHandle(hForeign)->SetOwner(&owner);
    CMortal window;
    MakeChild(window, parent);
    window.m_onApp = []
    {
        CWnd::DeleteTempMap();
    };
    window.SendMessage(WM_APP);
    EXPECT_EQ(CWnd::FromHandle(hForeign)->GetOwner(), &owner);
    CWnd::DeleteTempMap();
    EXPECT_EQ(CWnd::FromHandle(hForeign)->GetOwner(), &parent) << "a new one";
}

TEST(Window, SubclassingStandsBeforeTheProcedureThatIsThere)
{
    CTestParent parent;
    const HWND hEdit = ::CreateWindowA("EDIT", "", WS_CHILD, 0, 0, 50, 20, parent,
                                       reinterpret_cast<HMENU>(5), nullptr, nullptr);
    const LONG_PTR nProc = ::GetWindowLongPtrA(hEdit, GWLP_WNDPROC);
    CUpperEdit edit;
    EXPECT_FALSE(edit.SubclassDlgItem(6, &parent));
    ASSERT_TRUE(edit.SubclassDlgItem(5, &parent));
    CWnd second;
    EXPECT_FALSE(second.SubclassWindow(hEdit)) << "it has an object";
    edit.SendMessage(WM_CHAR, 'q');
    EXPECT_EQ(TakeLog(), "Pre Char(113)");
    CString strText;
    edit.GetWindowText(strText);
    EXPECT_STREQ(strText, "q");
    EXPECT_EQ(edit.UnsubclassWindow(), hEdit);
    EXPECT_EQ(::GetWindowLongPtrA(hEdit, GWLP_WNDPROC), nProc);
    ::SendMessageA(hEdit, WM_CHAR, 'r', 0);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(::GetWindowTextLengthA(hEdit), 2);
    ASSERT_TRUE(edit.SubclassWindow(hEdit));
    parent.DestroyWindow();
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr) << "the window took the object's handle with it";
}

TEST(Window, TenThousandLeakNothing)
{
    CTestParent parent;
    const auto makeAll = [&](int nCount)
    {
        for (int n = 0; n < nCount; ++n)
        {
            CWnd window;
            MakeChild(window, parent, 3, 0);
            CClientDC dc(&window);
            CWindowDC screen(nullptr);
            if (n % 2 == 0)
                window.DestroyWindow();
        }
    };
    makeAll(100);
    const HANDLE hSelf = ::GetCurrentProcess();
    const auto count = [=](DWORD nKind)
    {
        return ::GetGuiResources(hSelf, nKind);
    };
    const DWORD nUser = count(GR_USEROBJECTS);
    const DWORD nGdi = count(GR_GDIOBJECTS);
    DWORD nHandles[2] = {};
    ::GetProcessHandleCount(hSelf, &nHandles[0]);
    makeAll(10'000);
    ::GetProcessHandleCount(hSelf, &nHandles[1]);
    EXPECT_LE(count(GR_USEROBJECTS), nUser + 5);
    EXPECT_LE(count(GR_GDIOBJECTS), nGdi + 5);
    EXPECT_LE(nHandles[1], nHandles[0] + 5);
    EXPECT_EQ(::GetTopWindow(parent), nullptr);
}

// ---- Exceptions

int RememberMessage(const char* pszText, unsigned, void*)
{
    g_log += std::string("[") + pszText + "]";
    return IDOK;
}

class CThrowing : public CWnd
{
public:
    UINT m_nMessage = 0;

private:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == m_nMessage && wParam == 1)
            throw std::runtime_error("standard");
        if (nMessage == m_nMessage)
            AfxThrowMemoryException();
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }
};

TEST(Exceptions, ComeOutOfTheCallThatLedToThem)
{
    AfxSetMessageBoxHandler(RememberMessage, nullptr);
    CTestParent parent;
    parent.ShowWindow(SW_SHOW);
    CThrowing window;
    MakeChild(window, parent);
    const struct
    {
        const char* pszName;
        UINT nMessage;
        std::function<void()> call;
    } aCases[] = {
        { "SendMessage", WM_APP,
          [&]
          {
              window.SendMessage(WM_APP);
          } },
        { "MoveWindow", WM_SIZE,
          [&]
          {
              window.MoveWindow(0, 0, 10, 10);
          } },
        { "UpdateWindow", WM_PAINT,
          [&]
          {
              window.Invalidate(), window.UpdateWindow();
          } },
        { "SetFocus", WM_SETFOCUS,
          [&]
          {
              window.SetFocus();
          } },
        { "SetWindowText", WM_SETTEXT,
          [&]
          {
              window.SetWindowText("t");
          } },
        { "ShowWindow", WM_SHOWWINDOW,
          [&]
          {
              window.ShowWindow(SW_HIDE);
          } },
        { "Descendants", WM_APP,
          [&]
          {
              parent.SendMessageToDescendants(WM_APP);
          } },
        { "Default", WM_CLOSE,
          [&]
          {
              window.SendMessage(WM_SYSCOMMAND, SC_CLOSE);
          } },
    };
    for (const auto& row : aCases)
    {
        window.m_nMessage = row.nMessage;
        bool bCame = false;
        try
        {
            row.call();
        }
        catch (CMemoryException* pException)
        {
            bCame = true;
            pException->Delete();
        }
        window.m_nMessage = 0;
        EXPECT_TRUE(bCame) << row.pszName;
        window.ShowWindow(SW_SHOW);
    }
    EXPECT_EQ(TakeLog(), "");
    window.m_nMessage = WM_PAINT;
    window.Invalidate();
    EXPECT_THROW(window.UpdateWindow(), CMemoryException*);
    EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE)) << "a paint that failed is not repeated";

    CThrowing late;  // nothing is left of one that throws while it is made
    late.m_nMessage = WM_CREATE;
    EXPECT_THROW(MakeChild(late, parent, 99), CMemoryException*);
    EXPECT_EQ(late.GetSafeHwnd(), nullptr);
    EXPECT_EQ(parent.GetDlgItem(99), nullptr);

    // Nobody of ours is above: it ends with a message.
    window.m_nMessage = WM_APP;
    EXPECT_EQ(::SendMessageA(window, WM_APP, 1, 0), 0);
    EXPECT_EQ(TakeLog(), "[standard]");
    EXPECT_EQ(::SendMessageA(window, WM_APP, 0, 0), 0);
    EXPECT_EQ(TakeLog().front(), '[');
    window.m_nMessage = WM_DESTROY;  // a parent's object ends first
    {
        CTestParent owner;
        ::SetParent(window, owner);
    }
    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
    EXPECT_EQ(TakeLog().front(), '[') << "a destructor throws nothing";
    AfxSetMessageBoxHandler(nullptr, nullptr);
}

TEST(Exceptions, TheFirstOfSeveralIsKept)
{
    std::string strCaught;
    try
    {
        CallSystem(
            []
            {
                GuardCallback(0, []() -> int { throw std::runtime_error("first"); });
                GuardCallback(0, []() -> int { AfxThrowMemoryException(); });
                EXPECT_THROW(CallSystem([] { GuardCallback(0, []() -> int { throw 5; }); }), int);
            });
    }
    catch (const std::exception& exception)
    {
        strCaught = exception.what();
    }
    EXPECT_EQ(strCaught, "first");
}

TEST(Module, KnowsItsClassesAndResources)
{
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleA(nullptr));
    EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleA(nullptr));
    const LPCSTR pszName = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW));
    EXPECT_EQ(AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW)), pszName);
    EXPECT_STRNE(AfxRegisterWndClass(CS_HREDRAW), pszName);
    WNDCLASSA known = {};
    EXPECT_TRUE(::GetClassInfoA(AfxGetInstanceHandle(), pszName, &known));
    EXPECT_TRUE(AfxRegisterClass(&known)) << "known already";
    const HINSTANCE hShell = ::LoadLibraryA("shell32.dll");
    const LPCSTR pszIcon = MAKEINTRESOURCEA(1);
    const LPCSTR pszType = MAKEINTRESOURCEA(14);
    EXPECT_EQ(AfxFindResourceHandle(pszIcon, pszType), AfxGetResourceHandle());
    AfxAddResourceModule(hShell);
    EXPECT_EQ(AfxFindResourceHandle(pszIcon, pszType), hShell);
}
}  // namespace
