// Draws items and titles on any device context: what there is to be seen, and the system that it is
// drawn for, are values.
#pragma once

#include <string>

#include "menu/item_layout.h"
#include "menu/menu_colours.h"
#include "menu/menu_settings.h"
#include "platform/gdi/dc.h"

class CNewMenuIcons;

// What there is to be seen of an item.
struct CItemView
{
    CRect m_rect;
    std::wstring m_text;  // with mnemonic, and a shortcut behind the last tab
    CSize m_iconSize = DEFAULT_ICON_SIZE;
    const CNewMenuIcons* m_pIcons = nullptr;  // null: without an icon
    int m_nIcon = -1;
    UINT m_nState = 0;  // ODS_
    bool m_bBar = false;
    bool m_bOpen = false;  // of a bar, and its popup is open
    bool m_bSeparator = false;
    bool m_bRightJustify = false;
    bool m_bRadio = false;      // checked as one of several
    bool m_bFromMouse = false;  // it is the mouse that has selected it
};

// What it is drawn for.
struct CMenuLook
{
    const CMenuSystem& m_system;
    const CMenuSettings& m_settings;
    CGradientColours m_gradient;
};

void DrawFlatItem(CDC* pDC, const CItemView& item, const CMenuLook& look);
// As flat, with a gradient behind icons.
void DrawGradientItem(CDC* pDC, const CItemView& item, const CMenuLook& look);
void DrawRaisedItem(CDC* pDC, const CItemView& item, const CMenuLook& look);
void DrawTextItem(CDC* pDC, const CItemView& item, const CMenuLook& look);
void DrawShadedItem(CDC* pDC, const CItemView& item, const CMenuLook& look);

// Whether an item of a bar leaves room for the shadow, which the style draws.
bool HasBarShadow(const CItemView& item, const CMenuLook& look);
// At the right and lower edge of an item of a bar.
void DrawBarShadow(CDC* pDC, const CRect& rect, const CMenuSystem& system);

struct CTitleView
{
    CRect m_rect;
    std::wstring m_text;
    UINT m_nFlags = 0;        // TITLE_
    CTitleColours m_colours;  // none left open
    const CNewMenuIcons* m_pIcons = nullptr;
    int m_nIcon = -1;
    CFont* m_pFont = nullptr;  // not owned
};
void DrawMenuTitle(CDC* pDC, const CTitleView& title, const CMenuSystem& system);

// What the text of an item takes in the menu font.
CSize MenuTextExtent(CDC* pDC, const std::wstring& text, bool bBold, bool bShortcut);
