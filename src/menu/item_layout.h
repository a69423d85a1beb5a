// Sizes of items, and where things stand in them. Pixels; an item's rectangle is given.
#pragma once

#include "menu/menu_style.h"
#include "menu/menu_system.h"
#include "menu/title_flags.h"
#include "platform/base/geometry.h"

constexpr CSize DEFAULT_ICON_SIZE(16, 15);

// What the size of an item depends on.
struct CItemContent
{
    CSize m_text;  // in the menu font, a tab counting as "nnn"
    CSize m_icon = DEFAULT_ICON_SIZE;
    bool m_bSeparator = false;
    bool m_bSubmenu = false;  // opens another menu
    bool m_bBar = false;      // stands in a bar
    bool m_bMnemonic = false;
};
// What the system is asked for; it adds the width of a check mark itself.
CSize MeasureItemIn(EMeasureStyle style, const CItemContent& item, const CMenuSystem& system);

// Commands of the system, in its own menu and at the end of bars.
constexpr UINT FIRST_SYSTEM_ITEM = 61440;
constexpr UINT LAST_SYSTEM_ITEM = 61776;
// Such an item: as wide as the one that follows, so that both stand in line.
CSize SystemItemSize(CSize own, int nNextWidth, const CMenuSystem& system);

struct CItemLayout
{
    CRect m_column;  // behind the icon; empty in styles without one
    CRect m_body;    // the rest
    CRect m_icon;
    CRect m_check;      // box around the icon, or in its place
    CRect m_text;       // text at its beginning, shortcut at its end
    CRect m_separator;  // the line is at mid-height of the item
};
// The column is on the right for bRight.
CItemLayout LayOutFlatItem(const CRect& item, CSize icon, bool bRight);
CItemLayout LayOutPlainItem(const CRect& item, CSize icon);

// Rows from the top of a bar item's shadow that are dark at its right side, as darkening of 255.
// nColumn counts 1 to 4 from the outer edge, nRow from 0; along the lower edge likewise.
int BarShadowDarkness(int nColumn, int nRow);
constexpr int SHADOW_WIDTH = 4;

// ---- Titles

// A title of one line in its font; a vertical one turned to its side. icon is (0, 0) for none.
CSize MeasureTitle(CSize text, CSize icon, UINT nFlags);

struct CTitleLayout
{
    CRect m_icon;     // empty without one
    CPoint m_text;    // top left corner, for a vertical title bottom left
    CRect m_line[2];  // beside the text; empty where there is no room
};
CTitleLayout LayOutTitle(const CRect& rect, CSize text, CSize icon, UINT nFlags);
