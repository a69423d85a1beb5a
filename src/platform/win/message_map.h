// Rows of message maps for windows: messages, notifications of controls, reflected messages. The
// handlers have the documented forms; see the handlers of CWnd.
#pragma once

#include "platform/win/window.h"

// Forms of the handlers of a window's messages.
enum : UINT_PTR
{
    AfxSigActivate = AfxSigWindow,
    AfxSigBool,
    AfxSigCreate,
    AfxSigCursor,
    AfxSigDC,
    AfxSigDrawItem,
    AfxSigInitMenu,
    AfxSigInitPopup,
    AfxSigInts,
    AfxSigKey,
    AfxSigMeasureItem,
    AfxSigMenuChar,
    AfxSigMenuSelect,
    AfxSigMessage,
    AfxSigMouse,
    AfxSigMouseActivate,
    AfxSigPoint,
    AfxSigResult,
    AfxSigScroll,
    AfxSigShow,
    AfxSigSize,
    AfxSigSysCommand,
    AfxSigTimer,
    AfxSigVoid,
    AfxSigWheel,
    AfxSigWindowFirst,   // the window in the first argument of the message
    AfxSigWindowSecond,  // in the second
    AfxSigWindowPos,
};

// clang-format off
template <> struct AfxHandlerForm<AfxSigActivate> { using type = void (CWnd::*)(UINT, CWnd*, BOOL); };
template <> struct AfxHandlerForm<AfxSigBool> { using type = void (CWnd::*)(BOOL); };
template <> struct AfxHandlerForm<AfxSigCreate> { using type = int (CWnd::*)(LPCREATESTRUCTA); };
template <> struct AfxHandlerForm<AfxSigCursor> { using type = BOOL (CWnd::*)(CWnd*, UINT, UINT); };
template <> struct AfxHandlerForm<AfxSigDC> { using type = BOOL (CWnd::*)(CDC*); };
template <> struct AfxHandlerForm<AfxSigDrawItem> { using type = void (CWnd::*)(int, LPDRAWITEMSTRUCT); };
template <> struct AfxHandlerForm<AfxSigInitMenu> { using type = void (CWnd::*)(CMenu*); };
template <> struct AfxHandlerForm<AfxSigInitPopup> { using type = void (CWnd::*)(CMenu*, UINT, BOOL); };
template <> struct AfxHandlerForm<AfxSigInts> { using type = void (CWnd::*)(int, int); };
template <> struct AfxHandlerForm<AfxSigKey> { using type = void (CWnd::*)(UINT, UINT, UINT); };
template <> struct AfxHandlerForm<AfxSigMeasureItem> { using type = void (CWnd::*)(int, LPMEASUREITEMSTRUCT); };
template <> struct AfxHandlerForm<AfxSigMenuChar> { using type = LRESULT (CWnd::*)(UINT, UINT, CMenu*); };
template <> struct AfxHandlerForm<AfxSigMenuSelect> { using type = void (CWnd::*)(UINT, UINT, HMENU); };
template <> struct AfxHandlerForm<AfxSigMessage> { using type = LRESULT (CWnd::*)(WPARAM, LPARAM); };
template <> struct AfxHandlerForm<AfxSigMouse> { using type = void (CWnd::*)(UINT, CPoint); };
template <> struct AfxHandlerForm<AfxSigMouseActivate> { using type = int (CWnd::*)(CWnd*, UINT, UINT); };
template <> struct AfxHandlerForm<AfxSigPoint> { using type = void (CWnd::*)(CWnd*, CPoint); };
template <> struct AfxHandlerForm<AfxSigResult> { using type = UINT (CWnd::*)(); };
template <> struct AfxHandlerForm<AfxSigScroll> { using type = void (CWnd::*)(UINT, UINT, CScrollBar*); };
template <> struct AfxHandlerForm<AfxSigShow> { using type = void (CWnd::*)(BOOL, UINT); };
template <> struct AfxHandlerForm<AfxSigSize> { using type = void (CWnd::*)(UINT, int, int); };
template <> struct AfxHandlerForm<AfxSigSysCommand> { using type = void (CWnd::*)(UINT, LPARAM); };
template <> struct AfxHandlerForm<AfxSigTimer> { using type = void (CWnd::*)(UINT_PTR); };
template <> struct AfxHandlerForm<AfxSigVoid> { using type = void (CWnd::*)(); };
template <> struct AfxHandlerForm<AfxSigWheel> { using type = BOOL (CWnd::*)(UINT, short, CPoint); };
template <> struct AfxHandlerForm<AfxSigWindowFirst> { using type = void (CWnd::*)(CWnd*); };
template <> struct AfxHandlerForm<AfxSigWindowSecond> { using type = void (CWnd::*)(CWnd*); };
template <> struct AfxHandlerForm<AfxSigWindowPos> { using type = void (CWnd::*)(WINDOWPOS*); };

#define AFX_WINDOW_ROW(nMessage, nSig, pfn) AFX_MESSAGE_ROW(nMessage, 0, 0, 0, nSig, pfn)

// LRESULT pfn(WPARAM, LPARAM)
#define ON_MESSAGE(nMessage, pfn) AFX_WINDOW_ROW(nMessage, AfxSigMessage, pfn)

#define ON_WM_ACTIVATE() AFX_WINDOW_ROW(WM_ACTIVATE, AfxSigActivate, OnActivate)
#define ON_WM_CANCELMODE() AFX_WINDOW_ROW(WM_CANCELMODE, AfxSigVoid, OnCancelMode)
#define ON_WM_CAPTURECHANGED() AFX_WINDOW_ROW(WM_CAPTURECHANGED, AfxSigWindowSecond, OnCaptureChanged)
#define ON_WM_CHAR() AFX_WINDOW_ROW(WM_CHAR, AfxSigKey, OnChar)
#define ON_WM_CLOSE() AFX_WINDOW_ROW(WM_CLOSE, AfxSigVoid, OnClose)
#define ON_WM_CONTEXTMENU() AFX_WINDOW_ROW(WM_CONTEXTMENU, AfxSigPoint, OnContextMenu)
#define ON_WM_CREATE() AFX_WINDOW_ROW(WM_CREATE, AfxSigCreate, OnCreate)
#define ON_WM_DESTROY() AFX_WINDOW_ROW(WM_DESTROY, AfxSigVoid, OnDestroy)
#define ON_WM_DRAWITEM() AFX_WINDOW_ROW(WM_DRAWITEM, AfxSigDrawItem, OnDrawItem)
#define ON_WM_ENABLE() AFX_WINDOW_ROW(WM_ENABLE, AfxSigBool, OnEnable)
#define ON_WM_ERASEBKGND() AFX_WINDOW_ROW(WM_ERASEBKGND, AfxSigDC, OnEraseBkgnd)
#define ON_WM_GETDLGCODE() AFX_WINDOW_ROW(WM_GETDLGCODE, AfxSigResult, OnGetDlgCode)
#define ON_WM_HSCROLL() AFX_WINDOW_ROW(WM_HSCROLL, AfxSigScroll, OnHScroll)
#define ON_WM_INITMENU() AFX_WINDOW_ROW(WM_INITMENU, AfxSigInitMenu, OnInitMenu)
#define ON_WM_INITMENUPOPUP() AFX_WINDOW_ROW(WM_INITMENUPOPUP, AfxSigInitPopup, OnInitMenuPopup)
#define ON_WM_KEYDOWN() AFX_WINDOW_ROW(WM_KEYDOWN, AfxSigKey, OnKeyDown)
#define ON_WM_KEYUP() AFX_WINDOW_ROW(WM_KEYUP, AfxSigKey, OnKeyUp)
#define ON_WM_KILLFOCUS() AFX_WINDOW_ROW(WM_KILLFOCUS, AfxSigWindowFirst, OnKillFocus)
#define ON_WM_LBUTTONDBLCLK() AFX_WINDOW_ROW(WM_LBUTTONDBLCLK, AfxSigMouse, OnLButtonDblClk)
#define ON_WM_LBUTTONDOWN() AFX_WINDOW_ROW(WM_LBUTTONDOWN, AfxSigMouse, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WINDOW_ROW(WM_LBUTTONUP, AfxSigMouse, OnLButtonUp)
#define ON_WM_MEASUREITEM() AFX_WINDOW_ROW(WM_MEASUREITEM, AfxSigMeasureItem, OnMeasureItem)
#define ON_WM_MENUCHAR() AFX_WINDOW_ROW(WM_MENUCHAR, AfxSigMenuChar, OnMenuChar)
#define ON_WM_MENUSELECT() AFX_WINDOW_ROW(WM_MENUSELECT, AfxSigMenuSelect, OnMenuSelect)
#define ON_WM_MOUSEACTIVATE() AFX_WINDOW_ROW(WM_MOUSEACTIVATE, AfxSigMouseActivate, OnMouseActivate)
#define ON_WM_MOUSEMOVE() AFX_WINDOW_ROW(WM_MOUSEMOVE, AfxSigMouse, OnMouseMove)
#define ON_WM_MOUSEWHEEL() AFX_WINDOW_ROW(WM_MOUSEWHEEL, AfxSigWheel, OnMouseWheel)
#define ON_WM_MOVE() AFX_WINDOW_ROW(WM_MOVE, AfxSigInts, OnMove)
#define ON_WM_NCDESTROY() AFX_WINDOW_ROW(WM_NCDESTROY, AfxSigVoid, OnNcDestroy)
#define ON_WM_NCPAINT() AFX_WINDOW_ROW(WM_NCPAINT, AfxSigVoid, OnNcPaint)
#define ON_WM_PAINT() AFX_WINDOW_ROW(WM_PAINT, AfxSigVoid, OnPaint)
#define ON_WM_RBUTTONDBLCLK() AFX_WINDOW_ROW(WM_RBUTTONDBLCLK, AfxSigMouse, OnRButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_WINDOW_ROW(WM_RBUTTONDOWN, AfxSigMouse, OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_WINDOW_ROW(WM_RBUTTONUP, AfxSigMouse, OnRButtonUp)
#define ON_WM_SETCURSOR() AFX_WINDOW_ROW(WM_SETCURSOR, AfxSigCursor, OnSetCursor)
#define ON_WM_SETFOCUS() AFX_WINDOW_ROW(WM_SETFOCUS, AfxSigWindowFirst, OnSetFocus)
#define ON_WM_SHOWWINDOW() AFX_WINDOW_ROW(WM_SHOWWINDOW, AfxSigShow, OnShowWindow)
#define ON_WM_SIZE() AFX_WINDOW_ROW(WM_SIZE, AfxSigSize, OnSize)
#define ON_WM_SYSCHAR() AFX_WINDOW_ROW(WM_SYSCHAR, AfxSigKey, OnSysChar)
#define ON_WM_SYSCOLORCHANGE() AFX_WINDOW_ROW(WM_SYSCOLORCHANGE, AfxSigVoid, OnSysColorChange)
#define ON_WM_SYSCOMMAND() AFX_WINDOW_ROW(WM_SYSCOMMAND, AfxSigSysCommand, OnSysCommand)
#define ON_WM_SYSKEYDOWN() AFX_WINDOW_ROW(WM_SYSKEYDOWN, AfxSigKey, OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_WINDOW_ROW(WM_SYSKEYUP, AfxSigKey, OnSysKeyUp)
#define ON_WM_TIMER() AFX_WINDOW_ROW(WM_TIMER, AfxSigTimer, OnTimer)
#define ON_WM_VSCROLL() AFX_WINDOW_ROW(WM_VSCROLL, AfxSigScroll, OnVScroll)
#define ON_WM_WINDOWPOSCHANGED() AFX_WINDOW_ROW(WM_WINDOWPOSCHANGED, AfxSigWindowPos, OnWindowPosChanged)
#define ON_WM_WINDOWPOSCHANGING() AFX_WINDOW_ROW(WM_WINDOWPOSCHANGING, AfxSigWindowPos, OnWindowPosChanging)
// clang-format on

// A control's notification by WM_COMMAND: void pfn().
#define ON_CONTROL(nCode, nID, pfn) \
    AFX_MESSAGE_ROW(WM_COMMAND, static_cast<WORD>(nCode), nID, nID, AfxSigCmd, pfn)
#define ON_CONTROL_RANGE(nCode, nID, nLastID, pfn) \
    AFX_MESSAGE_ROW(WM_COMMAND, static_cast<WORD>(nCode), nID, nLastID, AfxSigCmdId, pfn)
#define ON_BN_CLICKED(nID, pfn) ON_CONTROL(BN_CLICKED, nID, pfn)
#define ON_BN_DOUBLECLICKED(nID, pfn) ON_CONTROL(BN_DOUBLECLICKED, nID, pfn)
#define ON_EN_CHANGE(nID, pfn) ON_CONTROL(EN_CHANGE, nID, pfn)
#define ON_EN_KILLFOCUS(nID, pfn) ON_CONTROL(EN_KILLFOCUS, nID, pfn)
#define ON_EN_MAXTEXT(nID, pfn) ON_CONTROL(EN_MAXTEXT, nID, pfn)
#define ON_EN_SETFOCUS(nID, pfn) ON_CONTROL(EN_SETFOCUS, nID, pfn)
#define ON_EN_UPDATE(nID, pfn) ON_CONTROL(EN_UPDATE, nID, pfn)

// A control's notification by WM_NOTIFY: void pfn(NMHDR*, LRESULT*).
#define ON_NOTIFY(nCode, nID, pfn) \
    AFX_MESSAGE_ROW(WM_NOTIFY, static_cast<WORD>(nCode), nID, nID, AfxSigNotify, pfn)
#define ON_NOTIFY_EX(nCode, nID, pfn) \
    AFX_MESSAGE_ROW(WM_NOTIFY, static_cast<WORD>(nCode), nID, nID, AfxSigNotifyBool, pfn)
#define ON_NOTIFY_RANGE(nCode, nID, nLastID, pfn) \
    AFX_MESSAGE_ROW(WM_NOTIFY, static_cast<WORD>(nCode), nID, nLastID, AfxSigNotifyId, pfn)

// In the control's own map: its notifications before its parent sees them. What has a row does not
// go on to the parent, but for the _EX forms when the handler gives FALSE.
#define ON_CONTROL_REFLECT(nCode, pfn) \
    AFX_MESSAGE_ROW(WM_REFLECT_BASE + WM_COMMAND, static_cast<WORD>(nCode), 0, 0, AfxSigCmd, pfn)
#define ON_CONTROL_REFLECT_EX(nCode, pfn)                                                        \
    AFX_MESSAGE_ROW(WM_REFLECT_BASE + WM_COMMAND, static_cast<WORD>(nCode), 0, 0, AfxSigCmdBool, \
                    pfn)
#define ON_NOTIFY_REFLECT(nCode, pfn) \
    AFX_MESSAGE_ROW(WM_REFLECT_BASE + WM_NOTIFY, static_cast<WORD>(nCode), 0, 0, AfxSigNotify, pfn)
#define ON_NOTIFY_REFLECT_EX(nCode, pfn)                                                           \
    AFX_MESSAGE_ROW(WM_REFLECT_BASE + WM_NOTIFY, static_cast<WORD>(nCode), 0, 0, AfxSigNotifyBool, \
                    pfn)
