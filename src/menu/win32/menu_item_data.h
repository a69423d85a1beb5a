// Records of items: what a menu object keeps of each.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <memory>
#include <string>

#include "menu/menu_colours.h"
#include "menu/win32/menu_icons.h"
#include "platform/base/cstring.h"

class CNewMenu;

class CNewMenuItemData : public CObject
{
    DECLARE_DYNAMIC(CNewMenuItemData)

public:
    explicit CNewMenuItemData(CNewMenu* pMenu);
    ~CNewMenuItemData() override;

    // With mnemonic, and a shortcut behind a tab.
    void SetText(const std::wstring& text);
    const std::wstring& GetWideText() const { return m_wideText; }

    // What the system's item has as its data. It begins with MSAAMENUINFO, by which screen readers
    // find the name of an item that the system does not draw.
    ULONG_PTR GetMenuData() const;
    // Null for data that is not ours.
    static CNewMenuItemData* FromMenuData(ULONG_PTR nData);

    CString m_strText;       // in the system's code page
    UINT m_nTitleFlags = 0;  // TITLE_
    UINT m_nFlags = 0;       // MF_
    UINT m_nID = 0;          // of the command
    std::shared_ptr<CNewMenuIcons> m_pIcons;
    int m_nIcon = -1;            // index of the first image in m_pIcons; -1 for none
    void* m_pContext = nullptr;  // the application's
    CNewMenu* m_pMenu;           // not owned; has this record

private:
    struct CLink
    {
        MSAAMENUINFO accessible;
        CNewMenuItemData* pItem;
    };
    void Describe();

    std::wstring m_wideText;
    CLink m_link = {};
};

// A heading: colours that are left open come from the system.
class CNewMenuItemDataTitle : public CNewMenuItemData
{
    DECLARE_DYNAMIC(CNewMenuItemDataTitle)

public:
    using CNewMenuItemData::CNewMenuItemData;

    COLORREF m_crText = NO_TITLE_COLOUR;
    COLORREF m_crStart = NO_TITLE_COLOUR;  // of the gradient, or the whole
    COLORREF m_crEnd = NO_TITLE_COLOUR;
    CFont m_font;  // none: that of all titles
};
