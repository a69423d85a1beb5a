// The main window of a program, its menus and its loop.
#include "platform/win/frame.h"

#include "platform/base/exception.h"
#include "platform/win/app_pump.h"
#include "platform/win/cmd_ui.h"
#include "platform/win/dialog.h"
#include "platform/win/menu.h"
#include "test_window.h"

namespace
{
constexpr UINT s_nIdOfView = 0xE122;
constexpr UINT s_nIdOfFrame = 0x8001;
constexpr UINT s_nIdOfApp = 0x8002;
constexpr UINT s_nIdOfNobody = 0x8003;
constexpr UINT s_nIdChecked = 0x8004;
constexpr UINT s_nIdStatus = 0xE801;

class CTestApp : public CWindowApp
{
public:
    BOOL m_bInit = TRUE;
    std::function<void()> m_onIdle;

    BOOL InitInstance() override { return m_bInit; }
    BOOL OnIdle(LONG lCount) override
    {
        const BOOL bMore = CWindowApp::OnIdle(lCount);
        if (!bMore && m_onIdle)
            m_onIdle();
        return bMore;
    }

private:
    void OnCommand() { Log("App"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestApp, CWindowApp)
ON_COMMAND(s_nIdOfApp, OnCommand)
END_MESSAGE_MAP()

class CTestView : public CWnd
{
    void OnCommand() { Log("View"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestView, CWnd)
ON_COMMAND(s_nIdOfView, OnCommand)
END_MESSAGE_MAP()

class CTestFrame : public CFrameWnd
{
public:
    CTestView m_view;
    CWnd m_status;

private:
    int OnCreate(LPCREATESTRUCTA)
    {
        m_view.Create(nullptr, "", WS_VISIBLE, CRect(), this, AFX_IDW_PANE_FIRST);
        m_status.Create("STATIC", "", WS_VISIBLE, CRect(), this, s_nIdStatus);
        SetActiveView(&m_view);
        return 0;
    }
    void PostNcDestroy() override
    {
        Log("FrameGone");
        CFrameWnd::PostNcDestroy();
    }
    void OnCommand() { Log("Frame"); }
    void OnUpdateChecked(CCmdUI* pCmdUI)
    {
        pCmdUI->Enable();
        pCmdUI->SetCheck();
        pCmdUI->SetText("other text");
    }
    void OnUpdateStatus(CCmdUI* pCmdUI) { pCmdUI->SetText("idle"); }
    LRESULT OnThrow(WPARAM, LPARAM) { AfxThrowNotSupportedException(); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
ON_WM_CREATE()
ON_COMMAND(s_nIdOfFrame, OnCommand)
ON_COMMAND(s_nIdOfView, OnCommand)
ON_UPDATE_COMMAND_UI(s_nIdChecked, OnUpdateChecked)
ON_UPDATE_COMMAND_UI(s_nIdStatus, OnUpdateStatus)
ON_MESSAGE(WM_APP, OnThrow)
END_MESSAGE_MAP()

class Frame : public testing::Test
{
protected:
    void SetUp() override
    {
        m_pFrame = new CTestFrame;
        ASSERT_TRUE(m_pFrame->Create(nullptr, "frame"));
        m_app.m_pMainWnd = m_pFrame;
        m_pFrame->ShowWindow(SW_SHOW);
        TakeLog();
    }
    void TearDown() override
    {
        if (m_app.m_pMainWnd != nullptr)
            m_app.m_pMainWnd->DestroyWindow();
        PumpFor(0);
        TakeLog();
    }
    CTestApp m_app;
    CTestFrame* m_pFrame = nullptr;
};

TEST_F(Frame, CommandsGoToViewFrameAndApplication)
{
    EXPECT_EQ(AfxGetMainWnd(), m_pFrame);
    const CMessageCase aCases[] = {
        { WM_COMMAND, s_nIdOfView, 0, "View", 1 },
        { WM_COMMAND, s_nIdOfFrame, 0, "Frame", 1 },
        { WM_COMMAND, s_nIdOfApp, 0, "App", 1 },
        { WM_COMMAND, s_nIdOfNobody, 0, "", 0 },
    };
    ExpectHandled(*m_pFrame, aCases);
    m_pFrame->m_view.DestroyWindow();  // a view that is gone is not asked
    m_pFrame->SendMessage(WM_COMMAND, s_nIdOfView);
    EXPECT_EQ(TakeLog(), "Frame");
}

TEST_F(Frame, TheViewFillsItAndHasTheFocus)
{
    CRect rect;
    CRect view;
    m_pFrame->MoveWindow(20, 20, 400, 300);
    m_pFrame->GetClientRect(&rect);
    m_pFrame->m_view.GetClientRect(&view);
    EXPECT_EQ(view, rect);
    m_pFrame->SetFocus();
    EXPECT_EQ(CWnd::GetFocus(), &m_pFrame->m_view);
}

TEST_F(Frame, MenusShowWhatCommandsCan)
{
    // Command, flags, and the state that is shown.
    const std::tuple<UINT, UINT, UINT> aItems[] = {
        { s_nIdOfView, MF_STRING, MF_ENABLED },  { s_nIdOfApp, MF_STRING, MF_ENABLED },
        { s_nIdOfNobody, MF_STRING, MF_GRAYED }, { 0, MF_SEPARATOR, MF_SEPARATOR },
        { s_nIdChecked, MF_STRING, MF_CHECKED }, { SC_SIZE, MF_STRING, MF_ENABLED },
    };
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    for (const auto& [nID, nFlags, nState] : aItems)
        menu.AppendMenu(nFlags, nID, "text");
    const auto open = [&]
    {
        m_pFrame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.GetSafeHmenu()));
    };
    open();
    for (UINT n = 0; n < menu.GetMenuItemCount(); ++n)
    {
        const auto& [nID, nFlags, nState] = aItems[n];
        const UINT nShown = MF_SEPARATOR | (nID == 0 ? 0 : MF_GRAYED | MF_CHECKED);
        EXPECT_EQ(menu.GetMenuState(n, MF_BYPOSITION) & nShown, nState) << n;
    }
    CString strText;
    EXPECT_EQ(menu.GetMenuString(s_nIdChecked, strText, MF_BYCOMMAND), 10);
    EXPECT_STREQ(strText, "other text");
    m_pFrame->m_bAutoMenuEnable = FALSE;
    menu.EnableMenuItem(s_nIdOfNobody, MF_BYCOMMAND | MF_ENABLED);
    open();
    EXPECT_EQ(menu.GetMenuState(s_nIdOfNobody, MF_BYCOMMAND), UINT{ MF_ENABLED });
}

TEST_F(Frame, TheLoopRunsUntilTheMainWindowIsGone)
{
    static int s_nMessages;
    s_nMessages = 0;
    AfxSetMessageBoxHandler([](const char*, unsigned, void*) { return ++s_nMessages; }, nullptr);
    ACCEL accelerator = { FVIRTKEY, VK_F7, s_nIdOfFrame };
    m_pFrame->m_hAccelTable = ::CreateAcceleratorTableA(&accelerator, 1);
    std::string strStatus;
    CWnd::FromHandle(::GetDesktopWindow())->SetOwner(m_pFrame);
    m_pFrame->m_view.PostMessage(WM_KEYDOWN, VK_F7, 1);
    m_pFrame->PostMessage(WM_APP);  // throws: the loop goes on
    m_app.m_onIdle = [&]
    {
        m_app.m_onIdle = nullptr;
        strStatus = TextOf(m_pFrame->m_status);
        EXPECT_EQ(CWnd::FromHandle(::GetDesktopWindow())->GetOwner(), nullptr) << "a new object";
        m_pFrame->PostMessage(WM_CLOSE);
    };
    const HACCEL hAccelerators = m_pFrame->m_hAccelTable;
    EXPECT_EQ(AfxWinMain(), 0);
    EXPECT_EQ(strStatus, "idle");
    EXPECT_EQ(TakeLog(), "Frame FrameGone");
    EXPECT_EQ(s_nMessages, 1);
    EXPECT_EQ(m_app.m_pMainWnd, nullptr);
    ::DestroyAcceleratorTable(hAccelerators);
    AfxSetMessageBoxHandler(nullptr, nullptr);

    m_app.m_bInit = FALSE;
    EXPECT_EQ(AfxWinMain(), 0) << "no loop";
}

TEST_F(Frame, ResourcesAreFoundByTheirNumber)
{
    auto* pLoaded = new CTestFrame;
    ASSERT_TRUE(pLoaded->LoadFrame(102));
    EXPECT_EQ(TextOf(*pLoaded), "a title");
    EXPECT_EQ(pLoaded->GetMenu()->GetSubMenu(0)->GetMenuItemID(0), s_nIdOfFrame);
    MSG message = { *pLoaded, WM_KEYDOWN, VK_F7, 1, 0, {} };
    EXPECT_TRUE(pLoaded->PreTranslateMessage(&message));
    EXPECT_EQ(TakeLog(), "Frame");
    pLoaded->DestroyWindow();
    CTestFrame unknown;
    EXPECT_FALSE(unknown.LoadFrame(999));

    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(999));
    ASSERT_TRUE(menu.LoadMenu(102));
    EXPECT_EQ(menu.GetMenuItemCount(), 1U);
    CDialog dialog;
    EXPECT_FALSE(dialog.Create(999));
    ASSERT_TRUE(dialog.Create(103, m_pFrame));
    EXPECT_NE(dialog.GetDlgItem(21), nullptr);
    EXPECT_EQ(dialog.GetParent(), m_pFrame);
    dialog.SendMessage(WM_COMMAND, s_nIdOfFrame);
    EXPECT_EQ(TakeLog(), "FrameGone Frame") << "a dialog's commands go on to its parent";
}
}  // namespace
