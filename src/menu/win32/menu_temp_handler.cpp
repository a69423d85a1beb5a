// Draws a popup's items in the place of a window that cannot.
#include "menu/win32/menu_temp_handler.h"

#include "menu/win32/new_menu.h"
#include "platform/base/exception.h"

IMPLEMENT_DYNAMIC(CNewMenuTempHandler, CWnd)

BOOL CNewMenuTempHandler::Track(CNewMenu& menu, UINT nFlags, int x, int y, LPCRECT pExclude)
{
    if (!CreateEx(WS_EX_TOOLWINDOW, nullptr, "", WS_POPUP, 0, 0, 0, 0, m_hTarget, nullptr))
        AfxThrowResourceException();
    // A command that is posted would come to this window when it is gone.
    const BOOL nCommand = menu.CMenu::TrackPopupMenu(nFlags | TPM_RETURNCMD, x, y, this, pExclude);
    DestroyWindow();
    if ((nFlags & TPM_RETURNCMD) != 0)
        return nCommand;
    if (nCommand != 0 && (nFlags & TPM_NONOTIFY) == 0 && m_hTarget != nullptr)
        ::PostMessageA(m_hTarget, WM_COMMAND, static_cast<WPARAM>(nCommand), 0);
    return TRUE;
}

LRESULT CNewMenuTempHandler::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    switch (nMessage)
    {
        case WM_ENTERIDLE:
        case WM_ENTERMENULOOP:
        case WM_EXITMENULOOP:
        case WM_INITMENU:
        case WM_INITMENUPOPUP:
        case WM_MENUSELECT:
        case WM_UNINITMENUPOPUP:
            return m_hTarget != nullptr ? ::SendMessageA(m_hTarget, nMessage, wParam, lParam) : 0;
        case WM_MENUCHAR:
            return CNewMenu::FindKeyboardItem(LOWORD(wParam), reinterpret_cast<HMENU>(lParam));
        default:
            return CWnd::WindowProc(nMessage, wParam, lParam);
    }
}
