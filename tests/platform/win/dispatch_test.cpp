// Each message to its handler, with the arguments that it carries; commands, notifications and
// reflected ones; default processing.
#include "platform/gdi/dc.h"
#include "platform/win/edit.h"
#include "platform/win/menu.h"
#include "test_window.h"

#include <concepts>

namespace
{
constexpr int s_nAnswer = 5;  // of handlers that answer

// Messages, what their handlers give and are called, two arguments, and what arrives.
// clang-format off
#define ALL_MESSAGES(ROW)                                                                            \
    ROW(ACTIVATE,          void,    Activate,          0x00010002, other,            "2,2,1,")       \
    ROW(CANCELMODE,        void,    CancelMode,        0, 0,                         "")             \
    ROW(CAPTURECHANGED,    void,    CaptureChanged,    self, 0,                      "0,")           \
    ROW(CHAR,              void,    Char,              'x', key,                     "120,3,16385,") \
    ROW(CLOSE,             void,    Close,             0, 0,                         "")             \
    ROW(CONTEXTMENU,       void,    ContextMenu,       self, Words(-5, 6),           "1,-5,6,")      \
    ROW(CREATE,            int,     Create,            0, at(create),                "31,")          \
    ROW(DRAWITEM,          void,    DrawItem,          9, at(draw),                  "9,41,")        \
    ROW(ENABLE,            void,    Enable,            1, 0,                         "1,")           \
    ROW(ERASEBKGND,        BOOL,    EraseBkgnd,        0x1234, 0,                    "4660,")        \
    ROW(GETDLGCODE,        UINT,    GetDlgCode,        0, 0,                         "")             \
    ROW(HSCROLL,           void,    HScroll,           0xFFF00005, 0,                "5,65520,0,")   \
    ROW(INITMENU,          void,    InitMenu,          menu, 0,                      "1,")           \
    ROW(INITMENUPOPUP,     void,    InitMenuPopup,     menu, Words(2, 1),            "1,2,1,")       \
    ROW(KEYDOWN,           void,    KeyDown,           VK_LEFT, key,                 "37,3,16385,")  \
    ROW(KEYUP,             void,    KeyUp,             VK_LEFT, key,                 "37,3,16385,")  \
    ROW(KILLFOCUS,         void,    KillFocus,         other, 0,                     "2,")           \
    ROW(LBUTTONDBLCLK,     void,    LButtonDblClk,     MK_LBUTTON, Words(-1, 40000), "1,-1,-25536,") \
    ROW(LBUTTONDOWN,       void,    LButtonDown,       MK_CONTROL, Words(10, 20),    "8,10,20,")     \
    ROW(LBUTTONUP,         void,    LButtonUp,         0, Words(10, 20),             "0,10,20,")     \
    ROW(MEASUREITEM,       void,    MeasureItem,       9, at(measure),               "9,51,")        \
    ROW(MENUCHAR,          LRESULT, MenuChar,          0x00100041, menu,             "65,16,1,")     \
    ROW(MENUSELECT,        void,    MenuSelect,        0x00900007, menu,             "7,144,1,")     \
    ROW(MOUSEACTIVATE,     int,     MouseActivate,     other, Words(1, 0x201),       "2,1,513,")     \
    ROW(MOUSEMOVE,         void,    MouseMove,         MK_LBUTTON, Words(3, -4),     "1,3,-4,")      \
    ROW(MOUSEWHEEL,        BOOL,    MouseWheel,        0xFF880008, Words(7, -8),     "8,-120,7,-8,") \
    ROW(MOVE,              void,    Move,              0, Words(-30, 40),            "-30,40,")      \
    ROW(NCPAINT,           void,    NcPaint,           1, 0,                         "")             \
    ROW(PAINT,             void,    Paint,             0, 0,                         "")             \
    ROW(RBUTTONDBLCLK,     void,    RButtonDblClk,     2, Words(1, 2),               "2,1,2,")       \
    ROW(RBUTTONDOWN,       void,    RButtonDown,       2, Words(1, 2),               "2,1,2,")       \
    ROW(RBUTTONUP,         void,    RButtonUp,         2, Words(1, 2),               "2,1,2,")       \
    ROW(SETCURSOR,         BOOL,    SetCursor,         self, Words(1, 0x200),        "1,1,512,")     \
    ROW(SETFOCUS,          void,    SetFocus,          0, 0,                         "0,")           \
    ROW(SHOWWINDOW,        void,    ShowWindow,        1, 3,                         "1,3,")         \
    ROW(SIZE,              void,    Size,              2, Words(40000, 7),           "2,40000,7,")   \
    ROW(SYSCHAR,           void,    SysChar,           'a', 1,                       "97,1,0,")      \
    ROW(SYSCOLORCHANGE,    void,    SysColorChange,    0, 0,                         "")             \
    ROW(SYSCOMMAND,        void,    SysCommand,        SC_CLOSE, 12,                 "61536,12,")    \
    ROW(SYSKEYDOWN,        void,    SysKeyDown,        VK_LEFT, key,                 "37,3,16385,")  \
    ROW(SYSKEYUP,          void,    SysKeyUp,          VK_LEFT, key,                 "37,3,16385,")  \
    ROW(TIMER,             void,    Timer,             4660, 0,                      "4660,")        \
    ROW(VSCROLL,           void,    VScroll,           1, self,                      "1,0,1,")       \
    ROW(WINDOWPOSCHANGED,  void,    WindowPosChanged,  0, at(place),                 "61,")          \
    ROW(WINDOWPOSCHANGING, void,    WindowPosChanging, 0, at(place),                 "61,")
// clang-format on

class CAllMessages : public CWnd
{
public:
    CMenu m_menu;  // what this window has in its menu messages

private:
    // An argument in the log: whether it is this window (2: another one, 0: none) or its menu, a
    // number, or the field that was filled.
    std::string Tell(const CWnd* pWnd) const
    {
        return pWnd == nullptr ? "0" : pWnd->GetSafeHwnd() == m_hWnd ? "1" : "2";
    }
    std::string Tell(const CMenu* pMenu) const { return Tell(pMenu->GetSafeHmenu()); }
    std::string Tell(HMENU hMenu) const { return hMenu == m_menu.GetSafeHmenu() ? "1" : "0"; }
    std::string Tell(CDC* pDC) const { return Tell(reinterpret_cast<UINT_PTR>(pDC->GetSafeHdc())); }
    std::string Tell(CPoint point) const { return Tell(point.x) + ',' + Tell(point.y); }
    std::string Tell(const CREATESTRUCTA* p) const { return Tell(p->cx); }
    std::string Tell(const DRAWITEMSTRUCT* p) const { return Tell(p->itemID); }
    std::string Tell(const MEASUREITEMSTRUCT* p) const { return Tell(p->itemID); }
    std::string Tell(const WINDOWPOS* p) const { return Tell(p->cx); }
    template <std::integral T>
    std::string Tell(T n) const
    {
        return std::to_string(n);
    }
    template <class R, class... A>
    R Take(std::string strCall, A... args)
    {
        strCall += '(';
        ((strCall += Tell(args) + ','), ...);
        strCall += ')';
        Log(strCall.c_str());
        return static_cast<R>(s_nAnswer);
    }
#define HANDLER(message, R, name, ...)  \
    template <class... A>               \
    R On##name(A... args)               \
    {                                   \
        return Take<R>(#name, args...); \
    }
    ALL_MESSAGES(HANDLER)
    LRESULT OnOwn(WPARAM wParam, LPARAM lParam)
    {
        return Take<LRESULT>("Own", wParam, lParam);
    }
    DECLARE_MESSAGE_MAP()
};

#define MAPPED(message, ...) ON_WM_##message()
BEGIN_MESSAGE_MAP(CAllMessages, CWnd)
ALL_MESSAGES(MAPPED)
ON_MESSAGE(WM_APP + 3, OnOwn)
END_MESSAGE_MAP()

TEST(Dispatch, EachMessageReachesItsHandler)
{
    CTestParent parent;
    CAllMessages window;
    MakeChild(window, parent, 1, 0);
    ASSERT_NE(window.GetSafeHwnd(), nullptr);
    EXPECT_EQ(TakeLog().rfind("Create(200,)"), 0U) << "the first message has come already";
    window.m_menu.CreatePopupMenu();

    CREATESTRUCTA create = {};
    create.cx = 31;
    DRAWITEMSTRUCT draw = {};
    draw.itemID = 41;
    MEASUREITEMSTRUCT measure = {};
    measure.itemID = 51;
    WINDOWPOS place = {};
    place.cx = 61;
    const auto at = [](auto& object)
    {
        return reinterpret_cast<LPARAM>(&object);
    };
    const auto self = reinterpret_cast<LPARAM>(window.GetSafeHwnd());
    const auto other = reinterpret_cast<LPARAM>(parent.GetSafeHwnd());
    const auto menu = reinterpret_cast<LPARAM>(window.m_menu.GetSafeHmenu());
    const auto key = static_cast<LPARAM>(0x40010003);
#define CASE(message, R, name, wParam, lParam, pszArguments)                         \
    { WM_##message, static_cast<WPARAM>(wParam), lParam, #name "(" pszArguments ")", \
      std::is_void_v<R> ? 0 : s_nAnswer },
    const CMessageCase aCases[] = { ALL_MESSAGES(CASE){ WM_APP + 3, 11, 12, "Own(11,12,)",
                                                        s_nAnswer } };
    ExpectHandled(window, aCases);
}

// ---- Commands, notifications, reflection

constexpr UINT s_nIdPlain = 40001;
constexpr UINT s_nIdRefused = 40002;  // its handler leaves it to the base class
constexpr UINT s_nIdGrey = 40003;
constexpr UINT s_nIdRange = 40010;
constexpr UINT s_nIdReflected = 8;
constexpr UINT s_nIdUnreflected = 9;
constexpr UINT s_nNotice = static_cast<UINT>(-106);

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
ON_NOTIFY(s_nNotice, s_nIdReflected, OnNotice)
ON_NOTIFY(s_nNotice, s_nIdUnreflected, OnNotice)
END_MESSAGE_MAP()

class CTarget : public CBaseTarget
{
    void OnPlain() { Log("Plain"); }
    void OnRange(UINT nID) { Log("Range", nID); }
    void OnUpdateGrey(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
    void OnUpdatePlain(CCmdUI*) {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CTarget, CBaseTarget)
ON_COMMAND(s_nIdPlain, OnPlain)
ON_COMMAND(s_nIdGrey, OnPlain)
ON_COMMAND_RANGE(s_nIdRange, s_nIdRange + 5, OnRange)
ON_UPDATE_COMMAND_UI(s_nIdGrey, OnUpdateGrey)
ON_UPDATE_COMMAND_UI(s_nIdPlain, OnUpdatePlain)
ON_CONTROL_RANGE(EN_CHANGE, s_nIdReflected, s_nIdUnreflected, OnRange)
END_MESSAGE_MAP()

class CReflecting : public CEdit
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
BEGIN_MESSAGE_MAP(CReflecting, CEdit)
ON_CONTROL_REFLECT(EN_UPDATE, OnUpdate)
ON_CONTROL_REFLECT_EX(EN_CHANGE, OnChange)
ON_NOTIFY_REFLECT(s_nNotice, OnNotice)
END_MESSAGE_MAP()

TEST(Dispatch, CommandsAndNotificationsFindTheirRows)
{
    static_assert(WM_REFLECT_BASE + WM_COMMAND == 0xBD11);
    CTestParent parent;
    CTarget target;
    MakeChild(target, parent);
    CReflecting reflecting;
    ASSERT_TRUE(reflecting.Create(0, CRect(0, 0, 50, 20), &target, s_nIdReflected));
    CWnd plain;
    MakeChild(plain, target, s_nIdUnreflected);
    TakeLog();
    reflecting.SetWindowText("t");
    reflecting.SendMessage(WM_CHAR, 'x');
    EXPECT_EQ(TakeLog(),
              "ReflectedUpdate ReflectedChange Range(8) "
              "ReflectedUpdate ReflectedChange Range(8)");

    const auto lReflecting = reinterpret_cast<LPARAM>(reflecting.GetSafeHwnd());
    const auto lPlain = reinterpret_cast<LPARAM>(plain.GetSafeHwnd());
    NMHDR aHeaders[] = { { reflecting, s_nIdReflected, s_nNotice },
                         { plain, s_nIdUnreflected, s_nNotice },
                         { plain, s_nIdUnreflected, s_nNotice - 1 } };
    const auto header = [&](int n)
    {
        return reinterpret_cast<LPARAM>(&aHeaders[n]);
    };
    const auto code = [](UINT nID, UINT nCode)
    {
        return static_cast<WPARAM>(MAKELONG(nID, nCode));
    };
    const CMessageCase aCases[] = {
        { WM_COMMAND, s_nIdPlain, 0, "Plain", 1 },
        { WM_COMMAND, code(s_nIdPlain, 1), 0, "Plain", 1 },  // an accelerator
        { WM_COMMAND, s_nIdGrey, 0, "", 1 },                 // disabled, and so done with
        { WM_COMMAND, s_nIdRefused, 0, "Base(40002)", 1 },
        { WM_COMMAND, s_nIdRange + 5, 0, "Range(40015)", 1 },
        { WM_COMMAND, s_nIdRange + 6, 0, "", 0 },
        { WM_COMMAND, code(s_nIdReflected, EN_UPDATE), lReflecting, "ReflectedUpdate", 1 },
        { WM_COMMAND, code(s_nIdUnreflected, EN_UPDATE), lPlain, "EnUpdate", 1 },
        { WM_COMMAND, code(s_nIdUnreflected, EN_CHANGE), lPlain, "Range(9)", 1 },
        { WM_COMMAND, code(s_nIdUnreflected, EN_KILLFOCUS), lPlain, "", 0 },
        { WM_NOTIFY, s_nIdReflected, header(0), "ReflectedNotice", 6 },
        { WM_NOTIFY, s_nIdUnreflected, header(1), "Notice(9,-106)", 5 },
        { WM_NOTIFY, s_nIdUnreflected, header(2), "", 0 },
    };
    ExpectHandled(target, aCases);

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

private:
    LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_APP || nMessage == WM_LBUTTONDOWN)
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
    const char* const apszLogs[] = { "", "Default(8,3,4)", "Default(8,3,4) Default(8,3,4)" };
    for (window.m_nTimes = 0; window.m_nTimes < 3; ++window.m_nTimes)
    {
        window.SendMessage(WM_LBUTTONDOWN, MK_CONTROL, Words(3, 4));
        EXPECT_EQ(TakeLog(), apszLogs[window.m_nTimes]);
    }
    window.SendMessage(WM_APP);  // no handler
    EXPECT_EQ(TakeLog(), "Default(0,0,0)");
}
}  // namespace
