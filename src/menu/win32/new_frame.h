// Windows whose menu bar is drawn by the menu code: any class of windows with this on it.
//
//   class CMainFrame : public CNewFrameWnd { ... };   // instead of CFrameWnd
#pragma once

#include <type_traits>

#include "menu/win32/new_menu.h"
#include "platform/win/dialog.h"
#include "platform/win/frame.h"

// Hands the messages about its menus' items on to the menu objects.
template <class T>
class CNewFrame : public T
{
public:
    using T::T;
    // The bar, attached when the window has one; the system's menu stays the window's.
    CNewMenu& GetNewMenu() { return m_menu; }
    // Draws the bar that the window has now; one that was there before is the system's again.
    void AttachBar()
    {
        m_menu.DetachMenu();
        m_menu.AttachMenu(::GetMenu(this->m_hWnd));
        if constexpr (std::is_base_of_v<CFrameWnd, T>)
            m_menu.SetAccelerators(this->m_hAccelTable);
        ::DrawMenuBar(this->m_hWnd);
    }
    // After a change of the style or of the bar's items.
    void RedrawBar()
    {
        m_menu.Synchronise();
        ::DrawMenuBar(this->m_hWnd);
    }

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        const HMENU hPopup = reinterpret_cast<HMENU>(wParam);
        switch (nMessage)
        {
            case WM_MEASUREITEM:
                if (CNewMenu* pMenu = MenuOf<MEASUREITEMSTRUCT>(lParam))
                    return pMenu->MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)), TRUE;
                break;
            case WM_DRAWITEM:
                if (CNewMenu* pMenu = MenuOf<DRAWITEMSTRUCT>(lParam))
                    return pMenu->DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam)), TRUE;
                break;
            case WM_MENUCHAR:
                if (const LRESULT lItem =
                        CNewMenu::FindKeyboardItem(LOWORD(wParam), reinterpret_cast<HMENU>(lParam)))
                    return lItem;
                break;
            case WM_INITMENUPOPUP:
            {
                // The handler may change the items.
                const LRESULT lResult = T::WindowProc(nMessage, wParam, lParam);
                if (CNewMenu* pMenu = MenuOfHandle(hPopup))
                    pMenu->OnInitMenuPopup();
                return lResult;
            }
            case WM_UNINITMENUPOPUP:
                if (CNewMenu* pMenu = MenuOfHandle(hPopup))
                    pMenu->OnUnInitMenuPopup();
                break;
            case WM_DESTROY:
                m_menu.DetachMenu();  // the window destroys its bar
                break;
            case WM_CREATE:
            {
                const LRESULT lResult = T::WindowProc(nMessage, wParam, lParam);
                if (lResult == 0 && this->m_hWnd != nullptr && ::GetMenu(this->m_hWnd) != nullptr)
                    AttachBar();
                return lResult;
            }
            default:
                break;
        }
        return T::WindowProc(nMessage, wParam, lParam);
    }

private:
    static CNewMenu* MenuOfHandle(HMENU hMenu)
    {
        return dynamic_cast<CNewMenu*>(CMenu::FromHandlePermanent(hMenu));
    }
    // Null for items of controls, and of menus that are not ours.
    template <class S>
    static CNewMenu* MenuOf(LPARAM lParam)
    {
        const auto* pItem = reinterpret_cast<const S*>(lParam);
        return pItem->CtlType == ODT_MENU ? CNewMenu::FromItemData(pItem->itemData) : nullptr;
    }

    CNewMenu m_menu;
};

using CNewFrameWnd = CNewFrame<CFrameWnd>;
using CNewDialog = CNewFrame<CDialog>;
