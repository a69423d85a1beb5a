// The main window of a program: menu, accelerators, a view inside that gets commands first.
#pragma once

#include "platform/win/window.h"

// The child with this identifier fills the frame (CFrameWnd::RecalcLayout).
constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;

// Made with new: it deletes itself when its window is gone.
class CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)
    DECLARE_MESSAGE_MAP()

public:
    CFrameWnd() = default;

    // The system chooses place and size.
    inline static const CRect rectDefault = { CW_USEDEFAULT, CW_USEDEFAULT, 0, 0 };

    // Null class: a plain one; pszMenu in the resources, null for none.
    BOOL Create(LPCSTR pszClassName, LPCSTR pszTitle, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                const RECT& rect = rectDefault, CWnd* pParent = nullptr, LPCSTR pszMenu = nullptr,
                DWORD dwExStyle = 0, CCreateContext* pContext = nullptr);
    // Menu, accelerators, title and icon by one identifier; each may be missing but the menu.
    virtual BOOL LoadFrame(UINT nIDResource, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                           CWnd* pParent = nullptr, CCreateContext* pContext = nullptr);
    BOOL LoadAccelTable(LPCSTR pszName);

    // Gets commands before the frame, and the focus when the frame does. Null if there is none.
    CWnd* GetActiveView() const;
    void SetActiveView(CWnd* pView);

    // Places the children after a change of size.
    virtual void RecalcLayout();

    // To the view, the frame and the application, in this order.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    // Accelerators.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    BOOL m_bAutoMenuEnable = TRUE;   // items without any handler are grey
    HACCEL m_hAccelTable = nullptr;  // not owned

protected:
    void PostNcDestroy() override;
    BOOL PreCreateWindow(CREATESTRUCTA& cs) override;

    void OnClose();
    LRESULT OnIdleUpdateCmdUI(WPARAM wParam, LPARAM lParam);
    void OnInitMenuPopup(CMenu* pPopup, UINT nIndex, BOOL bSysMenu);
    void OnSetFocus(CWnd* pOld);
    void OnSize(UINT nType, int cx, int cy);

private:
    HWND m_hActiveView = nullptr;
    HICON m_hIcon = nullptr;  // of the window's class
};
