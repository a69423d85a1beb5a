// The hook, and the procedure before that of a menu's window.
#include "menu/win32/menu_hook.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "menu/item_layout.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_menu.h"
#include "platform/base/exception.h"
#include "platform/win/system_call.h"

using CMenuHookData = CNewMenuHook::CMenuHookData;

namespace
{
std::vector<std::unique_ptr<CMenuHookData>>& OpenWindows()
{
    static std::vector<std::unique_ptr<CMenuHookData>> s_windows;
    return s_windows;
}
std::vector<std::unique_ptr<CNewMenuThreadHook>>& ThreadHooks()
{
    static std::vector<std::unique_ptr<CNewMenuThreadHook>> s_hooks;
    return s_hooks;
}

// From the library's load to its end. What it uses is made before it, and so ends later.
struct CLoaded
{
    CLoaded()
    {
        LoadMenuStyles();
        OpenWindows();
        ThreadHooks();
        CNewMenuThreadHook::TryAtLoad();
    }
    ~CLoaded() { CNewMenuThreadHook::EndAll(); }
} const s_loaded;

bool IsMenuWindow(HWND hWnd)
{
    char szClass[16] = "";
    return ::GetClassNameA(hWnd, szClass, sizeof szClass) > 0 &&
           std::strcmp(szClass, "#32768") == 0;
}

CRect WindowRect(HWND hWnd)
{
    CRect rect;
    ::GetWindowRect(hWnd, &rect);
    return rect;
}

CRect ClientInWindow(HWND hWnd)
{
    CRect client;
    ::GetClientRect(hWnd, &client);
    ::MapWindowPoints(hWnd, nullptr, reinterpret_cast<POINT*>(&client), 2);
    const CRect window = WindowRect(hWnd);
    client.OffsetRect(-window.left, -window.top);
    return client;
}

LRESULT CallOld(const CMenuHookData& data, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcW(data.m_pfnOld, data.m_hWnd, nMessage, wParam, lParam);
}
}  // namespace

// ---- What was on the screen

void CScreenPicture::Take(const CRect& window)
{
    Drop();
    CClientDC screen(nullptr);
    m_size = window.Size();
    auto pDC = std::make_unique<CDC>();
    if (!pDC->CreateCompatibleDC(&screen) ||
        !m_bitmap.CreateCompatibleBitmap(&screen, m_size.cx, m_size.cy))
        return;
    m_pDC = std::move(pDC);
    m_hOld = ::SelectObject(*m_pDC, m_bitmap);
    m_pDC->BitBlt(m_size.cx - SHADOW_WIDTH, 0, SHADOW_WIDTH, m_size.cy, &screen,
                  window.right - SHADOW_WIDTH, window.top, SRCCOPY);
    m_pDC->BitBlt(0, m_size.cy - SHADOW_WIDTH, m_size.cx, SHADOW_WIDTH, &screen, window.left,
                  window.bottom - SHADOW_WIDTH, SRCCOPY);
}

void CScreenPicture::Drop()
{
    if (m_pDC != nullptr)
        ::SelectObject(*m_pDC, m_hOld);
    m_pDC.reset();
    m_bitmap.DeleteObject();
}

COLORREF CScreenPicture::Pixel(int x, int y) const
{
    return m_pDC != nullptr ? m_pDC->GetPixel(x, y) : GetMenuSystem().Colour(COLOR_BTNFACE);
}

void CScreenPicture::Restore(CDC* pDC) const
{
    if (m_pDC == nullptr)
        return;
    pDC->BitBlt(m_size.cx - SHADOW_WIDTH, 0, SHADOW_WIDTH, m_size.cy, m_pDC.get(),
                m_size.cx - SHADOW_WIDTH, 0, SRCCOPY);
    pDC->BitBlt(0, m_size.cy - SHADOW_WIDTH, m_size.cx, SHADOW_WIDTH, m_pDC.get(), 0,
                m_size.cy - SHADOW_WIDTH, SRCCOPY);
}

// ---- The thread's hook

CNewMenuThreadHook::CNewMenuThreadHook()
    : m_nThread(::GetCurrentThreadId()),
      m_hHook(::SetWindowsHookExA(WH_CALLWNDPROC, HookProc, nullptr, m_nThread))
{
}

CNewMenuThreadHook::~CNewMenuThreadHook()
{
    if (m_hHook != nullptr)
        ::UnhookWindowsHookEx(m_hHook);
}

bool CNewMenuThreadHook::Set()
{
    auto& hooks = ThreadHooks();
    if (std::ranges::any_of(
            hooks, [](const auto& pHook) { return pHook->m_nThread == ::GetCurrentThreadId(); }))
        return true;
    std::unique_ptr<CNewMenuThreadHook> pHook(new CNewMenuThreadHook);
    if (pHook->m_hHook == nullptr)
        return false;
    hooks.push_back(std::move(pHook));
    return true;
}

void CNewMenuThreadHook::Need()
{
    if (!Set())
        AfxThrowMemoryException();
}

void CNewMenuThreadHook::TryAtLoad()
{
    Set();
}

void CNewMenuThreadHook::EndAll()
{
    CNewMenuHook::TakeOutAll();
    ThreadHooks().clear();
}

LRESULT CALLBACK CNewMenuThreadHook::HookProc(int nCode, WPARAM wParam, LPARAM lParam)
{
    if (nCode == HC_ACTION)
    {
        GuardCallback(
            0,
            [=] { return CNewMenuHook::OnHooked(*reinterpret_cast<const CWPSTRUCT*>(lParam)), 0; });
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

// ---- Windows of menus

// Every message that is sent in the thread comes by here.
void CNewMenuHook::OnHooked(const CWPSTRUCT& message)
{
    switch (message.message)
    {
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
            RefreshMenuSystem();
            break;
        case WM_NCCALCSIZE:
            TakeOver(message.hwnd);
            break;
        case WM_WINDOWPOSCHANGING:
            if ((reinterpret_cast<const WINDOWPOS*>(message.lParam)->flags & SWP_HIDEWINDOW) == 0)
                TakeOver(message.hwnd);
            break;
        case WM_SHOWWINDOW:
            if (message.wParam != FALSE)
                TakeOver(message.hwnd);
            break;
        default:
            break;
    }
}

// A window tells its menu from some point of its making on; until then it is left alone.
void CNewMenuHook::TakeOver(HWND hWnd)
{
    if (!IsMenuWindow(hWnd) || Find(hWnd) != nullptr)
        return;
    const auto hMenu = reinterpret_cast<HMENU>(::SendMessageW(hWnd, GET_MENU, 0, 0));
    if (hMenu == nullptr)
        return;
    const bool bOwn = dynamic_cast<CNewMenu*>(CMenu::FromHandlePermanent(hMenu)) != nullptr;
    if (!bOwn && !GetMenuSettings().m_bAnyMenu)
        return;
    GetMenuSystem();  // may have changed: the style's colours and sizes come with it
    auto pData = std::make_unique<CMenuHookData>();
    pData->m_hWnd = hWnd;
    pData->m_hMenu = hMenu;
    pData->m_pTheme = g_pMenuTheme;
    pData->m_nAtom = ::GlobalAddAtomA(OLD_PROCEDURE);
    pData->m_pfnOld = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
    if (!::SetPropA(hWnd, MAKEINTATOM(pData->m_nAtom), reinterpret_cast<HANDLE>(pData->m_pfnOld)))
    {
        ::GlobalDeleteAtom(pData->m_nAtom);
        return;
    }
    CMenuHookData& data = *pData;
    OpenWindows().push_back(std::move(pData));
    ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MenuProc));
    data.m_pTheme->SetUpWindow(data);
}

CMenuHookData* CNewMenuHook::Find(HWND hWnd)
{
    for (const auto& pData : OpenWindows())
    {
        if (pData->m_hWnd == hWnd)
            return pData.get();
    }
    return nullptr;
}

void CNewMenuHook::TakeOut(HWND hWnd, bool bAtEnd)
{
    CMenuHookData* pData = Find(hWnd);
    if (pData == nullptr)
        return;
    // Somebody who has come to stand before us goes on calling us: then we stay until the end.
    const bool bFirst =
        reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC)) == &MenuProc;
    if (!bFirst && !bAtEnd)
        return;
    if (bFirst)
        ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pData->m_pfnOld));
    pData->m_pTheme->TakeDownWindow(*pData);
    ::RemovePropA(hWnd, MAKEINTATOM(pData->m_nAtom));
    ::GlobalDeleteAtom(pData->m_nAtom);
    std::erase_if(OpenWindows(), [=](const auto& p) { return p->m_hWnd == hWnd; });
}

void CNewMenuHook::TakeOutAll()
{
    std::vector<HWND> windows;
    for (const auto& pData : OpenWindows())
        windows.push_back(pData->m_hWnd);
    for (const HWND hWnd : windows)
        TakeOut(hWnd);
}

bool CNewMenuHook::IsMouseWhereKeyWas(CPoint point)
{
    return std::ranges::any_of(OpenWindows(),
                               [=](const auto& pData) { return pData->m_keyPoint == point; });
}

void CNewMenuHook::MakeLayered(HWND hWnd)
{
    const LONG nExStyle = ::GetWindowLongW(hWnd, GWL_EXSTYLE);
    ::SetWindowLongW(hWnd, GWL_EXSTYLE, nExStyle | WS_EX_LAYERED);
    ::SetLayeredWindowAttributes(hWnd, 0, GetMenuSettings().m_nOpacity, LWA_ALPHA);
}

// ---- Messages

namespace
{
// The system draws between, kept inside of the frame.
void OnNcPaint(CMenuHookData& data)
{
    CMenuTheme& theme = *data.m_pTheme;
    const HDC hDC = ::GetWindowDC(data.m_hWnd);
    data.m_rect = WindowRect(data.m_hWnd);
    theme.PaintFrame(CDC::FromHandle(hDC), data);
    CRect inside = data.m_rect;
    theme.CalcClient(&inside);
    const HRGN hRegion = ::CreateRectRgnIndirect(&inside);
    CallOld(data, WM_NCPAINT, reinterpret_cast<WPARAM>(hRegion), 0);
    ::DeleteObject(hRegion);
    theme.PaintFrame(CDC::FromHandle(hDC), data);
    ::ReleaseDC(data.m_hWnd, hDC);
}

LRESULT OnEraseBackground(CMenuHookData& data, HDC hDC)
{
    if (!std::exchange(data.m_bErased, true))
        ::SendMessageW(data.m_hWnd, WM_NCPAINT, 1, 0);
    CRect client;
    ::GetClientRect(data.m_hWnd, &client);
    CNewMenu* pMenu = dynamic_cast<CNewMenu*>(CMenu::FromHandlePermanent(data.m_hMenu));
    if (pMenu == nullptr || !pMenu->EraseBackground(CDC::FromHandle(hDC), client))
        data.m_pTheme->EraseBackground(CDC::FromHandle(hDC), client);
    return TRUE;
}

// FALSE where the window has gone elsewhere: it is another menu's now.
bool OnPlaced(CMenuHookData& data, const WINDOWPOS& position)
{
    if ((position.flags & SWP_NOMOVE) != 0)
        return true;
    const CPoint place(position.x, position.y);
    const bool bSized = (position.flags & SWP_NOSIZE) == 0;
    if (!data.m_bPlaced)
    {
        data.m_bPlaced = true;
        data.m_rect = bSized ? CRect(place, CSize(position.cx, position.cy))
                             : CRect(place, WindowRect(data.m_hWnd).Size());
        if (data.m_pTheme->HasFrame() && !GetMenuSystem().m_bDropShadow)
            data.m_screen.Take(data.m_rect);
        return true;
    }
    if (place == data.m_rect.TopLeft())
        return true;
    if (bSized)
        return false;
    data.m_rect.MoveToXY(place.x, place.y);
    data.m_screen.Drop();
    return true;
}

// Frame, ground, and what the system draws on it.
void OnPrint(CMenuHookData& data, HDC hDC)
{
    data.m_rect = WindowRect(data.m_hWnd);
    CDC* pDC = CDC::FromHandle(hDC);
    data.m_pTheme->PaintFrame(pDC, data);
    const CRect client = ClientInWindow(data.m_hWnd);
    const int nSaved = ::SaveDC(hDC);
    ::IntersectClipRect(hDC, client.left, client.top, client.right, client.bottom);
    ::OffsetViewportOrgEx(hDC, client.left, client.top, nullptr);
    OnEraseBackground(data, hDC);
    CallOld(data, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hDC), PRF_CLIENT);
    ::RestoreDC(hDC, nSaved);
}
}  // namespace

LRESULT CALLBACK CNewMenuHook::MenuProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    CMenuHookData* pData = Find(hWnd);
    if (pData == nullptr)
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    return GuardCallback<LRESULT>(0, [=] { return OnMessage(*pData, nMessage, wParam, lParam); });
}

// The record may be gone behind TakeOut.
LRESULT CNewMenuHook::OnMessage(CMenuHookData& data, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    CMenuTheme& theme = *data.m_pTheme;
    const HWND hWnd = data.m_hWnd;
    const WNDPROC pfnOld = data.m_pfnOld;
    auto* pPosition = reinterpret_cast<WINDOWPOS*>(lParam);
    switch (nMessage)
    {
        case WM_NCCALCSIZE:
            if (!theme.HasFrame())
                break;
            theme.CalcClient(reinterpret_cast<RECT*>(lParam));  // the first field of either form
            return 0;
        case WM_ERASEBKGND:
            return OnEraseBackground(data, reinterpret_cast<HDC>(wParam));
        case WM_NCPAINT:
            if (!theme.HasFrame())
                break;
            OnNcPaint(data);
            return 0;
        case WM_WINDOWPOSCHANGING:
            theme.OnWindowPosition(pPosition);
            [[fallthrough]];
        case WM_WINDOWPOSCHANGED:
            if (!OnPlaced(data, *pPosition))
                TakeOut(hWnd);
            break;
        case WM_SHOWWINDOW:
            if (wParam == FALSE)
                TakeOut(hWnd);
            break;
        case WM_NCDESTROY:
            TakeOut(hWnd, true);
            break;
        case WM_KEYDOWN:
            data.m_bEscape = wParam == VK_ESCAPE;
            ::GetCursorPos(&data.m_keyPoint);
            break;
        case WM_TIMER:
            if (wParam != LAYER_TIMER)
                break;
            if ((::GetWindowLongW(hWnd, GWL_EXSTYLE) & WS_EX_LAYERED) == 0)
                MakeLayered(hWnd);
            return 0;
        case WM_PRINT:
            if (!theme.HasFrame())
                break;
            OnPrint(data, reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            break;
    }
    return ::CallWindowProcW(pfnOld, hWnd, nMessage, wParam, lParam);
}
