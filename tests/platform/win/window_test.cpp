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

    const HWND hForeign =
        ::CreateWindowA("STATIC", "", 0, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
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
    MakeChild(window, parent, 17, WS_VISIBLE | WS_HSCROLL);
    EXPECT_EQ(window.GetDlgCtrlID(), 17);
    EXPECT_EQ(parent.GetDlgItem(17), &window);
    CTestParent other;
    for (CWnd* pOwner : { static_cast<CWnd*>(&other), static_cast<CWnd*>(nullptr) })
    {
        window.SetOwner(pOwner);
        EXPECT_EQ(window.GetOwner(), pOwner != nullptr ? pOwner : &parent);
        EXPECT_EQ(window.GetParent(), &parent);
    }
    window.SetScrollRange(SB_HORZ, 0, 99);
    SCROLLINFO info = {};
    ASSERT_TRUE(window.GetScrollInfo(SB_HORZ, &info));
    EXPECT_EQ(info.nMax, 99);
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
}

TEST(Window, ContextsBelongToTheirWindow)
{
    CTestParent parent(true);
    CWnd window;
    MakeChild(window, parent, 1, WS_VISIBLE | WS_BORDER);
    window.ValidateRect(nullptr);
    window.InvalidateRect(CRect(10, 20, 30, 40), FALSE);
    // The second time there is nothing to paint: nothing is drawn, and nothing fails.
    for (const CRect& update : { CRect(10, 20, 30, 40), CRect(0, 0, 0, 0) })
    {
        const CPaintDC dc(&window);
        EXPECT_EQ(CRect(dc.m_ps.rcPaint), update);
        EXPECT_EQ(::WindowFromDC(dc), window.GetSafeHwnd());
        EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE));
    }
    CRect rect;
    const CClientDC inside(&window);
    EXPECT_EQ(::GetClipBox(inside, &rect), SIMPLEREGION);
    EXPECT_EQ(rect.Size(), CSize(198, 98));
    const auto round = [&]
    {
        const CClientDC dc(&window);
        const CPaintDC paint(&window);
    };
    ExpectNothingLeft(1000, round);
}

// ---- Life

// Tells its end; bDelete: and deletes itself.
class CMortal : public CWnd
{
public:
    explicit CMortal(bool bDelete = false) : m_bDelete(bDelete) {}
    ~CMortal() override { Log("Deleted"); }

    // Runs it in a handler of its window.
    void Handle(const std::function<void()>& body)
    {
        EXPECT_EQ(SendMessage(WM_APP, 0, reinterpret_cast<LPARAM>(&body)), 3);
    }

    int m_nCreated = 0;  // what OnCreate gives

private:
    int OnCreate(LPCREATESTRUCTA) { return m_nCreated; }
    void OnDestroy()
    {
        Log("Destroy");
        Default();
    }
    LRESULT OnApp(WPARAM, LPARAM lBody)
    {
        (*reinterpret_cast<const std::function<void()>*>(lBody))();
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
    const struct
    {
        const char* pszName;
        bool bDelete;  // the object deletes itself
        std::function<void(CMortal*)> end;
        const char* pszLog;
    } aCases[] = {
        { "the window first", false, [](CMortal* p) { p->DestroyWindow(); }, "Destroy Gone(1)" },
        // Its handlers are gone by the time its window goes.
        { "the object first", false, [](CMortal* p) { delete p; }, "Deleted" },
        { "with the window", true, [](CMortal* p) { p->DestroyWindow(); },
          "Destroy Gone(1) Deleted" },
        { "the window in a handler", true,
          [](CMortal* p) { p->Handle([=] { p->DestroyWindow(); }); }, "Destroy Gone(1) Deleted" },
        { "the object in its handler", false, [](CMortal* p) { p->Handle([=] { delete p; }); },
          "Deleted" },
        { "with its parent", true,
          [](CMortal* p)
          {
              MakeChild(*(new CMortal(true)), *p);
              p->DestroyWindow();
          },
          "Destroy Destroy Gone(1) Deleted Gone(1) Deleted" },
    };
    for (const auto& row : aCases)
    {
        auto* pWindow = new CMortal(row.bDelete);
        MakeChild(*pWindow, parent);
        const HWND hWnd = *pWindow;
        row.end(pWindow);
        EXPECT_FALSE(::IsWindow(hWnd)) << row.pszName;
        const std::string strLog = TakeLog();
        EXPECT_EQ(strLog, row.pszLog) << row.pszName;
        if (!strLog.ends_with("Deleted"))
            delete pWindow;
        EXPECT_EQ(TakeLog(), strLog.ends_with("Deleted") ? "" : "Deleted") << row.pszName;
    }

    auto* pStopped = new CMortal(true);  // by its own handler
    pStopped->m_nCreated = -1;
    EXPECT_FALSE(pStopped->Create(nullptr, "", 0, CRect(), &parent, 1));
    EXPECT_TRUE(TakeLog().ends_with("Gone(1) Deleted"));
    CMortal never(true);
    EXPECT_FALSE(never.Create("no such class", "", 0, CRect(), &parent, 1));
    EXPECT_EQ(TakeLog(), "");
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
    CWnd* pTemporary = CWnd::FromHandle(hForeign);  // one object, until the loop is idle
    pTemporary->SetOwner(&owner);
    EXPECT_EQ(CWnd::FromHandlePermanent(hForeign), nullptr);
    CMortal window;
    MakeChild(window, parent);
    window.Handle([] { CWnd::DeleteTempMap(); });
    EXPECT_EQ(CWnd::FromHandle(hForeign), pTemporary);
    EXPECT_EQ(pTemporary->GetOwner(), &owner);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(hForeign)) << "it owns nothing";
    EXPECT_EQ(CWnd::FromHandle(hForeign)->GetOwner(), &parent) << "a new one";
}

TEST(Window, SubclassingStandsBeforeTheProcedureThatIsThere)
{
    CTestParent parent;
    const HWND hEdit = ::CreateWindowA("EDIT", "", WS_CHILD, 0, 0, 50, 20, parent,
                                       reinterpret_cast<HMENU>(5), nullptr, nullptr);
    CUpperEdit edit;
    EXPECT_FALSE(edit.SubclassDlgItem(6, &parent));
    ASSERT_TRUE(edit.SubclassDlgItem(5, &parent));
    CWnd second;
    EXPECT_FALSE(second.SubclassWindow(hEdit)) << "it has an object";
    edit.SendMessage(WM_CHAR, 'q');
    EXPECT_EQ(TakeLog(), "Pre Char(113)");
    EXPECT_EQ(TextOf(edit), "q");
    parent.DestroyWindow();
    EXPECT_EQ(edit.GetSafeHwnd(), nullptr) << "the window took the object's handle with it";
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
    CTestParent parent(true);
    CThrowing window;
    MakeChild(window, parent);
    // clang-format off
    const std::tuple<const char*, UINT, std::function<void()>> aCases[] = {
        { "SendMessage",   WM_APP,        [&] { window.SendMessage(WM_APP); } },
        { "MoveWindow",    WM_SIZE,       [&] { window.MoveWindow(0, 0, 10, 10); } },
        { "UpdateWindow",  WM_PAINT,      [&] { window.Invalidate(), window.UpdateWindow(); } },
        { "SetFocus",      WM_SETFOCUS,   [&] { window.SetFocus(); } },
        { "SetWindowText", WM_SETTEXT,    [&] { window.SetWindowText("t"); } },
        { "ShowWindow",    WM_SHOWWINDOW, [&] { window.ShowWindow(SW_HIDE); } },
        { "Descendants",   WM_APP,        [&] { parent.SendMessageToDescendants(WM_APP); } },
        { "Default",       WM_CLOSE,      [&] { window.SendMessage(WM_SYSCOMMAND, SC_CLOSE); } },
    };
    // clang-format on
    for (const auto& [pszName, nMessage, call] : aCases)
    {
        window.m_nMessage = nMessage;
        EXPECT_THROW(call(), CMemoryException*) << pszName;
        window.m_nMessage = 0;
        EXPECT_FALSE(::GetUpdateRect(window, nullptr, FALSE) && nMessage == WM_PAINT)
            << "a paint that failed is not repeated";
        window.ShowWindow(SW_SHOW);
    }
    EXPECT_EQ(TakeLog(), "");

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
    const auto fail = [](auto what)
    {
        GuardCallback(0, [=]() -> int { throw what; });
    };
    const auto several = [&]
    {
        fail(1);
        fail("second");
        EXPECT_THROW(CallSystem([&] { fail(2.0); }), double);
    };
    EXPECT_THROW(CallSystem(several), int);
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
