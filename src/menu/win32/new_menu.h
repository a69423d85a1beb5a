// Menus that draw their items themselves, in one of twelve styles.
//
//   CNewMenu menu;
//   if (menu.LoadMenu(IDR_POPUP))
//       if (CNewMenu* pPopup = menu.GetNewSubMenu(0))
//       {
//           pPopup->LoadToolBar(IDR_TOOLBAR);  // icons for the commands that it has
//           pPopup->TrackPopupMenu(0, x, y, this);
//       }
//   CNewMenu::SetStyle(8);                     // from the next opening on
//
// - A menu object owns the system's menu with all its submenus, and a record of each item. Texts,
//   check marks and states are those of the system's menu: what changes there is shown.
// - Items are drawn by the window that the menu is tracked for, or by one of the menu's own where
//   that is no object of the class library. For a bar see CNewFrame.
// - The settings hold for all menus of the process, on one thread.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "menu/menu_settings.h"
#include "menu/menu_style.h"
#include "menu/title_flags.h"
#include "platform/base/geometry.h"
#include "platform/win/menu.h"

class CBitmap;
class CDC;
class CNewMenuIcons;
class CNewMenuItemData;
class CNewMenuItemDataTitle;
struct CItemView;
struct CMenuLook;

class CNewMenu : public CMenu
{
    DECLARE_DYNCREATE(CNewMenu)

public:
    // CMemoryException if the system has no hook left for the windows of menus.
    explicit CNewMenu(HMENU hParent = nullptr);
    ~CNewMenu() override;

    // ---- What may be overridden

    void DrawItem(LPDRAWITEMSTRUCT pDraw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT pMeasure) override;
    // FALSE if there is no such menu in the resources.
    virtual BOOL LoadMenu(HINSTANCE hInstance, UINT nID);
    virtual BOOL LoadMenu(UINT nID);
    virtual BOOL LoadMenu(LPCSTR pszName);
    // Owns hMenu, as a bar, and its submenus from now on.
    virtual BOOL AttachMenu(HMENU hMenu);
    virtual BOOL DestroyMenu();
    virtual void DrawTitle(LPDRAWITEMSTRUCT pDraw);
    // Behind the items of the open popup; FALSE leaves it to the style.
    virtual BOOL EraseBackground(CDC* pDC, const CRect& client);
    // The popup opens, its items are as they will be shown; it has closed.
    virtual void OnInitMenuPopup();
    virtual void OnUnInitMenuPopup();

    // ---- Operations

    // Gives back the menu as the system draws it, owned by nobody here.
    HMENU DetachMenu();
    // The object of a submenu; null if there is none at this place.
    CNewMenu* GetNewSubMenu(int nPosition) const;
    // Icons from a toolbar of the resources, for the items of this menu and its submenus that have
    // its commands. FALSE, and no icons, if there is no such toolbar.
    BOOL LoadToolBar(UINT nID);
    BOOL LoadToolBar(LPCSTR pszName);
    // Icons from somewhere else: see CNewMenuBitmaps.
    void SetIcons(const std::shared_ptr<CNewMenuIcons>& pIcons);
    // Where the text of an item names no shortcut, that of its command in the table is shown. Of
    // this menu and its submenus; not owned.
    void SetAccelerators(HACCEL hAccelerators);
    // A heading before the item at nPosition, or at the end for -1; nFlags are TITLE_. The record
    // is the menu's; null on failure.
    CNewMenuItemDataTitle* InsertTitle(int nPosition, const std::wstring& text, UINT nFlags);
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT pExclude = nullptr);
    // Makes records of what has been added, changed or taken away by other means, and has items
    // measured again whose style is another now. A popup that opens is kept so by itself.
    void Synchronise();
    CNewMenuItemData* FindItem(UINT nID) const;

    // The menu object that an owner-draw message is about, null if it is not one of ours.
    static CNewMenu* FromItemData(ULONG_PTR nData);
    // The answer to WM_MENUCHAR: the item with this mnemonic; 0 if there is none.
    static LRESULT FindKeyboardItem(UINT nChar, HMENU hMenu);

    // ---- The process; setters give the old value

    static DWORD SetStyle(DWORD nId);
    static DWORD GetStyle();
    static BOOL SetDarkenedIcons(BOOL bOn);
    static BOOL GetDarkenedIcons();
    static int SetDarkeningAmount(int nAmount);
    static int GetDarkeningAmount();
    static BOOL SetDisabledSelectable(BOOL bOn);
    static BOOL GetDisabledSelectable();
    static BOOL SetShortcutTexts(BOOL bOn);
    static BOOL GetShortcutTexts();
    static BYTE SetOpacity(BYTE nOpacity);
    static BYTE GetOpacity();
    static BOOL SetAnyMenu(BOOL bOn);
    static BOOL GetAnyMenu();

    // ---- What styles are made of; MeasureItem and DrawItem go on to those of the style in force

    void MeasureFlatItem(LPMEASUREITEMSTRUCT pMeasure);
    void MeasurePlainItem(LPMEASUREITEMSTRUCT pMeasure);
    void MeasureShadedItem(LPMEASUREITEMSTRUCT pMeasure);
    void DrawRaised(LPDRAWITEMSTRUCT pDraw);
    void DrawFlat(LPDRAWITEMSTRUCT pDraw);
    void DrawTextOnly(LPDRAWITEMSTRUCT pDraw);
    void DrawShaded(LPDRAWITEMSTRUCT pDraw);
    void DrawGradient(LPDRAWITEMSTRUCT pDraw);
    void DrawTitleItem(LPDRAWITEMSTRUCT pDraw);

private:
    using Items = std::vector<std::unique_ptr<CNewMenuItemData>>;
    using DrawFunction = void (*)(CDC*, const CItemView&, const CMenuLook&);

    void SynchroniseItem(UINT nPosition, Items& old, bool bMeasure);
    void SynchroniseSubMenus();
    void ReleaseSubMenus();
    void ForgetItems(bool bGiveBack);
    void DrawBy(LPDRAWITEMSTRUCT pDraw, DrawFunction draw);
    void MeasureBy(LPMEASUREITEMSTRUCT pMeasure, EMeasureStyle style);
    int FindPosition(const CNewMenuItemData& item) const;
    bool IsDefault(const CNewMenuItemData& item) const;
    void CountOpen(int nMore);
    void RedrawOfBar();

    Items m_items;
    std::vector<HMENU> m_subMenus;     // each with an object of its own, owned
    HWND m_hWndDrawn = nullptr;        // that last drew the menu
    HMENU m_hParent;                   // null for a top menu
    BOOL m_bPopup = TRUE;              // a bar is none
    DRAWITEMSTRUCT m_drawn = {};       // the item that was drawn last, and where
    int m_nOpenSubMenus = 0;           // within one another
    HACCEL m_hAccelerators = nullptr;  // of the owning bar; not owned
    int m_nIconWidth;
    int m_nIconHeight;
    UINT m_nLook = 0;  // that items have been measured for
};
