// Menus. A menu's items are told apart by command (MF_BYCOMMAND) or by place (MF_BYPOSITION); a
// submenu belongs to its menu.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/cstring.h"

class CWnd;
template <class T>
class CHandleMap;
template <class T>
class CTemporaryWrappers;

class CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)

public:
    CMenu() = default;
    // Destroys what it holds.
    ~CMenu() override;

    // ---- What an owner-drawn menu overrides; called when its window gets the message

    virtual void DrawItem(LPDRAWITEMSTRUCT pDraw);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT pMeasure);

    // ---- Handles

    // The object that is attached, or a temporary one that owns nothing.
    static CMenu* FromHandle(HMENU hMenu);
    static CMenu* FromHandlePermanent(HMENU hMenu);
    static void DeleteTempMap();
    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }
    BOOL Attach(HMENU hMenu);
    HMENU Detach();

    // ---- Life

    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // From the resources; FALSE if there is none of that name.
    BOOL LoadMenu(LPCSTR pszName);
    BOOL LoadMenu(UINT nID);
    BOOL DestroyMenu();
    // Where pExclude (screen coordinates) is not to be covered, null for anywhere. The command goes
    // to pWnd by WM_COMMAND, or with TPM_RETURNCMD comes back; 0 for none.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT pExclude = nullptr);

    // ---- One call of the system each

    BOOL AppendMenu(UINT nFlags, UINT_PTR nItem = 0, LPCSTR pszText = nullptr);
    UINT CheckMenuItem(UINT nItem, UINT nCheck);
    BOOL CheckMenuRadioItem(UINT nFirst, UINT nLast, UINT nItem, UINT nFlags);
    BOOL DeleteMenu(UINT nPosition, UINT nFlags);
    UINT EnableMenuItem(UINT nItem, UINT nEnable);
    UINT GetMenuItemCount() const;
    UINT GetMenuItemID(int nPosition) const;  // 0xFFFFFFFF for a submenu
    UINT GetMenuState(UINT nItem, UINT nFlags) const;
    int GetMenuString(UINT nItem, CString& strText, UINT nFlags) const;
    CMenu* GetSubMenu(int nPosition) const;
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem = 0, LPCSTR pszText = nullptr);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem = 0, LPCSTR pszText = nullptr);
    BOOL SetDefaultItem(UINT nItem, BOOL bByPosition = FALSE);

    HMENU m_hMenu = nullptr;

private:
    friend class CHandleMap<CMenu>;
    friend class CTemporaryWrappers<CMenu>;
    friend class CWnd;

    // The menu object with this item, in the popup that hWnd tracks or in its menu bar.
    static CMenu* FromItem(HWND hWnd, UINT nID);
    HMENU MapKey() const { return m_hMenu; }

    CMenu* m_pNextInMap = nullptr;
    bool m_bTemporary = false;
};
