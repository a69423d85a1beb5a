// The main window.
#include "platform/win/frame.h"

#include "platform/win/app_pump.h"
#include "platform/win/cmd_ui.h"
#include "platform/win/menu.h"
#include "platform/win/message_map.h"
#include "platform/win/module.h"
#include "platform/win/system_call.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CLOSE()
ON_WM_INITMENUPOPUP()
ON_WM_SETFOCUS()
ON_WM_SIZE()
ON_MESSAGE(WM_IDLEUPDATECMDUI, OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

namespace
{
constexpr UINT s_nStringsInBlock = 16;

CString LoadText(UINT nID)
{
    char szText[256];
    const LPCSTR pszBlock = MAKEINTRESOURCEA(nID / s_nStringsInBlock + 1);
    const int nLength =
        ::LoadStringA(AfxFindResourceHandle(pszBlock, RT_STRING), nID, szText, sizeof(szText));
    return { szText, nLength };
}
}  // namespace

// ---- Life

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCTA& cs)
{
    if (cs.lpszClass == nullptr)
    {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW),
                                           reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), m_hIcon);
    }
    return CWnd::PreCreateWindow(cs);
}

BOOL CFrameWnd::Create(LPCSTR pszClassName, LPCSTR pszTitle, DWORD dwStyle, const RECT& rect,
                       CWnd* pParent, LPCSTR pszMenu, DWORD dwExStyle, CCreateContext* pContext)
{
    HMENU hMenu = nullptr;
    if (pszMenu != nullptr)
    {
        hMenu = ::LoadMenuA(AfxFindResourceHandle(pszMenu, RT_MENU), pszMenu);
        if (hMenu == nullptr)
            return FALSE;
    }
    const bool bDefault = rect.left == CW_USEDEFAULT;
    const BOOL bMade =
        CreateEx(dwExStyle, pszClassName, pszTitle, dwStyle, rect.left, rect.top,
                 bDefault ? CW_USEDEFAULT : rect.right - rect.left,
                 bDefault ? CW_USEDEFAULT : rect.bottom - rect.top,
                 pParent != nullptr ? pParent->GetSafeHwnd() : nullptr, hMenu, pContext);
    if (!bMade && ::IsMenu(hMenu))
        ::DestroyMenu(hMenu);
    return bMade;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwStyle, CWnd* pParent, CCreateContext* pContext)
{
    const LPCSTR pszName = MAKEINTRESOURCEA(nIDResource);
    m_hIcon = ::LoadIconA(AfxFindResourceHandle(pszName, RT_GROUP_ICON), pszName);
    LoadAccelTable(pszName);
    return Create(nullptr, LoadText(nIDResource), dwStyle, rectDefault, pParent, pszName, 0,
                  pContext);
}

BOOL CFrameWnd::LoadAccelTable(LPCSTR pszName)
{
    m_hAccelTable = ::LoadAcceleratorsA(AfxFindResourceHandle(pszName, RT_ACCELERATOR), pszName);
    return m_hAccelTable != nullptr;
}

void CFrameWnd::OnClose()
{
    DestroyWindow();
}

void CFrameWnd::PostNcDestroy()
{
    delete this;
}

// ---- The view

CWnd* CFrameWnd::GetActiveView() const
{
    return FromHandlePermanent(m_hActiveView);
}

void CFrameWnd::SetActiveView(CWnd* pView)
{
    m_hActiveView = pView != nullptr ? pView->GetSafeHwnd() : nullptr;
}

void CFrameWnd::RecalcLayout()
{
    CWnd* pPane = GetDlgItem(AFX_IDW_PANE_FIRST);
    if (pPane == nullptr)
        return;
    CRect rect;
    GetClientRect(&rect);
    pPane->MoveWindow(&rect);
}

void CFrameWnd::OnSize(UINT nType, int, int)
{
    Default();
    if (nType != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnSetFocus(CWnd*)
{
    if (CWnd* pView = GetActiveView())
        pView->SetFocus();
    else
        Default();
}

// ---- Commands

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    CWnd* pView = GetActiveView();
    if (pView != nullptr && pView->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    return AfxGetApp() != nullptr && AfxGetApp()->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool bKey = WM_KEYFIRST <= pMsg->message && pMsg->message <= WM_KEYLAST;
    return bKey && m_hAccelTable != nullptr &&
           CallSystem([=, this] { return ::TranslateAcceleratorA(m_hWnd, m_hAccelTable, pMsg); });
}

void CFrameWnd::OnInitMenuPopup(CMenu* pPopup, UINT, BOOL bSysMenu)
{
    Default();
    if (!bSysMenu)
        AfxUpdateMenu(pPopup, this, m_bAutoMenuEnable);
}

LRESULT CFrameWnd::OnIdleUpdateCmdUI(WPARAM, LPARAM)
{
    UpdateDialogControls(this, FALSE);
    return 0;
}
