// A window for popups that have no other to draw their items.
#pragma once

#include "platform/win/window.h"

class CNewMenu;

class CNewMenuTempHandler : public CWnd
{
    DECLARE_DYNAMIC(CNewMenuTempHandler)

public:
    // What is not about drawing goes on to hTarget; null for nobody.
    explicit CNewMenuTempHandler(HWND hTarget) : m_hTarget(hTarget) {}

    // As CMenu::TrackPopupMenu: the target gets the command.
    BOOL Track(CNewMenu& menu, UINT nFlags, int x, int y, LPCRECT pExclude);

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

private:
    HWND m_hTarget;
};
