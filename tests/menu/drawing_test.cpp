// Items and titles of every style, drawn for several systems into a bitmap: named points of the
// picture.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

#include "menu/win32/item_painter.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_menu.h"
#include "platform/gdi/memory_picture.h"
#include "systems.h"

namespace
{
constexpr CSize ITEM(140, 22);
constexpr UINT s_nCommand = 700;

const std::map<std::string, CPoint> s_points = {
    { "edge", { 0, 0 } },           { "far edge", { 139, 21 } },  { "column", { 3, 18 } },
    { "middle", { 12, 20 } },       { "column end", { 23, 18 } }, { "body", { 130, 3 } },
    { "icon", { 12, 11 } },         { "shadow", { 20, 18 } },     { "check", { 2, 1 } },
    { "line", { 60, 11 } },         { "line end", { 135, 11 } },  { "before line", { 38, 11 } },
    { "behind line", { 136, 11 } },
};

CMenuSystem s_system;

// A menu with one command, or a separator, drawn off the screen.
class CDrawing
{
public:
    CDrawing(DWORD nStyle, const CMenuSystem& system)
    {
        s_system = system;
        s_system.m_bWine = false;
        SetMenuSystem(&s_system);
        CNewMenu::SetStyle(nStyle);
        m_menu.CreatePopupMenu();
        m_menu.AppendMenu(MF_STRING, s_nCommand, "");
        m_menu.AppendMenu(MF_SEPARATOR);
        m_menu.Synchronise();
    }
    ~CDrawing()
    {
        SetMenuSystem(nullptr);
        GetMenuSettings() = CMenuSettings();
        CNewMenu::SetStyle(DEFAULT_MENU_STYLE);
    }

    // A red square in the place of the icon.
    void AddIcon()
    {
        CMemoryPicture red(16, 15);
        CBrush brush(RGB(255, 0, 0));
        const RECT all = { 0, 0, 16, 15 };
        ::FillRect(red, &all, brush);
        const auto pIcons = std::make_shared<CNewMenuBitmaps>();
        ASSERT_TRUE(pIcons->AddBitmap(s_nCommand, red.Bitmap(), RGB(0, 0, 0)));
        m_menu.SetIcons(pIcons);
    }

    void Draw(UINT nState, bool bSeparator = false)
    {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_DATA;
        ::GetMenuItemInfoA(m_menu, bSeparator ? 1 : 0, TRUE, &info);
        DRAWITEMSTRUCT draw = {};
        draw.CtlType = ODT_MENU;
        draw.itemState = nState;
        draw.hDC = m_picture;
        draw.rcItem = { 0, 0, ITEM.cx, ITEM.cy };
        draw.itemData = info.dwItemData;
        m_menu.DrawItem(&draw);
    }
    COLORREF At(const std::string& point) const
    {
        const CPoint place = s_points.at(point);
        return ::GetPixel(m_picture, place.x, place.y);
    }

    CNewMenu m_menu;
    CMemoryPicture m_picture{ ITEM.cx, ITEM.cy };
};

// Gradients of the system are not exact to the bit.
bool IsNear(COLORREF a, COLORREF b)
{
    constexpr int nMost = 9;
    return std::abs(GetRValue(a) - GetRValue(b)) <= nMost &&
           std::abs(GetGValue(a) - GetGValue(b)) <= nMost &&
           std::abs(GetBValue(a) - GetBValue(b)) <= nMost;
}

// The styles that a row holds for, as bits.
constexpr UINT s_nRaised = 0x003;
constexpr UINT s_nFlat = 0x00C;
constexpr UINT s_nTextOnly = 0x030;
constexpr UINT s_nShaded = 0x0C0;
constexpr UINT s_nGradient = 0xF00;
constexpr UINT s_nNoIcon = 0x10000;  // pseudo states
constexpr UINT s_nLine = 0x20000;

struct CCase
{
    UINT nStyles;
    CMenuSystem (*pfnSystem)();
    UINT nState;
    std::map<std::string, COLORREF> points;
};

CMenuSystem BrightHighlight()
{
    CMenuSystem system = ClassicSystem();
    system.m_colours[COLOR_HIGHLIGHT] = 0x00FFFF;
    return system;
}

const CCase s_aCases[] = {
    { s_nFlat,
      ClassicSystem,
      0,
      { { "column", 0xD0D7DA }, { "body", 0xF7F8F9 }, { "icon", 0x0000CD } } },
    { s_nFlat | s_nGradient,
      ClassicSystem,
      ODS_SELECTED,
      { { "edge", 0xD77800 },
        { "column", 0xF4D7B3 },
        { "body", 0xF4D7B3 },
        { "icon", 0x0000FF } } },
    { s_nFlat | s_nGradient,
      BrightHighlight,
      ODS_SELECTED,
      { { "edge", 0x00FFFF }, { "body", 0xDBFFFF } } },
    { s_nFlat | s_nGradient,
      ClassicSystem,
      ODS_DISABLED,
      { { "body", 0xF7F8F9 }, { "icon", 0xAAAAAA } } },
    { s_nFlat | s_nGradient, ClassicSystem, ODS_CHECKED | s_nNoIcon, { { "check", 0xD77800 } } },
    { s_nFlat | s_nGradient,
      ClassicSystem,
      s_nLine,
      { { "line", 0x6D6D6D },
        { "line end", 0x6D6D6D },
        { "before line", 0xF7F8F9 },
        { "behind line", 0xF7F8F9 } } },
    { s_nGradient,
      ClassicSystem,
      s_nNoIcon,
      { { "edge", 0xFFFFFF },
        { "middle", 0xE8EBED },
        { "column end", 0xC8D0D4 },
        { "body", 0xF7F8F9 } } },
    { s_nGradient,
      Themed,
      s_nNoIcon,
      { { "edge", 0xFEECDD }, { "middle", 0xF9DBC4 }, { "column end", 0xE2A981 } } },
    { s_nFlat | s_nGradient,
      WithFewColours,
      s_nNoIcon,
      { { "column", 0xC8D0D4 }, { "body", 0xF7F8F9 } } },
    { s_nFlat | s_nGradient,
      WithFewColours,
      ODS_SELECTED,
      { { "edge", 0xD77800 }, { "body", 0xFFFFFF } } },
    { s_nFlat, HighContrastBlack, s_nNoIcon, { { "column", 0 }, { "body", 0 } } },
    { s_nFlat | s_nGradient,
      HighContrastBlack,
      ODS_SELECTED,
      { { "edge", 0xFFFFFF }, { "body", 0x800080 } } },
    { s_nFlat | s_nGradient, HighContrastWhite, ODS_SELECTED, { { "edge", 0 }, { "body", 0 } } },
    { s_nRaised | s_nTextOnly | s_nShaded,
      ClassicSystem,
      s_nNoIcon,
      { { "edge", 0xC8D0D4 }, { "body", 0xC8D0D4 } } },
    { s_nRaised | s_nShaded, ClassicSystem, 0, { { "icon", 0x0000CD } } },
    { s_nTextOnly, ClassicSystem, 0, { { "icon", 0xC8D0D4 } } },
    { s_nRaised,
      ClassicSystem,
      ODS_SELECTED,
      { { "edge", 0xFFFFFF },
        { "far edge", 0x808080 },
        { "body", 0xC8D0D4 },
        { "icon", 0x0000FF } } },
    { s_nShaded,
      ClassicSystem,
      ODS_SELECTED,
      { { "edge", 0xFFFFFF },
        { "far edge", 0x808080 },
        { "column", 0xF4D7B3 },
        { "body", 0xCBD0D2 } } },
    { s_nTextOnly, ClassicSystem, ODS_SELECTED, { { "edge", 0xD77800 }, { "body", 0xD77800 } } },
    { s_nRaised | s_nTextOnly | s_nShaded,
      ClassicSystem,
      s_nLine,
      { { "body", 0xC8D0D4 }, { "line", 0xFFFFFF } } },
};

TEST(MenuDrawing, EveryStyleShowsItsItems)
{
    for (const CCase& row : s_aCases)
    {
        for (DWORD nStyle = 0; nStyle < 12; ++nStyle)
        {
            if ((row.nStyles & (1U << nStyle)) == 0)
                continue;
            CDrawing drawing(nStyle, row.pfnSystem());
            if ((row.nState & (s_nNoIcon | s_nLine)) == 0)
                drawing.AddIcon();
            drawing.Draw(row.nState & 0xFFFF, (row.nState & s_nLine) != 0);
            for (const auto& [point, colour] : row.points)
            {
                EXPECT_PRED2(IsNear, drawing.At(point), colour)
                    << "row " << &row - s_aCases << ", style " << nStyle << ", " << point;
            }
        }
    }
}

TEST(MenuDrawing, SettingsChangeIconsAndDisabledItems)
{
    constexpr DWORD nFlatStyle = 2;
    CDrawing drawing(nFlatStyle, ClassicSystem());
    drawing.AddIcon();
    EXPECT_TRUE(CNewMenu::SetDarkenedIcons(FALSE));
    drawing.Draw(0);
    EXPECT_EQ(drawing.At("icon"), 0x0000FFU);
    drawing.Draw(ODS_DISABLED);
    EXPECT_EQ(drawing.At("icon"), 0x979C9EU) << "the column darkened by 70";
    drawing.Draw(ODS_SELECTED);
    EXPECT_EQ(drawing.At("shadow"), 0xD1977DU) << "the highlight dimmed, below and on the right";
    drawing.Draw(ODS_SELECTED | ODS_DISABLED);
    EXPECT_EQ(drawing.At("body"), 0xF4D7B3U);
    EXPECT_TRUE(CNewMenu::SetDisabledSelectable(FALSE));
    drawing.Draw(ODS_SELECTED | ODS_DISABLED);
    EXPECT_EQ(drawing.At("body"), 0xF7F8F9U);
    CNewMenu::SetDarkenedIcons(TRUE);
    EXPECT_EQ(CNewMenu::SetDarkeningAmount(100), 50);
    ::Sleep(2100);  // icons are looked after now and then
    drawing.Draw(0);
    EXPECT_EQ(drawing.At("icon"), 0x00009BU);
}

// Each change of an item's text or state makes another picture, and what is switched off none.
TEST(MenuDrawing, TextsAreShownAsTheItemSays)
{
    const auto draw = [](const char* pszText, bool bDefault, bool bShortcuts)
    {
        CDrawing drawing(2, ClassicSystem());
        CNewMenu::SetShortcutTexts(bShortcuts);
        drawing.m_menu.ModifyMenu(s_nCommand, MF_BYCOMMAND | MF_STRING, s_nCommand, pszText);
        if (bDefault)
            drawing.m_menu.SetDefaultItem(s_nCommand);
        drawing.m_menu.Synchronise();
        drawing.Draw(0);
        return drawing.m_picture.Colours();
    };
    const auto plain = draw("&Text", false, true);
    EXPECT_NE(draw("&Text", true, true), plain) << "bold";
    EXPECT_NE(draw("&Text\tCtrl+T", false, true), plain);
    EXPECT_EQ(draw("&Text\tCtrl+T", false, false), plain) << "no shortcuts";
}

TEST(MenuDrawing, BarItemsThatAreOpenHaveAShadow)
{
    CMemoryPicture picture(60, 40);
    CDC* pDC = CDC::FromHandle(picture);
    DrawBarShadow(pDC, CRect(0, 0, 60, 40), ClassicSystem());
    const struct
    {
        CPoint at;
        COLORREF colour;
    } aCases[] = {
        { { 59, 2 }, 0xC8D0D4 },   // the beginning stays
        { { 56, 4 }, 0xB5BCC0 },   // column 4 * 6 of 255
        { { 59, 20 }, 0xB0B8BB },  // 30
        { { 56, 20 }, 0x6A6E70 },  // 120
        { { 20, 39 }, 0xB0B8BB }, { { 20, 36 }, 0x6A6E70 },
        { { 20, 35 }, 0xFFFFFF },  // nothing of the shadow
    };
    for (const auto& row : aCases)
    {
        EXPECT_EQ(::GetPixel(picture, row.at.x, row.at.y), row.colour)
            << row.at.x << ' ' << row.at.y;
    }
    DrawBarShadow(pDC, CRect(0, 0, 60, 40), WithFewColours());
    EXPECT_EQ(::GetPixel(picture, 58, 20), 0x808080U);
    EXPECT_EQ(::GetPixel(picture, 20, 39), 0x808080U);
}

TEST(MenuDrawing, GradientsGoInBandsWhereTheSystemHasNone)
{
    CMenuSystem old = ClassicSystem();
    old.m_version = EWindowsVersion::windows98;
    CMemoryPicture picture(40, 10);
    FillGradient(CDC::FromHandle(picture), CRect(0, 0, 40, 10), 0x0000FF, 0xFF0000, false, old);
    EXPECT_EQ(::GetPixel(picture, 0, 5), 0x0000FFU);
    EXPECT_EQ(::GetPixel(picture, 1, 5), 0x0000FFU);
    EXPECT_EQ(::GetPixel(picture, 2, 5), 0x0D00F2U) << "one of twenty bands further";
    EXPECT_EQ(::GetPixel(picture, 20, 5), 0x80007FU);
    FillGradient(CDC::FromHandle(picture), CRect(0, 0, 40, 10), 0x0000FF, 0xFF0000, true, old);
    EXPECT_EQ(::GetPixel(picture, 20, 0), 0x0000FFU);
    EXPECT_EQ(::GetPixel(picture, 20, 9), 0xCC0033U);
}

TEST(MenuDrawing, TitlesHaveTheGroundThatTheirFlagsSay)
{
    const struct
    {
        UINT nFlags;
        COLORREF corner;
        COLORREF start;
        COLORREF end;
    } aCases[] = {
        { 0, 0x6A240A, 0x6A240A, 0x6A240A },
        { TITLE_GRADIENT, 0x6A240A, 0x6A240A, 0xF7F8F9 },
        { TITLE_ROUNDED, 0xC8D0D4, 0x6A240A, 0x6A240A },
        { TITLE_RAISED, 0xFFFFFF, 0x6A240A, 0x6A240A },
        { TITLE_RAISED | TITLE_GRADIENT, 0xFFFFFF, 0x6A240A, 0xF7F8F9 },
        { TITLE_VERTICAL | TITLE_GRADIENT, 0xF7F8F9, 0x6A240A, 0xF7F8F9 },
    };
    for (const auto& row : aCases)
    {
        CMemoryPicture picture(100, 24);
        CTitleView title;
        title.m_rect = CRect(0, 0, 100, 24);
        title.m_nFlags = row.nFlags;
        title.m_colours =
            TitleColours(ClassicSystem(), { NO_TITLE_COLOUR, NO_TITLE_COLOUR, NO_TITLE_COLOUR });
        DrawMenuTitle(CDC::FromHandle(picture), title, ClassicSystem());
        EXPECT_PRED2(IsNear, ::GetPixel(picture, 0, 0), row.corner) << row.nFlags;
        const bool bVertical = (row.nFlags & TITLE_VERTICAL) != 0;
        const CPoint start = bVertical ? CPoint(50, 23) : CPoint(2, 12);
        const CPoint end = bVertical ? CPoint(50, 0) : CPoint(97, 12);
        EXPECT_PRED2(IsNear, ::GetPixel(picture, start.x, start.y), row.start) << row.nFlags;
        EXPECT_PRED2(IsNear, ::GetPixel(picture, end.x, end.y), row.end) << row.nFlags;
    }
}

TEST(MenuDrawing, WhatIsDrawnInMemoryIsCopiedAtTheEnd)
{
    CMemoryPicture picture(10, 10);
    {
        CNewMemDC memory(CDC::FromHandle(picture), CRect(2, 2, 8, 8));
        memory.FillSolidRect(0, 0, 5, 10, 0x0000FF);
        EXPECT_EQ(::GetPixel(picture, 3, 3), 0xFFFFFFU);
    }
    EXPECT_EQ(::GetPixel(picture, 3, 3), 0x0000FFU);
    EXPECT_EQ(::GetPixel(picture, 1, 3), 0xFFFFFFU);
    EXPECT_EQ(CNewBrushList::Brush(0x123456), CNewBrushList::Brush(0x123456));
}
}  // namespace
