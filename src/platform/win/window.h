// Windows. Coordinates are pixels: of the screen for top-level windows, else of the parent's
// inside.
//
//   class CPage : public CWnd
//   {
//       void OnPaint();
//       DECLARE_MESSAGE_MAP()
//   };
//   BEGIN_MESSAGE_MAP(CPage, CWnd)
//       ON_WM_PAINT()
//   END_MESSAGE_MAP()
//
// - Windows are narrow: texts are bytes of the system's code page.
// - The object does not own itself: one on the heap ends with its window by "delete this" in
//   PostNcDestroy. One that ends first destroys its window.
// - FromHandle gives the object that is attached, or a temporary one that owns nothing and is gone
//   when the message loop is idle.
// - An exception that a handler throws comes out of the operation that led to the message
//   (SendMessage, UpdateWindow, Create, ...), or ends in the message loop with a message.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/cstring.h"
#include "platform/base/geometry.h"

class CDC;
class CFont;
class CMenu;
class CScrollBar;
struct CCreateContext;
template <class T>
class CHandleMap;
template <class T>
class CTemporaryWrappers;

class CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
    DECLARE_MESSAGE_MAP()

public:
    CWnd() = default;
    ~CWnd() override;

    // ---- What may be overridden

    // A child window. FALSE where it could not be made; see CreateEx.
    virtual BOOL Create(LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParent, UINT nID, CCreateContext* pContext = nullptr);
    // FALSE stops the creation. The base gives a window without a class the one for plain children.
    virtual BOOL PreCreateWindow(CREATESTRUCTA& cs);
    // The handle is attached, no message has come yet.
    virtual void PreSubclassWindow();
    virtual BOOL DestroyWindow();
    // Looks at a message of the loop before it is dispatched; TRUE ends it there.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

protected:
    // All messages; what OnWndMsg leaves goes to DefWindowProc.
    virtual LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    // To the procedure that stood here before, or the system's.
    virtual LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    // Commands, notifications and the message map. FALSE: nobody has handled it.
    virtual BOOL OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A message that this control has sent to its parent; TRUE keeps it from the parent. The base
    // asks the rows of reflected messages.
    virtual BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // The last thing that happens to a window: the handle is gone, the object may delete itself.
    virtual void PostNcDestroy();

    // Goes on with the message that is being handled as if there were no handler for it, with its
    // own arguments.
    LRESULT Default();

public:
    // ---- Handles

    static CWnd* FromHandle(HWND hWnd);
    // Null if no object is attached.
    static CWnd* FromHandlePermanent(HWND hWnd);
    // Ends the objects that FromHandle has made, but for those that a handler may be using.
    static void DeleteTempMap();
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL Attach(HWND hWnd);
    HWND Detach();

    // ---- Life

    // nIDorMenu: identifier of a child, menu of another window. The messages of the creation come
    // to this object. If no window was made at all, the object is as before; if the creation was
    // stopped later (OnCreate gave -1), PostNcDestroy has run.
    BOOL CreateEx(DWORD dwExStyle, LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle, int x,
                  int y, int nWidth, int nHeight, HWND hParent, HMENU nIDorMenu,
                  LPVOID pParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle,
                  const RECT& rect, CWnd* pParent, UINT nID, LPVOID pParam = nullptr);
    // Puts this object before the procedure of a window that is there.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    // Goes up from the message's window to hWndStop and asks each object; TRUE: one took it.
    static BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    BOOL IsDialogMessage(MSG* pMsg);
    void SendMessageToDescendants(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    // Asks the handlers of the identifiers of all child windows how to show them.
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler);

    // ---- One call of the system each

    void ClientToScreen(LPPOINT pPoint) const;
    void ClientToScreen(LPRECT pRect) const;
    void DrawMenuBar();
    BOOL EnableScrollBarCtrl(int nBar, BOOL bEnable = TRUE);  // shows or hides the window's own bar
    BOOL EnableWindow(BOOL bEnable = TRUE);
    void GetClientRect(LPRECT pRect) const;
    int GetDlgCtrlID() const;
    CWnd* GetDlgItem(int nID) const;
    static CWnd* GetFocus();
    CFont* GetFont() const;
    CMenu* GetMenu() const;
    // The window that gets this one's notifications: the one that was set, or else the parent.
    CWnd* GetOwner() const;
    CWnd* GetParent() const;
    BOOL GetScrollInfo(int nBar, SCROLLINFO* pInfo, UINT nMask = SIF_ALL);
    DWORD GetStyle() const;
    CWnd* GetTopLevelParent() const;
    void GetWindowRect(LPRECT pRect) const;
    int GetWindowText(LPSTR pszText, int nMost) const;
    void GetWindowText(CString& strText) const;
    int GetWindowTextLength() const;
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT pRect, BOOL bErase = TRUE);
    BOOL IsChild(const CWnd* pWnd) const;
    BOOL IsWindowEnabled() const;
    BOOL IsWindowVisible() const;
    int MessageBox(LPCSTR pszText, LPCSTR pszCaption = nullptr, UINT nType = MB_OK);
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT pRect, BOOL bRepaint = TRUE);
    BOOL PostMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL RedrawWindow(LPCRECT pRect = nullptr, HRGN hRegion = nullptr,
                      UINT nFlags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void ScreenToClient(LPPOINT pPoint) const;
    void ScreenToClient(LPRECT pRect) const;
    LRESULT SendMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    CWnd* SetFocus();
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    BOOL SetForegroundWindow();
    BOOL SetMenu(CMenu* pMenu);
    void SetOwner(CWnd* pOwner);
    BOOL SetScrollInfo(int nBar, SCROLLINFO* pInfo, BOOL bRedraw = TRUE);
    void SetScrollRange(int nBar, int nMin, int nMax, BOOL bRedraw = TRUE);
    BOOL SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void SetWindowText(LPCSTR pszText);
    BOOL ShowWindow(int nShow);
    void UpdateWindow();
    void ValidateRect(LPCRECT pRect);

    HWND m_hWnd = nullptr;

protected:
    // ---- Handlers of the base: each is Default, unless it says more

    void OnActivate(UINT, CWnd*, BOOL) { Default(); }  // state, other window, minimized
    void OnCancelMode() { Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }  // character or key, repeats, flags
    void OnClose() { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }  // screen coordinates
    int OnCreate(LPCREATESTRUCTA) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    // A menu's items go to the menu object.
    void OnDrawItem(int nControlID, LPDRAWITEMSTRUCT pDraw);
    void OnEnable(BOOL) { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }  // null: the window's own bar
    void OnInitMenu(CMenu*) { Default(); }
    void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }  // index, whether the system's
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }  // MK_ flags, client coordinates
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    // A menu's items go to the menu object.
    void OnMeasureItem(int nControlID, LPMEASUREITEMSTRUCT pMeasure);
    LRESULT OnMenuChar(UINT, UINT, CMenu*) { return Default(); }
    void OnMenuSelect(UINT, UINT, HMENU) { Default(); }
    int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    // Flags, 120 a notch, screen coordinates.
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnMove(int, int) { Default(); }
    // Detaches the handle, and then PostNcDestroy. The main window's end is the program's.
    void OnNcDestroy();
    void OnNcPaint() { Default(); }
    void OnPaint() { Default(); }
    void OnRButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnSysChar(UINT, UINT, UINT) { Default(); }
    void OnSysColorChange() { Default(); }
    void OnSysCommand(UINT, LPARAM) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    void OnWindowPosChanging(WINDOWPOS*) { Default(); }

    HWND m_hWndOwner = nullptr;  // null: the parent is

private:
    friend class CHandleMap<CWnd>;
    friend class CTemporaryWrappers<CWnd>;
    friend struct CWindowEntry;

    LRESULT CallWndHandler(const AFX_MSGMAP_ENTRY& entry, WPARAM wParam, LPARAM lParam);
    BOOL ReflectToChild(HWND hChild, UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    BOOL IsCommandDisabled(UINT nID);
    void Subclass(HWND hWnd);
    HWND MapKey() const { return m_hWnd; }

    CWnd* m_pNextInMap = nullptr;
    WNDPROC m_pfnSuper = nullptr;  // what stood here before us; null: the system's
    bool m_bTemporary = false;     // made by FromHandle: owns nothing
};

// A scroll bar that is a window of its own. It adds nothing, so that any object attached to one
// will do.
class CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)
};

// Takes the drop target of a window away before that is gone; drag and drop sets it.
extern void (*g_pfnRevokeDropTarget)(HWND hWnd);
