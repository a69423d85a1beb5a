// Handles and life of windows, and the thin operations.
#include "platform/win/window.h"

#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "platform/win/menu.h"
#include "platform/win/module.h"
#include "platform/win/system_call.h"
#include "platform/win/temporary_wrappers.h"
#include "platform/win/window_proc.h"

#include <utility>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

void (*g_pfnRevokeDropTarget)(HWND) = nullptr;

using CWindows = CTemporaryWrappers<CWnd>;

namespace
{
// For CClientDC, which is below windows and knows none.
[[maybe_unused]] const bool s_bHandleTold = []
{
    g_pfnWindowHandle = [](const CWnd* pWnd)
    {
        return pWnd->GetSafeHwnd();
    };
    return true;
}();

// A call that may bring messages to a procedure of ours: its exceptions come through. The window's
// object may be gone afterwards.
template <class F>
auto On(HWND hWnd, F call)
{
    ASSERT(::IsWindow(hWnd));
    return CallSystem([=] { return call(hWnd); });
}

HWND HandleOf(const CWnd* pWnd)
{
    return pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
}
}  // namespace

// ---- Handles

CWnd::~CWnd()
{
    if (m_bTemporary || m_hWnd == nullptr)
        return;
    GuardCallback(FALSE, [this] { return CWnd::DestroyWindow(); });
    if (m_hWnd != nullptr)  // a window of another thread, or no window any more
        Detach();
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    return CWindows::Find(hWnd, &CWnd::m_hWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    return CWindows::FindPermanent(hWnd);
}

void CWnd::DeleteTempMap()
{
    if (AfxMessageDepth() == 0)
        CWindows::Clear();
}

BOOL CWnd::Attach(HWND hWnd)
{
    ASSERT(m_hWnd == nullptr && FromHandlePermanent(hWnd) == nullptr);
    if (hWnd == nullptr)
        return FALSE;
    m_hWnd = hWnd;
    CHandleMap<CWnd>::Insert(this);
    return TRUE;
}

HWND CWnd::Detach()
{
    if (m_hWnd != nullptr)
        CHandleMap<CWnd>::Remove(this);
    return std::exchange(m_hWnd, nullptr);
}

// ---- Life

BOOL CWnd::Create(LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParent, UINT nID, CCreateContext* pContext)
{
    ASSERT(pParent != nullptr && (dwStyle & WS_POPUP) == 0);
    return CreateEx(0, pszClassName, pszWindowName, dwStyle | WS_CHILD, rect, pParent, nID,
                    pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParent, UINT nID, LPVOID pParam)
{
    return CreateEx(dwExStyle, pszClassName, pszWindowName, dwStyle, rect.left, rect.top,
                    WrapSub(rect.right, rect.left), WrapSub(rect.bottom, rect.top),
                    HandleOf(pParent), reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), pParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCSTR pszClassName, LPCSTR pszWindowName, DWORD dwStyle,
                    int x, int y, int nWidth, int nHeight, HWND hParent, HMENU nIDorMenu,
                    LPVOID pParam)
{
    ASSERT(m_hWnd == nullptr);
    CREATESTRUCTA cs = {};
    cs.lpCreateParams = pParam;
    cs.hInstance = AfxGetInstanceHandle();
    cs.hMenu = nIDorMenu;
    cs.hwndParent = hParent;
    cs.cy = nHeight;
    cs.cx = nWidth;
    cs.y = y;
    cs.x = x;
    cs.style = static_cast<LONG>(dwStyle);
    cs.lpszName = pszWindowName;
    cs.lpszClass = pszClassName;
    cs.dwExStyle = dwExStyle;
    if (!PreCreateWindow(cs))
        return FALSE;
    const CCreateHook hook(this);
    // The object may be gone when this comes back with null.
    return CallSystem(
        [&]
        {
            return ::CreateWindowExA(cs.dwExStyle, cs.lpszClass, cs.lpszName,
                                     static_cast<DWORD>(cs.style), cs.x, cs.y, cs.cx, cs.cy,
                                     cs.hwndParent, cs.hMenu, cs.hInstance,
                                     cs.lpCreateParams) != nullptr;
        });
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTA& cs)
{
    if (cs.lpszClass == nullptr)
    {
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW,
                                           ::LoadCursor(nullptr, IDC_ARROW));
    }
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

BOOL CWnd::DestroyWindow()
{
    const HWND hWnd = m_hWnd;
    return hWnd != nullptr && CallSystem([=] { return ::DestroyWindow(hWnd); });
}

// ---- Messages of the loop

BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd))
    {
        CWnd* pWnd = FromHandlePermanent(hWnd);
        if (pWnd != nullptr && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (hWnd == hWndStop)
            break;
    }
    return FALSE;
}

BOOL CWnd::IsDialogMessage(MSG* pMsg)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::IsDialogMessageA(hWnd, pMsg); });
}

void CWnd::SendMessageToDescendants(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    struct CCall
    {
        UINT nMessage;
        WPARAM wParam;
        LPARAM lParam;
        static BOOL CALLBACK Send(HWND hWnd, LPARAM lCall)
        {
            const auto& call = *reinterpret_cast<const CCall*>(lCall);
            ::SendMessageA(hWnd, call.nMessage, call.wParam, call.lParam);
            return TRUE;
        }
    } call = { nMessage, wParam, lParam };
    const auto lCall = reinterpret_cast<LPARAM>(&call);
    On(m_hWnd, [=](HWND hWnd) { ::EnumChildWindows(hWnd, CCall::Send, lCall); });
}

// ---- One call of the system each

void CWnd::ClientToScreen(LPPOINT pPoint) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::ClientToScreen(m_hWnd, pPoint);
}

void CWnd::ClientToScreen(LPRECT pRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(pRect), 2);
}

void CWnd::DrawMenuBar()
{
    ASSERT(::IsWindow(m_hWnd));
    ::DrawMenuBar(m_hWnd);
}

BOOL CWnd::EnableScrollBarCtrl(int nBar, BOOL bEnable)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::ShowScrollBar(hWnd, nBar, bEnable); });
}

BOOL CWnd::EnableWindow(BOOL bEnable)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::EnableWindow(hWnd, bEnable); });
}

void CWnd::GetClientRect(LPRECT pRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::GetClientRect(m_hWnd, pRect);
}

int CWnd::GetDlgCtrlID() const
{
    ASSERT(::IsWindow(m_hWnd));
    return ::GetDlgCtrlID(m_hWnd);
}

CWnd* CWnd::GetDlgItem(int nID) const
{
    ASSERT(::IsWindow(m_hWnd));
    return FromHandle(::GetDlgItem(m_hWnd, nID));
}

CWnd* CWnd::GetFocus()
{
    return FromHandle(::GetFocus());
}

CFont* CWnd::GetFont() const
{
    return On(m_hWnd,
              [=](HWND hWnd) {
                  return CFont::FromHandle(
                      reinterpret_cast<HFONT>(::SendMessageA(hWnd, WM_GETFONT, 0, 0)));
              });
}

CMenu* CWnd::GetMenu() const
{
    ASSERT(::IsWindow(m_hWnd));
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

CWnd* CWnd::GetOwner() const
{
    return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent();
}

CWnd* CWnd::GetParent() const
{
    ASSERT(::IsWindow(m_hWnd));
    return FromHandle(::GetParent(m_hWnd));
}

BOOL CWnd::GetScrollInfo(int nBar, SCROLLINFO* pInfo, UINT nMask)
{
    ASSERT(::IsWindow(m_hWnd));
    pInfo->cbSize = sizeof(*pInfo);
    pInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, pInfo);
}

DWORD CWnd::GetStyle() const
{
    ASSERT(::IsWindow(m_hWnd));
    return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE));
}

CWnd* CWnd::GetTopLevelParent() const
{
    HWND hWnd = m_hWnd;
    while (const HWND hParent = ::GetParent(hWnd))
        hWnd = hParent;
    return FromHandle(hWnd);
}

void CWnd::GetWindowRect(LPRECT pRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::GetWindowRect(m_hWnd, pRect);
}

int CWnd::GetWindowText(LPSTR pszText, int nMost) const
{
    return On(m_hWnd, [=](HWND hWnd) { return ::GetWindowTextA(hWnd, pszText, nMost); });
}

void CWnd::GetWindowText(CString& strText) const
{
    const int nLength = GetWindowTextLength();
    const int nGot = GetWindowText(strText.GetBuffer(nLength), nLength + 1);
    strText.ReleaseBuffer(nGot);
}

int CWnd::GetWindowTextLength() const
{
    return On(m_hWnd, [=](HWND hWnd) { return ::GetWindowTextLengthA(hWnd); });
}

void CWnd::Invalidate(BOOL bErase)
{
    InvalidateRect(nullptr, bErase);
}

void CWnd::InvalidateRect(LPCRECT pRect, BOOL bErase)
{
    ASSERT(::IsWindow(m_hWnd));
    ::InvalidateRect(m_hWnd, pRect, bErase);
}

BOOL CWnd::IsChild(const CWnd* pWnd) const
{
    ASSERT(::IsWindow(m_hWnd));
    return ::IsChild(m_hWnd, HandleOf(pWnd));
}

BOOL CWnd::IsWindowEnabled() const
{
    ASSERT(::IsWindow(m_hWnd));
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::IsWindowVisible() const
{
    ASSERT(::IsWindow(m_hWnd));
    return ::IsWindowVisible(m_hWnd);
}

int CWnd::MessageBox(LPCSTR pszText, LPCSTR pszCaption, UINT nType)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::MessageBoxA(hWnd, pszText, pszCaption, nType); });
}

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    On(m_hWnd, [=](HWND hWnd) { ::MoveWindow(hWnd, x, y, nWidth, nHeight, bRepaint); });
}

void CWnd::MoveWindow(LPCRECT pRect, BOOL bRepaint)
{
    MoveWindow(pRect->left, pRect->top, pRect->right - pRect->left, pRect->bottom - pRect->top,
               bRepaint);
}

BOOL CWnd::PostMessage(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    ASSERT(::IsWindow(m_hWnd));
    return ::PostMessageA(m_hWnd, nMessage, wParam, lParam);
}

BOOL CWnd::RedrawWindow(LPCRECT pRect, HRGN hRegion, UINT nFlags)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::RedrawWindow(hWnd, pRect, hRegion, nFlags); });
}

void CWnd::ScreenToClient(LPPOINT pPoint) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::ScreenToClient(m_hWnd, pPoint);
}

void CWnd::ScreenToClient(LPRECT pRect) const
{
    ASSERT(::IsWindow(m_hWnd));
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(pRect), 2);
}

LRESULT CWnd::SendMessage(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::SendMessageA(hWnd, nMessage, wParam, lParam); });
}

CWnd* CWnd::SetFocus()
{
    return On(m_hWnd, [=](HWND hWnd) { return FromHandle(::SetFocus(hWnd)); });
}

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    const HGDIOBJ hFont = pFont != nullptr ? pFont->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), bRedraw);
}

BOOL CWnd::SetForegroundWindow()
{
    return On(m_hWnd, [=](HWND hWnd) { return ::SetForegroundWindow(hWnd); });
}

BOOL CWnd::SetMenu(CMenu* pMenu)
{
    const HMENU hMenu = pMenu != nullptr ? pMenu->GetSafeHmenu() : nullptr;
    return On(m_hWnd, [=](HWND hWnd) { return ::SetMenu(hWnd, hMenu); });
}

void CWnd::SetOwner(CWnd* pOwner)
{
    m_hWndOwner = HandleOf(pOwner);
}

BOOL CWnd::SetScrollInfo(int nBar, SCROLLINFO* pInfo, BOOL bRedraw)
{
    pInfo->cbSize = sizeof(*pInfo);
    return On(m_hWnd,
              [=](HWND hWnd) { return (::SetScrollInfo(hWnd, nBar, pInfo, bRedraw), TRUE); });
}

void CWnd::SetScrollRange(int nBar, int nMin, int nMax, BOOL bRedraw)
{
    On(m_hWnd, [=](HWND hWnd) { ::SetScrollRange(hWnd, nBar, nMin, nMax, bRedraw); });
}

BOOL CWnd::SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    const HWND hAfter = HandleOf(pInsertAfter);
    return On(m_hWnd,
              [=](HWND hWnd) { return ::SetWindowPos(hWnd, hAfter, x, y, cx, cy, nFlags); });
}

void CWnd::SetWindowText(LPCSTR pszText)
{
    On(m_hWnd, [=](HWND hWnd) { ::SetWindowTextA(hWnd, pszText); });
}

BOOL CWnd::ShowWindow(int nShow)
{
    return On(m_hWnd, [=](HWND hWnd) { return ::ShowWindow(hWnd, nShow); });
}

void CWnd::UpdateWindow()
{
    On(m_hWnd, [=](HWND hWnd) { ::UpdateWindow(hWnd); });
}

void CWnd::ValidateRect(LPCRECT pRect)
{
    ASSERT(::IsWindow(m_hWnd));
    ::ValidateRect(m_hWnd, pRect);
}
