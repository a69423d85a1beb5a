// Showing the state of commands.
#include "platform/win/cmd_ui.h"

#include "platform/win/menu.h"
#include "platform/win/system_call.h"

namespace
{
constexpr UINT s_nFirstSystemCommand = 0xF000;

bool Is(HWND hWnd, LRESULT nDialogCodes)
{
    return (CallSystem([=] { return ::SendMessageA(hWnd, WM_GETDLGCODE, 0, 0); }) & nDialogCodes) !=
           0;
}
}  // namespace

void CMenuCmdUI::Enable(BOOL bOn)
{
    CCmdUI::Enable(bOn);
    m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_GRAYED));
}

void CMenuCmdUI::SetCheck(int nCheck)
{
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
}

void CMenuCmdUI::SetRadio(BOOL bOn)
{
    if (bOn)
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
    else
        SetCheck(0);
}

void CMenuCmdUI::SetText(LPCSTR pszText)
{
    const UINT nKept = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) &
                       ~static_cast<UINT>(MF_BITMAP | MF_OWNERDRAW | MF_SEPARATOR);
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | nKept, m_nID, pszText);
}

void AfxUpdateMenu(CMenu* pPopup, CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    CMenuCmdUI state(pPopup);
    // A handler may change the menu's length.
    for (; state.m_nIndex < pPopup->GetMenuItemCount(); ++state.m_nIndex)
    {
        state.m_nIndexMax = pPopup->GetMenuItemCount();
        state.m_nID = pPopup->GetMenuItemID(static_cast<int>(state.m_nIndex));
        state.DoUpdate(pTarget, bDisableIfNoHandler && state.m_nID < s_nFirstSystemCommand);
    }
}

void CWindowCmdUI::Enable(BOOL bOn)
{
    CCmdUI::Enable(bOn);
    if (!bOn && ::GetFocus() == m_hWnd)  // the keyboard must not stay in a window without input
    {
        CallSystem([this] { ::SendMessageA(::GetParent(m_hWnd), WM_NEXTDLGCTL, 0, FALSE); });
    }
    CallSystem([=, this] { return ::EnableWindow(m_hWnd, bOn); });
}

void CWindowCmdUI::SetCheck(int nCheck)
{
    if (Is(m_hWnd, DLGC_BUTTON))
    {
        CallSystem([=, this]
                   { ::SendMessageA(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(nCheck), 0); });
    }
}

// The same text again would only flicker.
void CWindowCmdUI::SetText(LPCSTR pszText)
{
    CWnd* pWnd = CWnd::FromHandle(m_hWnd);
    CString strShown;
    pWnd->GetWindowText(strShown);
    if (strShown.Compare(pszText) != 0)
        pWnd->SetWindowText(pszText);
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    ASSERT(::IsWindow(m_hWnd));
    for (HWND hWnd = ::GetTopWindow(m_hWnd); hWnd != nullptr; hWnd = ::GetWindow(hWnd, GW_HWNDNEXT))
    {
        CWindowCmdUI state(hWnd);
        state.m_nID = static_cast<WORD>(::GetDlgCtrlID(hWnd));
        state.DoUpdate(pTarget,
                       bDisableIfNoHandler && Is(hWnd, DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON));
    }
}
