// What shows commands: items of menus, and child windows such as buttons and a status line.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/win/window.h"

// The item at m_nIndex of a menu.
class CMenuCmdUI : public CCmdUI
{
public:
    explicit CMenuCmdUI(CMenu* pMenu) : m_pMenu(pMenu) {}

    void Enable(BOOL bOn = TRUE) override;
    void SetCheck(int nCheck = 1) override;
    void SetRadio(BOOL bOn = TRUE) override;
    void SetText(LPCSTR pszText) override;

    CMenu* m_pMenu;  // not owned
};

// A child window whose identifier is the command.
class CWindowCmdUI : public CCmdUI
{
public:
    explicit CWindowCmdUI(HWND hWnd) : m_hWnd(hWnd) {}

    void Enable(BOOL bOn = TRUE) override;
    void SetCheck(int nCheck = 1) override;
    void SetText(LPCSTR pszText) override;

    HWND m_hWnd;
};

// Asks for each item of a popup how it is to be shown. Items of submenus are asked when those open.
void AfxUpdateMenu(CMenu* pPopup, CCmdTarget* pTarget, BOOL bDisableIfNoHandler);
