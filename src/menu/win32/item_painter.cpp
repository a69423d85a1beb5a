// Items, style by style.
#include "menu/win32/item_painter.h"

#include <algorithm>
#include <string_view>

#include "menu/colour.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/menu_icons.h"

namespace
{
// ---- States

bool IsOn(const CItemView& item, UINT nState)
{
    return (item.m_nState & nState) != 0;
}
bool IsDisabled(const CItemView& item)
{
    return IsOn(item, ODS_DISABLED | ODS_GRAYED);
}
bool HasIcon(const CItemView& item)
{
    return item.m_pIcons != nullptr && item.m_nIcon >= 0;
}
// Where disabled items take no highlight, keys must still show where they are.
bool IsOnlyOutlined(const CItemView& item, const CMenuSettings& settings)
{
    return IsOn(item, ODS_SELECTED) && IsDisabled(item) && !settings.m_bDisabledSelectable &&
           !item.m_bFromMouse && !item.m_bBar;
}
bool IsSelected(const CItemView& item, const CMenuSettings& settings)
{
    const bool bHot = item.m_bBar && IsOn(item, ODS_HOTLIGHT);
    return (IsOn(item, ODS_SELECTED) || bHot) &&
           (!IsDisabled(item) || settings.m_bDisabledSelectable);
}

// ---- Texts

// Of a device context that goes on to be used by others.
class CTextScope
{
public:
    CTextScope(CDC* pDC, CFont* pFont, COLORREF colour)
        : m_pDC(pDC),
          m_font(pDC, pFont),
          m_colour(pDC->SetTextColor(colour)),
          m_nMode(pDC->SetBkMode(TRANSPARENT))
    {
    }
    ~CTextScope()
    {
        m_pDC->SetTextColor(m_colour);
        m_pDC->SetBkMode(m_nMode);
    }
    CTextScope(const CTextScope&) = delete;
    CTextScope& operator=(const CTextScope&) = delete;

private:
    CDC* m_pDC;  // not owned
    CSelectScope m_font;
    COLORREF m_colour;
    int m_nMode;
};

UINT TextFormat(const CItemView& item, const CMenuSystem& system)
{
    UINT nFormat = DT_SINGLELINE | DT_VCENTER | (item.m_bBar ? DT_CENTER : DT_LEFT);
    if (IsOn(item, ODS_NOACCEL) && system.m_bHidesPrefixes)
        nFormat |= DT_HIDEPREFIX;
    return nFormat;
}

void DrawItemText(CDC* pDC, const CItemView& item, const CRect& rect, COLORREF colour,
                  const CMenuLook& look)
{
    const CTextScope scope(pDC, MenuFont(IsOn(item, ODS_DEFAULT)), colour);
    const UINT nFormat = TextFormat(item, look.m_system);
    const std::wstring_view text = item.m_text;
    const std::size_t nTab = text.rfind(L'\t');
    DrawWideText(pDC, text.substr(0, nTab), rect, nFormat);
    if (nTab != text.npos && look.m_settings.m_bShortcuts)
        DrawWideText(pDC, text.substr(nTab + 1), rect, nFormat | DT_RIGHT);
}

// ---- Marks and icons

void DrawMark(CDC* pDC, const CItemView& item, const CRect& box, COLORREF colour)
{
    LOGFONTA lf = {};
    lf.lfHeight = -box.Height();
    lf.lfCharSet = SYMBOL_CHARSET;
    ::lstrcpynA(lf.lfFaceName, "Marlett", LF_FACESIZE);
    CFont font;
    font.CreateFontIndirect(&lf);
    const CTextScope scope(pDC, &font, colour);
    CRect place = box;
    pDC->DrawText(item.m_bRadio ? "i" : "b", 1, &place,
                  DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
}

// bLifted: selected icons stand above their shadow.
void DrawItemIcon(CDC* pDC, const CItemView& item, CPoint at, bool bSelected, bool bLifted,
                  COLORREF behind, const CMenuLook& look)
{
    constexpr int nDarkened = 1;
    constexpr int nDisabled = 2;
    const CNewMenuIcons& icons = *item.m_pIcons;
    const bool bDarkened = look.m_settings.m_bDarkenedIcons;
    if (IsDisabled(item))
    {
        if (bDarkened)
            icons.Draw(pDC, item.m_nIcon + nDisabled, at);
        else
            icons.DrawMono(pDC, item.m_nIcon, at, DarkenColour(behind, 70));
    }
    else if (!bSelected)
    {
        icons.Draw(pDC, item.m_nIcon + (bDarkened ? nDarkened : 0), at);
    }
    else if (bLifted && !IsOn(item, ODS_CHECKED))
    {
        icons.DrawMono(pDC, item.m_nIcon, at + CSize(1, 1),
                       DimColour(HighlightColour(look.m_system)));
        icons.Draw(pDC, item.m_nIcon, at - CSize(1, 1));
    }
    else
    {
        icons.Draw(pDC, item.m_nIcon, at);
    }
}

// ---- Flat styles

COLORREF SelectionLine(const CMenuSystem& system)
{
    return system.Colour(system.m_bHighContrast ? COLOR_BTNTEXT : COLOR_HIGHLIGHT);
}

void DrawFlatBarItem(CDC* pDC, const CItemView& item, const CMenuLook& look, bool bGradient)
{
    const CMenuSystem& system = look.m_system;
    FillColour(pDC, item.m_rect, BarColour(system));
    const bool bSelected = IsSelected(item, look.m_settings);
    CRect box = item.m_rect;
    const bool bShadow = HasBarShadow(item, look);
    if (bShadow)
        box.DeflateRect(0, 0, SHADOW_WIDTH, SHADOW_WIDTH);
    if (bShadow && bGradient && !system.HasFewColours())
    {
        FillGradient(pDC, box, look.m_gradient.m_light, look.m_gradient.m_middle, true, system);
        DrawBorder(pDC, box, look.m_gradient.m_frame);
    }
    else if (bSelected)
    {
        DrawBox(pDC, box, SelectionLine(system), HighlightColour(system));
    }
    const bool bGrey = IsDisabled(item) || IsOn(item, ODS_INACTIVE);
    DrawItemText(pDC, item, item.m_rect, ItemTextColour(system, bSelected, bGrey), look);
}

// The gradient goes from the light colour over the middle one to the dark one.
void FillColumn(CDC* pDC, const CRect& column, const CMenuLook& look)
{
    const int nMiddle = column.CenterPoint().x;
    FillGradient(pDC, CRect(column.left, column.top, nMiddle, column.bottom),
                 look.m_gradient.m_light, look.m_gradient.m_middle, false, look.m_system);
    FillGradient(pDC, CRect(nMiddle, column.top, column.right, column.bottom),
                 look.m_gradient.m_middle, look.m_gradient.m_dark, false, look.m_system);
}

void DrawFlatIconOrMark(CDC* pDC, const CItemView& item, const CItemLayout& layout, bool bSelected,
                        COLORREF column, const CMenuLook& look)
{
    const CMenuSystem& system = look.m_system;
    if (IsOn(item, ODS_CHECKED))
    {
        const COLORREF highlight = HighlightColour(system);
        const COLORREF fill = bSelected || system.m_bHighContrast
                                  ? highlight
                                  : TintColour(highlight, system.Colour(COLOR_WINDOW));
        DrawBox(pDC, layout.m_check, SelectionLine(system), fill);
    }
    if (HasIcon(item))
        DrawItemIcon(pDC, item, layout.m_icon.TopLeft(), bSelected, true, column, look);
    else if (IsOn(item, ODS_CHECKED))
        DrawMark(pDC, item, layout.m_check, ItemTextColour(system, true, IsDisabled(item)));
}

void DrawFlatPopupItem(CDC* pDC, const CItemView& item, const CMenuLook& look, bool bGradient)
{
    const CMenuSystem& system = look.m_system;
    const CFlatColours colours = FlatColoursOn(pDC, system);
    const CItemLayout layout = LayOutFlatItem(item.m_rect, item.m_iconSize, item.m_bRightJustify);
    if (bGradient && !system.HasFewColours())
        FillColumn(pDC, layout.m_column, look);
    else
        FillColour(pDC, layout.m_column, colours.m_column);
    FillColour(pDC, layout.m_body, colours.m_body);
    if (item.m_bSeparator)
    {
        const int nMiddle = item.m_rect.CenterPoint().y;
        FillColour(pDC,
                   CRect(layout.m_separator.left, nMiddle, layout.m_separator.right, nMiddle + 1),
                   system.Colour(COLOR_GRAYTEXT));
        return;
    }
    const bool bSelected = IsSelected(item, look.m_settings);
    if (bSelected)
        DrawBox(pDC, item.m_rect, SelectionLine(system), HighlightColour(system));
    else if (IsOnlyOutlined(item, look.m_settings))
        DrawBorder(pDC, item.m_rect, SelectionLine(system));
    DrawFlatIconOrMark(pDC, item, layout, bSelected, colours.m_column, look);
    DrawItemText(pDC, item, layout.m_text, ItemTextColour(system, bSelected, IsDisabled(item)),
                 look);
}

// ---- Raised styles

void DrawRaisedLine(CDC* pDC, const CRect& rect, const CMenuSystem& system)
{
    const int nMiddle = rect.CenterPoint().y;
    pDC->Draw3dRect(CRect(rect.left, nMiddle - 1, rect.right, nMiddle + 1),
                    system.Colour(COLOR_BTNSHADOW), system.Colour(COLOR_BTNHIGHLIGHT));
}

// Icon or mark in front of a text; a mark is drawn in the text's colour.
void DrawPlainItem(CDC* pDC, const CItemView& item, const CItemLayout& layout, COLORREF colour,
                   bool bIcons, const CMenuLook& look)
{
    const CMenuSystem& system = look.m_system;
    if (item.m_bBar)
    {
        const bool bGrey = IsOn(item, ODS_INACTIVE);
        DrawItemText(pDC, item, item.m_rect, bGrey ? system.Colour(COLOR_GRAYTEXT) : colour, look);
        return;
    }
    const bool bSelected = IsSelected(item, look.m_settings);
    if (bIcons && HasIcon(item))
    {
        DrawItemIcon(pDC, item, layout.m_icon.TopLeft(), bSelected, false,
                     system.Colour(COLOR_MENU), look);
        if (IsOn(item, ODS_CHECKED))
        {
            pDC->Draw3dRect(layout.m_check, system.Colour(COLOR_BTNSHADOW),
                            system.Colour(COLOR_BTNHIGHLIGHT));
        }
    }
    else if (IsOn(item, ODS_CHECKED))
    {
        DrawMark(pDC, item, layout.m_check, colour);
    }
    DrawItemText(pDC, item, layout.m_text, colour, look);
}

COLORREF GroundColour(const CItemView& item, const CMenuSystem& system)
{
    return item.m_bBar ? BarColour(system) : system.Colour(COLOR_MENU);
}

// FALSE for a separator, which is all there is to it.
bool BeginPlainItem(CDC* pDC, const CItemView& item, const CMenuSystem& system)
{
    FillColour(pDC, item.m_rect, GroundColour(item, system));
    if (item.m_bSeparator)
        DrawRaisedLine(pDC, item.m_rect, system);
    return !item.m_bSeparator;
}

void DrawRaisedBorder(CDC* pDC, const CItemView& item, bool bPressed, const CMenuSystem& system)
{
    const COLORREF light = system.Colour(COLOR_BTNHIGHLIGHT);
    const COLORREF dark = system.Colour(COLOR_BTNSHADOW);
    pDC->Draw3dRect(item.m_rect, bPressed ? dark : light, bPressed ? light : dark);
}
}  // namespace

bool HasBarShadow(const CItemView& item, const CMenuLook& look)
{
    return item.m_bBar && item.m_bOpen && IsSelected(item, look.m_settings);
}

void DrawFlatItem(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    item.m_bBar ? DrawFlatBarItem(pDC, item, look, false)
                : DrawFlatPopupItem(pDC, item, look, false);
}

void DrawGradientItem(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    item.m_bBar ? DrawFlatBarItem(pDC, item, look, true) : DrawFlatPopupItem(pDC, item, look, true);
}

void DrawRaisedItem(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    const CMenuSystem& system = look.m_system;
    if (!BeginPlainItem(pDC, item, system))
        return;
    if (IsSelected(item, look.m_settings) || IsOnlyOutlined(item, look.m_settings))
        DrawRaisedBorder(pDC, item, item.m_bOpen, system);
    const CItemLayout layout = LayOutPlainItem(item.m_rect, item.m_iconSize);
    // The selection leaves the ground as it is, and the text as that of any item.
    DrawPlainItem(pDC, item, layout, ItemTextColour(system, false, IsDisabled(item)), true, look);
}

void DrawTextItem(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    const CMenuSystem& system = look.m_system;
    if (!BeginPlainItem(pDC, item, system))
        return;
    const bool bSelected = IsSelected(item, look.m_settings);
    if (bSelected)
        FillColour(pDC, item.m_rect, system.Colour(COLOR_HIGHLIGHT));
    else if (IsOnlyOutlined(item, look.m_settings))
        DrawBorder(pDC, item.m_rect, system.Colour(COLOR_HIGHLIGHT));
    const COLORREF text = bSelected && !IsDisabled(item)
                              ? system.Colour(COLOR_HIGHLIGHTTEXT)
                              : ItemTextColour(system, false, IsDisabled(item));
    DrawPlainItem(pDC, item, LayOutPlainItem(item.m_rect, item.m_iconSize), text, false, look);
}

void DrawShadedItem(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    const CMenuSystem& system = look.m_system;
    if (!BeginPlainItem(pDC, item, system))
        return;
    if (IsSelected(item, look.m_settings))
    {
        FillGradient(pDC, item.m_rect, HighlightColour(system), GroundColour(item, system), false,
                     system);
        DrawRaisedBorder(pDC, item, item.m_bOpen, system);
    }
    else if (IsOnlyOutlined(item, look.m_settings))
    {
        DrawRaisedBorder(pDC, item, false, system);
    }
    const bool bSelected = IsSelected(item, look.m_settings);
    DrawPlainItem(pDC, item, LayOutPlainItem(item.m_rect, item.m_iconSize),
                  ItemTextColour(system, bSelected, IsDisabled(item)), true, look);
}

void DrawBarShadow(CDC* pDC, const CRect& rect, const CMenuSystem& system)
{
    if (system.HasFewColours())
    {
        constexpr int nSolid = 2;
        const COLORREF shadow = system.Colour(COLOR_BTNSHADOW);
        FillColour(pDC,
                   CRect(rect.right - nSolid, rect.top + SHADOW_WIDTH, rect.right, rect.bottom),
                   shadow);
        FillColour(pDC,
                   CRect(rect.left + SHADOW_WIDTH, rect.bottom - nSolid, rect.right, rect.bottom),
                   shadow);
        return;
    }
    const COLORREF menu = system.Colour(COLOR_MENU);
    for (int nLine = 1; nLine <= SHADOW_WIDTH; ++nLine)
    {
        for (int y = rect.top; y < rect.bottom - nLine + 1; ++y)
        {
            pDC->SetPixel(rect.right - nLine, y,
                          DarkenColour(menu, BarShadowDarkness(nLine, y - rect.top)));
        }
        for (int x = rect.left; x < rect.right - nLine; ++x)
        {
            pDC->SetPixel(x, rect.bottom - nLine,
                          DarkenColour(menu, BarShadowDarkness(nLine, x - rect.left)));
        }
    }
}

CSize MenuTextExtent(CDC* pDC, const std::wstring& text, bool bBold, bool bShortcut)
{
    const CSelectScope font(pDC, MenuFont(bBold));
    std::wstring measured = text;
    const std::size_t nTab = measured.rfind(L'\t');
    if (nTab != measured.npos)
        measured = bShortcut ? measured.replace(nTab, 1, L"nnn") : measured.substr(0, nTab);
    return WideTextExtent(pDC, measured, DT_SINGLELINE);
}
