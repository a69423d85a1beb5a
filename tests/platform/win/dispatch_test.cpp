// Each message to its handler, with the arguments that it carries; commands, notifications and
// reflected ones; default processing.
#include "platform/gdi/dc.h"
#include "platform/win/edit.h"
#include "platform/win/menu.h"
#include "test_window.h"

#include <gtest/gtest.h>

namespace
{
// 1 for the window itself, 0 for null, 2 for another one.
int Which(const CWnd* pSelf, const CWnd* pWnd)
{
    return pWnd == nullptr ? 0 : pWnd->GetSafeHwnd() == pSelf->GetSafeHwnd() ? 1 : 2;
}

int Number(UINT_PTR n)
{
    return static_cast<int>(n);
}

class CAllMessages : public CWnd
{
public:
    // What this window has in its menu messages.
    CMenu m_menu;

private:
    // clang-format off
    void OnActivate(UINT nState, CWnd* pOther, BOOL bMin) { Log("Activate", nState, Which(this, pOther), bMin); }
    void OnCancelMode() { Log("CancelMode"); }
    void OnCaptureChanged(CWnd* pWnd) { Log("CaptureChanged", Which(this, pWnd)); }
    void OnChar(UINT nChar, UINT nRepeat, UINT nFlags) { Log("Char", nChar, nRepeat, nFlags); }
    void OnContextMenu(CWnd* pWnd, CPoint point) { Log("ContextMenu", Which(this, pWnd), point.x, point.y); }
    int OnCreate(LPCREATESTRUCTA pCreate) { Log("Create", pCreate->cx); return 0; }
    void OnDrawItem(int nID, LPDRAWITEMSTRUCT pDraw) { Log("DrawItem", nID, pDraw->itemID); }
    void OnEnable(BOOL bEnable) { Log("Enable", bEnable); }
    BOOL OnEraseBkgnd(CDC* pDC) { Log("EraseBkgnd", Number(reinterpret_cast<UINT_PTR>(pDC->GetSafeHdc()))); return 5; }
    UINT OnGetDlgCode() { Log("GetDlgCode"); return 4; }
    void OnHScroll(UINT nCode, UINT nPos, CScrollBar* pBar) { Log("HScroll", nCode, nPos, Which(this, pBar)); }
    void OnInitMenu(CMenu* pMenu) { Log("InitMenu", Number(pMenu == &m_menu)); }
    void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSystem) { Log("InitMenuPopup", Number(pMenu == &m_menu), nIndex, bSystem); }
    void OnKeyDown(UINT nChar, UINT nRepeat, UINT nFlags) { Log("KeyDown", nChar, nRepeat, nFlags); }
    void OnKeyUp(UINT nChar, UINT nRepeat, UINT nFlags) { Log("KeyUp", nChar, nRepeat, nFlags); }
    void OnKillFocus(CWnd* pNew) { Log("KillFocus", Which(this, pNew)); }
    void OnLButtonDblClk(UINT nFlags, CPoint point) { Log("LButtonDblClk", nFlags, point.x, point.y); }
    void OnLButtonDown(UINT nFlags, CPoint point) { Log("LButtonDown", nFlags, point.x, point.y); }
    void OnLButtonUp(UINT nFlags, CPoint point) { Log("LButtonUp", nFlags, point.x, point.y); }
    void OnMeasureItem(int nID, LPMEASUREITEMSTRUCT pMeasure) { Log("MeasureItem", nID, pMeasure->itemID); }
    LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu) { Log("MenuChar", nChar, nFlags, Number(pMenu == &m_menu)); return MAKELONG(1, MNC_EXECUTE); }
    void OnMenuSelect(UINT nItem, UINT nFlags, HMENU hMenu) { Log("MenuSelect", nItem, nFlags, Number(hMenu == m_menu.GetSafeHmenu())); }
    int OnMouseActivate(CWnd* pTop, UINT nHit, UINT nMessage) { Log("MouseActivate", Which(this, pTop), nHit, nMessage); return MA_NOACTIVATE; }
    void OnMouseMove(UINT nFlags, CPoint point) { Log("MouseMove", nFlags, point.x, point.y); }
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point) { Log("MouseWheel", nFlags, zDelta, point.y); return 1; }
    void OnMove(int x, int y) { Log("Move", x, y); }
    void OnPaint() { Log("Paint"); ValidateRect(nullptr); }
    void OnRButtonDblClk(UINT nFlags, CPoint point) { Log("RButtonDblClk", nFlags, point.x, point.y); }
    void OnRButtonDown(UINT nFlags, CPoint point) { Log("RButtonDown", nFlags, point.x, point.y); }
    void OnRButtonUp(UINT nFlags, CPoint point) { Log("RButtonUp", nFlags, point.x, point.y); }
    BOOL OnSetCursor(CWnd* pWnd, UINT nHit, UINT nMessage) { Log("SetCursor", Which(this, pWnd), nHit, nMessage); return 1; }
    void OnSetFocus(CWnd* pOld) { Log("SetFocus", Which(this, pOld)); }
    void OnShowWindow(BOOL bShow, UINT nStatus) { Log("ShowWindow", bShow, nStatus); }
    void OnSize(UINT nType, int cx, int cy) { Log("Size", nType, cx, cy); }
    void OnSysChar(UINT nChar, UINT nRepeat, UINT nFlags) { Log("SysChar", nChar, nRepeat, nFlags); }
    void OnSysColorChange() { Log("SysColorChange"); }
    void OnSysCommand(UINT nID, LPARAM lParam) { Log("SysCommand", nID, Number(static_cast<UINT_PTR>(lParam))); }
    void OnTimer(UINT_PTR nTimer) { Log("Timer", Number(nTimer)); }
    void OnVScroll(UINT nCode, UINT nPos, CScrollBar* pBar) { Log("VScroll", nCode, nPos, Which(this, pBar)); }
    void OnWindowPosChanging(WINDOWPOS* pPos) { Log("WindowPosChanging", pPos->cx); }
    LRESULT OnOwn(WPARAM wParam, LPARAM lParam) { Log("Own", Number(wParam), Number(static_cast<UINT_PTR>(lParam))); return 77; }
    // clang-format on
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CAllMessages, CWnd)
ON_WM_ACTIVATE()
ON_WM_CANCELMODE()
ON_WM_CAPTURECHANGED()
ON_WM_CHAR()
ON_WM_CONTEXTMENU()
ON_WM_CREATE()
ON_WM_DRAWITEM()
ON_WM_ENABLE()
ON_WM_ERASEBKGND()
ON_WM_GETDLGCODE()
ON_WM_HSCROLL()
ON_WM_INITMENU()
ON_WM_INITMENUPOPUP()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_KILLFOCUS()
ON_WM_LBUTTONDBLCLK()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MEASUREITEM()
ON_WM_MENUCHAR()
ON_WM_MENUSELECT()
ON_WM_MOUSEACTIVATE()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_MOVE()
ON_WM_PAINT()
ON_WM_RBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_SETCURSOR()
ON_WM_SETFOCUS()
ON_WM_SHOWWINDOW()
ON_WM_SIZE()
ON_WM_SYSCHAR()
ON_WM_SYSCOLORCHANGE()
ON_WM_SYSCOMMAND()
ON_WM_TIMER()
ON_WM_VSCROLL()
ON_WM_WINDOWPOSCHANGING()
ON_MESSAGE(WM_APP + 3, OnOwn)
END_MESSAGE_MAP()

// The words of an argument: low, high.
constexpr LPARAM Words(int nLow, int nHigh)
{
    return static_cast<LPARAM>(static_cast<WORD>(nLow) |
                               static_cast<DWORD>(static_cast<WORD>(nHigh)) << 16);
}

struct CMessageCase
{
    UINT nMessage;
    WPARAM wParam;
    LPARAM lParam;
    const char* pszHandled;
    LRESULT lResult;
};

TEST(Dispatch, EachMessageReachesItsHandler)
{
    CTestParent parent;
    CAllMessages window;
    MakeChild(window, parent, 1, 0);
    ASSERT_NE(window.GetSafeHwnd(), nullptr);
    EXPECT_EQ(TakeLog().rfind("Create(200)"), 0U) << "the first message has come already";
    window.m_menu.CreatePopupMenu();

    CREATESTRUCTA create = {};
    create.cx = 31;
    DRAWITEMSTRUCT draw = {};
    draw.itemID = 41;
    MEASUREITEMSTRUCT measure = {};
    measure.itemID = 51;
    WINDOWPOS place = {};
    place.cx = 61;
    const auto self = reinterpret_cast<UINT_PTR>(window.GetSafeHwnd());
    const auto other = reinterpret_cast<LPARAM>(parent.GetSafeHwnd());
    const auto menu = reinterpret_cast<UINT_PTR>(window.m_menu.GetSafeHmenu());
    const auto lMenu = static_cast<LPARAM>(menu);
    const auto wKey = static_cast<LPARAM>(0x40010003);
    const CMessageCase aCases[] = {
        { WM_ACTIVATE, 0x00010002, other, "Activate(2,2,1)", 0 },
        { WM_CANCELMODE, 0, 0, "CancelMode", 0 },
        { WM_CAPTURECHANGED, self, 0, "CaptureChanged(0)", 0 },
        { WM_CHAR, 'x', wKey, "Char(120,3,16385)", 0 },
        { WM_CONTEXTMENU, self, Words(-5, 6), "ContextMenu(1,-5,6)", 0 },
        { WM_CREATE, 0, reinterpret_cast<LPARAM>(&create), "Create(31)", 0 },
        { WM_DRAWITEM, 9, reinterpret_cast<LPARAM>(&draw), "DrawItem(9,41)", 0 },
        { WM_ENABLE, 1, 0, "Enable(1)", 0 },
        { WM_ERASEBKGND, 0x1234, 0, "EraseBkgnd(4660)", 5 },
        { WM_GETDLGCODE, 0, 0, "GetDlgCode", 4 },
        { WM_HSCROLL, 0xFFF00005, 0, "HScroll(5,65520,0)", 0 },
        { WM_INITMENU, menu, 0, "InitMenu(1)", 0 },
        { WM_INITMENUPOPUP, menu, Words(2, 1), "InitMenuPopup(1,2,1)", 0 },
        { WM_KEYDOWN, VK_LEFT, wKey, "KeyDown(37,3,16385)", 0 },
        { WM_KEYUP, VK_LEFT, wKey, "KeyUp(37,3,16385)", 0 },
        { WM_KILLFOCUS, static_cast<WPARAM>(other), 0, "KillFocus(2)", 0 },
        { WM_LBUTTONDBLCLK, MK_LBUTTON, Words(-1, 40000), "LButtonDblClk(1,-1,-25536)", 0 },
        { WM_LBUTTONDOWN, MK_CONTROL, Words(10, 20), "LButtonDown(8,10,20)", 0 },
        { WM_LBUTTONUP, 0, Words(10, 20), "LButtonUp(0,10,20)", 0 },
        { WM_MEASUREITEM, 9, reinterpret_cast<LPARAM>(&measure), "MeasureItem(9,51)", 0 },
        { WM_MENUCHAR, 0x00100041, lMenu, "MenuChar(65,16,1)", MAKELONG(1, MNC_EXECUTE) },
        { WM_MENUSELECT, 0x00900007, lMenu, "MenuSelect(7,144,1)", 0 },
        { WM_MOUSEACTIVATE, static_cast<WPARAM>(other), Words(1, 0x201), "MouseActivate(2,1,513)",
          MA_NOACTIVATE },
        { WM_MOUSEMOVE, MK_LBUTTON, Words(3, -4), "MouseMove(1,3,-4)", 0 },
        { WM_MOUSEWHEEL, 0xFF880008, Words(7, -8), "MouseWheel(8,-120,-8)", 1 },
        { WM_MOVE, 0, Words(-30, 40), "Move(-30,40)", 0 },
        { WM_PAINT, 0, 0, "Paint", 0 },
        { WM_RBUTTONDBLCLK, 2, Words(1, 2), "RButtonDblClk(2,1,2)", 0 },
        { WM_RBUTTONDOWN, 2, Words(1, 2), "RButtonDown(2,1,2)", 0 },
        { WM_RBUTTONUP, 2, Words(1, 2), "RButtonUp(2,1,2)", 0 },
        { WM_SETCURSOR, self, Words(1, 0x200), "SetCursor(1,1,512)", 1 },
        { WM_SETFOCUS, 0, 0, "SetFocus(0)", 0 },
        { WM_SHOWWINDOW, 1, 3, "ShowWindow(1,3)", 0 },
        { WM_SIZE, 2, Words(40000, 7), "Size(2,40000,7)", 0 },
        { WM_SYSCHAR, 'a', 1, "SysChar(97,1,0)", 0 },
        { WM_SYSCOLORCHANGE, 0, 0, "SysColorChange", 0 },
        { WM_SYSCOMMAND, SC_CLOSE, 12, "SysCommand(61536,12)", 0 },
        { WM_TIMER, 4660, 0, "Timer(4660)", 0 },
        { WM_VSCROLL, 1, static_cast<LPARAM>(self), "VScroll(1,0,1)", 0 },
        { WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place), "WindowPosChanging(61)", 0 },
        { WM_APP + 3, 11, 12, "Own(11,12)", 77 },
    };
    for (const CMessageCase& row : aCases)
    {
        EXPECT_EQ(window.SendMessage(row.nMessage, row.wParam, row.lParam), row.lResult)
            << row.pszHandled;
        EXPECT_EQ(TakeLog(), row.pszHandled);
    }
}

// ---- Commands, notifications, reflection

constexpr UINT s_nIdPlain = 40001;
constexpr UINT s_nIdRefused = 40002;  // its handler leaves it to the base class
constexpr UINT s_nIdGrey = 40003;
constexpr UINT s_nIdRange = 40010;
constexpr UINT s_nIdReflected = 8;
constexpr UINT s_nIdUnreflected = 9;
constexpr WORD s_nNotice = 0xFF96;  // -106

class CBaseTarget : public CWnd
{
protected:
    BOOL OnBase(UINT nID)
    {
        Log("Base", nID);
        return TRUE;
    }
    void OnUpdate() { Log("EnUpdate"); }
    void OnNotice(NMHDR* pHeader, LRESULT* pResult)
    {
        Log("Notice", pHeader->idFrom, static_cast<int>(pHeader->code));
        *pResult = 5;
    }
    void OnPlain() { Log("BasePlain"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBaseTarget, CWnd)
ON_COMMAND_EX(s_nIdRefused, OnBase)
ON_COMMAND(s_nIdPlain, OnPlain)
ON_EN_UPDATE(s_nIdReflected, OnUpdate)
ON_EN_UPDATE(s_nIdUnreflected, OnUpdate)
ON_NOTIFY(static_cast<UINT>(-106), s_nIdReflected, OnNotice)
ON_NOTIFY(static_cast<UINT>(-106), s_nIdUnreflected, OnNotice)
END_MESSAGE_MAP()

class CTarget : public CBaseTarget
{
    void OnPlain() { Log("Plain"); }
    void OnRange(UINT nID) { Log("Range", nID); }
    void OnGrey() { Log("Grey"); }
    void OnUpdateGrey(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
    void OnUpdatePlain(CCmdUI*) {}
    void OnControls(UINT nID) { Log("Controls", nID); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTarget, CBaseTarget)
ON_COMMAND(s_nIdPlain, OnPlain)
ON_COMMAND(s_nIdGrey, OnGrey)
ON_COMMAND_RANGE(s_nIdRange, s_nIdRange + 5, OnRange)
ON_UPDATE_COMMAND_UI(s_nIdGrey, OnUpdateGrey)
ON_UPDATE_COMMAND_UI(s_nIdPlain, OnUpdatePlain)
ON_CONTROL_RANGE(EN_CHANGE, s_nIdReflected, s_nIdUnreflected, OnControls)
END_MESSAGE_MAP()

class CReflecting : public CWnd
{
    void OnUpdate() { Log("ReflectedUpdate"); }
    BOOL OnChange()
    {
        Log("ReflectedChange");
        return FALSE;
    }
    void OnNotice(NMHDR*, LRESULT* pResult)
    {
        Log("ReflectedNotice");
        *pResult = 6;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CReflecting, CWnd)
ON_CONTROL_REFLECT(EN_UPDATE, OnUpdate)
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnChange)
ON_NOTIFY_REFLECT(static_cast<UINT>(-106), OnNotice)
END_MESSAGE_MAP()

class CUpdatingEdit : public CEdit
{
    void OnUpdate() { Log("Update"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CUpdatingEdit, CEdit)
ON_CONTROL_REFLECT(EN_UPDATE, OnUpdate)
END_MESSAGE_MAP()

TEST(Dispatch, CommandsAndNotificationsFindTheirRows)
{
    static_assert(WM_REFLECT_BASE + WM_COMMAND == 0xBD11);
    CTestParent parent;
    CTarget target;
    MakeChild(target, parent);
    CReflecting reflecting;
    MakeChild(reflecting, target, s_nIdReflected);
    CWnd plain;
    MakeChild(plain, target, s_nIdUnreflected);
    const auto lReflecting = reinterpret_cast<LPARAM>(reflecting.GetSafeHwnd());
    const auto lPlain = reinterpret_cast<LPARAM>(plain.GetSafeHwnd());
    NMHDR aHeaders[] = { { reflecting, s_nIdReflected, static_cast<UINT>(-106) },
                         { plain, s_nIdUnreflected, static_cast<UINT>(-106) },
                         { plain, s_nIdUnreflected, static_cast<UINT>(-107) } };
    const auto command = [](UINT nID, UINT nCode)
    {
        return static_cast<WPARAM>(MAKELONG(nID, nCode));
    };
    const auto header = [&](int n)
    {
        return reinterpret_cast<LPARAM>(&aHeaders[n]);
    };
    const CMessageCase aCases[] = {
        { WM_COMMAND, command(s_nIdPlain, 0), 0, "Plain", 1 },
        { WM_COMMAND, command(s_nIdPlain, 1), 0, "Plain", 1 },  // an accelerator
        { WM_COMMAND, command(s_nIdGrey, 0), 0, "", 1 },        // disabled, and so done with
        { WM_COMMAND, command(s_nIdRefused, 0), 0, "Base(40002)", 1 },
        { WM_COMMAND, command(s_nIdRange + 5, 0), 0, "Range(40015)", 1 },
        { WM_COMMAND, command(s_nIdRange + 6, 0), 0, "", 0 },
        { WM_COMMAND, command(s_nIdReflected, EN_UPDATE), lReflecting, "ReflectedUpdate", 1 },
        { WM_COMMAND, command(s_nIdUnreflected, EN_UPDATE), lPlain, "EnUpdate", 1 },
        { WM_COMMAND, command(s_nIdReflected, EN_CHANGE), lReflecting,
          "ReflectedChange Controls(8)", 1 },
        { WM_COMMAND, command(s_nIdUnreflected, EN_KILLFOCUS), lPlain, "", 0 },
        { WM_NOTIFY, s_nIdReflected, header(0), "ReflectedNotice", 6 },
        { WM_NOTIFY, s_nIdUnreflected, header(1), "Notice(9,-106)", 5 },
        { WM_NOTIFY, s_nIdUnreflected, header(2), "", 0 },
    };
    for (const CMessageCase& row : aCases)
    {
        EXPECT_EQ(target.SendMessage(row.nMessage, row.wParam, row.lParam), row.lResult)
            << row.pszHandled;
        EXPECT_EQ(TakeLog(), row.pszHandled);
    }

    CUpdatingEdit edit;
    ASSERT_TRUE(edit.Create(0, CRect(0, 0, 50, 20), &target, s_nIdReflected + 20));
    edit.SetWindowText("t");
    edit.SendMessage(WM_CHAR, 'x');
    EXPECT_EQ(TakeLog(), "Update Update");

    AFX_CMDHANDLERINFO info = {};
    EXPECT_TRUE(target.OnCmdMsg(s_nIdPlain, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(info.pTarget, &target);
    EXPECT_EQ(TakeLog(), "") << "asking for a handler calls none";
}

// ---- Default

class CDefaulting : public CWnd
{
public:
    int m_nTimes = 1;  // calls of Default by the handler
    int m_nDefault = 0;

private:
    LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        m_nDefault += nMessage == WM_APP || nMessage == WM_LBUTTONDOWN;
        if (nMessage == WM_LBUTTONDOWN)
            Log("Default", wParam, LOWORD(lParam), HIWORD(lParam));
        return CWnd::DefWindowProc(nMessage, wParam, lParam);
    }
    void OnLButtonDown(UINT nFlags, CPoint point)
    {
        SendMessage(WM_KEYDOWN, 1, 2);  // another message meanwhile
        point.Offset(100, 100);
        for (int n = 0; n < m_nTimes; ++n)
            CWnd::OnLButtonDown(nFlags + 1, point);
    }
    void OnKeyDown(UINT, UINT, UINT) {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CDefaulting, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

TEST(Dispatch, DefaultGoesOnOnceAndWithTheMessagesOwnArguments)
{
    CTestParent parent;
    CDefaulting window;
    MakeChild(window, parent);
    for (const int nTimes : { 0, 1, 2 })
    {
        window.m_nTimes = nTimes;
        window.m_nDefault = 0;
        window.SendMessage(WM_LBUTTONDOWN, MK_CONTROL, Words(3, 4));
        EXPECT_EQ(window.m_nDefault, nTimes);
        EXPECT_EQ(TakeLog(), nTimes == 0   ? ""
                             : nTimes == 1 ? "Default(8,3,4)"
                                           : "Default(8,3,4) Default(8,3,4)");
    }
    window.m_nDefault = 0;
    window.SendMessage(WM_APP);  // no handler
    EXPECT_EQ(window.m_nDefault, 1);
}
}  // namespace
