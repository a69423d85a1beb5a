// Titles.
#include "menu/win32/item_painter.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/menu_icons.h"

namespace
{
// Along the line of text, whatever side it is turned to.
CSize TitleTextExtent(CDC* pDC, const CTitleView& title)
{
    const CSelectScope font(pDC, title.m_pFont != nullptr ? title.m_pFont : TitleFont(false));
    return WideTextExtent(pDC, title.m_text, DT_SINGLELINE | DT_NOPREFIX);
}

void FillRounded(CDC* pDC, const CRect& rect, COLORREF colour)
{
    constexpr int nRadius = 10;
    const CSelectScope selectBrush(pDC, CNewBrushList::Brush(colour));
    CPen pen(PS_SOLID, 1, colour);
    const CSelectScope selectPen(pDC, &pen);
    ::RoundRect(*pDC, rect.left, rect.top, rect.right, rect.bottom, nRadius, nRadius);
}

void DrawTitleGround(CDC* pDC, const CTitleView& title, const CMenuSystem& system)
{
    const bool bVertical = (title.m_nFlags & TITLE_VERTICAL) != 0;
    const CRect& rect = title.m_rect;
    if ((title.m_nFlags & TITLE_GRADIENT) != 0)
    {
        // From where the text begins: a vertical one at the bottom.
        if (bVertical)
            FillGradient(pDC, rect, title.m_colours.m_end, title.m_colours.m_start, true, system);
        else
            FillGradient(pDC, rect, title.m_colours.m_start, title.m_colours.m_end, false, system);
    }
    else if ((title.m_nFlags & TITLE_ROUNDED) != 0)
    {
        FillColour(pDC, rect, system.Colour(COLOR_MENU));
        FillRounded(pDC, rect, title.m_colours.m_start);
    }
    else
    {
        FillColour(pDC, rect, title.m_colours.m_start);
    }
    if ((title.m_nFlags & TITLE_RAISED) != 0)
        pDC->Draw3dRect(&rect, system.Colour(COLOR_BTNHIGHLIGHT), system.Colour(COLOR_BTNSHADOW));
}
}  // namespace

void DrawMenuTitle(CDC* pDC, const CTitleView& title, const CMenuSystem& system)
{
    const bool bVertical = (title.m_nFlags & TITLE_VERTICAL) != 0;
    DrawTitleGround(pDC, title, system);
    const CSize icon = title.m_pIcons != nullptr ? title.m_pIcons->GetIconSize() : CSize();
    const CTitleLayout layout =
        LayOutTitle(title.m_rect, TitleTextExtent(pDC, title), icon, title.m_nFlags);
    if (title.m_pIcons != nullptr)
        title.m_pIcons->Draw(pDC, title.m_nIcon, layout.m_icon.TopLeft());
    const CSelectScope font(pDC, title.m_pFont != nullptr ? title.m_pFont : TitleFont(bVertical));
    const COLORREF oldColour = pDC->SetTextColor(title.m_colours.m_text);
    const int nOldMode = pDC->SetBkMode(TRANSPARENT);
    ::ExtTextOutW(*pDC, layout.m_text.x, layout.m_text.y, ETO_CLIPPED, &title.m_rect,
                  title.m_text.data(), static_cast<UINT>(title.m_text.size()), nullptr);
    pDC->SetBkMode(nOldMode);
    pDC->SetTextColor(oldColour);
    if ((title.m_nFlags & TITLE_LINE) == 0)
        return;
    for (const CRect& line : layout.m_line)
    {
        if (!line.IsRectEmpty())
        {
            pDC->Draw3dRect(&line, system.Colour(COLOR_BTNHIGHLIGHT),
                            system.Colour(COLOR_BTNSHADOW));
        }
    }
}
