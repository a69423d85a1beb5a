// Measuring and placing.
#include "menu/item_layout.h"

#include <algorithm>

namespace
{
CSize MeasureFlat(const CItemContent& item, const CMenuSystem& system)
{
    const int nMenu = system.m_nMenuHeight;
    if (item.m_bSeparator)
        return { 3, 3 };
    if (item.m_bBar)
    {
        return { item.m_text.cx - (item.m_bMnemonic ? 6 : 0),
                 std::max<int>(nMenu, item.m_icon.cy + 2) };
    }
    // Not the same number twice: where the menu's height is too little by one, it does.
    const int nHeight = nMenu > item.m_icon.cy + 8 ? nMenu : item.m_icon.cy + 7;
    return { item.m_icon.cx + item.m_text.cx + 6 + (item.m_bSubmenu ? nMenu : nMenu / 2), nHeight };
}

// Icon and text with a gap before, between and behind them; as high as the higher of the two and a
// gap. Shaded styles have 2 more on each side.
CSize MeasurePlain(const CItemContent& item, const CMenuSystem& system)
{
    constexpr int nGap = 4;
    if (item.m_bSeparator)
        return { 3, system.m_nMenuHeight / 2 };
    if (item.m_bBar)
        return { item.m_text.cx, std::max<int>(system.m_nMenuHeight, item.m_text.cy + nGap) };
    return { item.m_text.cx + item.m_icon.cx + 3 * nGap,
             std::max(item.m_text.cy, item.m_icon.cy) + nGap };
}

CSize MeasureShaded(const CItemContent& item, const CMenuSystem& system)
{
    const CSize plain = MeasurePlain(item, system);
    return item.m_bSeparator || item.m_bBar ? plain : plain + CSize(4, 4);
}

CRect Centred(const CRect& around, CSize size)
{
    return { CPoint(around.left + (around.Width() - size.cx) / 2,
                    around.top + (around.Height() - size.cy) / 2),
             size };
}

// The box of a check mark leaves a line of the item free.
CRect CheckBox(const CRect& item, const CRect& icon)
{
    CRect box = icon;
    box.InflateRect(2, 2);
    return box & CRect(item.left + 1, item.top + 1, item.right - 1, item.bottom - 1);
}
}  // namespace

CSize MeasureItemIn(EMeasureStyle style, const CItemContent& item, const CMenuSystem& system)
{
    switch (style)
    {
        case EMeasureStyle::flat:
            return MeasureFlat(item, system);
        case EMeasureStyle::shaded:
            return MeasureShaded(item, system);
        default:
            return MeasurePlain(item, system);
    }
}

CSize SystemItemSize(CSize own, int nNextWidth, const CMenuSystem& system)
{
    return { std::max<int>(own.cx, nNextWidth), system.m_nMenuHeight };
}

CItemLayout LayOutFlatItem(const CRect& item, CSize icon, bool bRight)
{
    constexpr int nBeforeText = 15;  // from the column to the text
    constexpr int nBehindText = 4;
    const int nColumn = icon.cx + 8;
    CItemLayout layout;
    layout.m_column = layout.m_body = layout.m_text = item;
    if (bRight)
    {
        layout.m_column.left = layout.m_body.right = item.right - nColumn;
        layout.m_text = layout.m_body;
        layout.m_text.DeflateRect(nBehindText, 0, nBeforeText, 0);
    }
    else
    {
        layout.m_column.right = layout.m_body.left = item.left + nColumn;
        layout.m_text = layout.m_body;
        layout.m_text.DeflateRect(nBeforeText, 0, nBehindText, 0);
    }
    layout.m_separator = layout.m_text;
    layout.m_icon = Centred(layout.m_column, icon);
    layout.m_check = CheckBox(item, layout.m_icon);
    return layout;
}

CItemLayout LayOutPlainItem(const CRect& item, CSize icon)
{
    constexpr int nGap = 4;
    CItemLayout layout;
    layout.m_body = layout.m_text = layout.m_separator = item;
    layout.m_icon =
        Centred(CRect(item.left + nGap, item.top, item.left + nGap + icon.cx, item.bottom), icon);
    layout.m_check = CheckBox(item, layout.m_icon);
    layout.m_text.left = layout.m_icon.right + nGap;
    layout.m_text.right -= nGap;
    return layout;
}

int BarShadowDarkness(int nColumn, int nRow)
{
    if (nRow < 4)
        return 0;
    return nRow < 8 ? nColumn * 6 * (nRow - 3) : nColumn * 30;
}

// ---- Titles

namespace
{
constexpr int s_nTitleGap = 2;
constexpr int s_nIconMore = 4;  // icons of titles have some room around
constexpr int s_nLineEdge = 5;

bool HasIcon(CSize icon)
{
    return icon.cx > 0 && icon.cy > 0;
}
}  // namespace

CSize MeasureTitle(CSize text, CSize icon, UINT nFlags)
{
    const bool bVertical = (nFlags & TITLE_VERTICAL) != 0;
    const CSize room = HasIcon(icon) ? icon + CSize(s_nIconMore, s_nIconMore) : CSize();
    const int nAlong = text.cx + (bVertical ? room.cy : room.cx) + 4 * s_nTitleGap;
    const int nAcross = std::max(text.cy, bVertical ? room.cx : room.cy) + 2 * s_nTitleGap;
    return bVertical ? CSize(nAcross, nAlong) : CSize(nAlong, nAcross);
}

namespace
{
CTitleLayout LayOutHorizontal(const CRect& rect, CSize text, CSize room, UINT nFlags)
{
    CTitleLayout layout;
    const int nIcon = HasIcon(room) ? room.cx : 0;
    const int nFree = std::max<int>(rect.Width() - nIcon - s_nTitleGap - text.cx, 0);
    int nLeft = rect.left + nIcon + s_nTitleGap;
    if ((nFlags & TITLE_ROUNDED) != 0)
        nLeft += std::min(10, nFree / 2);
    else if ((nFlags & TITLE_CENTRED) != 0)
        nLeft += nFree / 2;
    if (nIcon != 0)
    {
        layout.m_icon = Centred(
            CRect(nLeft - s_nTitleGap - room.cx, rect.top, nLeft - s_nTitleGap, rect.bottom),
            room - CSize(s_nIconMore, s_nIconMore));
    }
    layout.m_text = { nLeft, rect.top + (rect.Height() - static_cast<int>(text.cy)) / 2 };
    const int nMiddle = rect.CenterPoint().y;
    layout.m_line[0] = { rect.left + s_nLineEdge, nMiddle - 1,
                         nLeft - s_nTitleGap - nIcon - s_nLineEdge, nMiddle + 1 };
    layout.m_line[1] = { nLeft + static_cast<int>(text.cx) + s_nLineEdge, nMiddle - 1,
                         rect.right - s_nLineEdge, nMiddle + 1 };
    return layout;
}

// From the lower edge upwards.
CTitleLayout LayOutVertical(const CRect& rect, CSize text, CSize room, UINT nFlags)
{
    CTitleLayout layout;
    const int nIcon = HasIcon(room) ? room.cy : 0;
    const int nFree = std::max<int>(rect.Height() - nIcon - s_nTitleGap - text.cx, 0);
    int nBottom = rect.bottom - nIcon - s_nTitleGap;
    if ((nFlags & TITLE_ROUNDED) != 0)
        nBottom -= std::min(10, nFree / 2);
    else if ((nFlags & TITLE_CENTRED) != 0)
        nBottom -= nFree / 2;
    if (nIcon != 0)
    {
        layout.m_icon = Centred(
            CRect(rect.left, nBottom + s_nTitleGap, rect.right, nBottom + s_nTitleGap + nIcon),
            room - CSize(s_nIconMore, s_nIconMore));
    }
    layout.m_text = { rect.left + (rect.Width() - static_cast<int>(text.cy)) / 2, nBottom };
    const int nMiddle = rect.CenterPoint().x;
    layout.m_line[0] = { nMiddle - 1, nBottom + s_nTitleGap + nIcon + s_nLineEdge, nMiddle + 1,
                         rect.bottom - s_nLineEdge };
    layout.m_line[1] = { nMiddle - 1, rect.top + s_nLineEdge, nMiddle + 1,
                         nBottom - static_cast<int>(text.cx) - s_nLineEdge };
    return layout;
}
}  // namespace

CTitleLayout LayOutTitle(const CRect& rect, CSize text, CSize icon, UINT nFlags)
{
    const CSize room = HasIcon(icon) ? icon + CSize(s_nIconMore, s_nIconMore) : CSize();
    CTitleLayout layout = (nFlags & TITLE_VERTICAL) != 0
                              ? LayOutVertical(rect, text, room, nFlags)
                              : LayOutHorizontal(rect, text, room, nFlags);
    for (CRect& line : layout.m_line)
    {
        if (line.IsRectEmpty())
            line.SetRectEmpty();
    }
    return layout;
}
