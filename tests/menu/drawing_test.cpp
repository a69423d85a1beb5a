// Items and titles of every style, drawn for several systems into a bitmap: named points of the
// picture.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "menu/win32/item_painter.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_menu.h"
#include "pixels.h"
#include "platform/gdi/memory_picture.h"
#include "systems.h"

namespace
{
constexpr CSize ITEM(140, 22);
constexpr UINT s_nCommand = 700;

const std::map<std::string, CPoint> s_points = {
    { "edge", { 0, 0 } },           { "far-edge", { 139, 21 } },  { "column", { 3, 18 } },
    { "middle", { 12, 20 } },       { "column-end", { 23, 18 } }, { "body", { 130, 3 } },
    { "icon", { 12, 11 } },         { "shadow", { 20, 18 } },     { "check", { 2, 1 } },
    { "line", { 60, 11 } },         { "line-end", { 135, 11 } },  { "before-line", { 38, 11 } },
    { "behind-line", { 136, 11 } },
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
        Fill(red, { 0, 0, 16, 15 }, RGB(255, 0, 0));
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
    const char* pszPoints;  // names and colours
};

CMenuSystem BrightHighlight()
{
    CMenuSystem system = ClassicSystem();
    system.m_colours[COLOR_HIGHLIGHT] = 0x00FFFF;
    return system;
}

// clang-format off
const CCase s_aCases[] = {
    { s_nFlat, ClassicSystem, 0, "column D0D7DA body F7F8F9 icon 0000CD" },
    { s_nFlat | s_nGradient, ClassicSystem, ODS_SELECTED, "edge D77800 column F4D7B3 body F4D7B3 icon 0000FF" },
    { s_nFlat | s_nGradient, BrightHighlight, ODS_SELECTED, "edge 00FFFF body DBFFFF" },
    { s_nFlat | s_nGradient, ClassicSystem, ODS_DISABLED, "body F7F8F9 icon AAAAAA" },
    { s_nFlat | s_nGradient, ClassicSystem, ODS_CHECKED | s_nNoIcon, "check D77800" },
    { s_nFlat | s_nGradient, ClassicSystem, s_nLine, "line 6D6D6D line-end 6D6D6D before-line F7F8F9 behind-line F7F8F9" },
    { s_nGradient, ClassicSystem, s_nNoIcon, "edge FFFFFF middle E8EBED column-end C8D0D4 body F7F8F9" },
    { s_nGradient, Themed, s_nNoIcon, "edge FEECDD middle F9DBC4 column-end E2A981" },
    { s_nFlat | s_nGradient, WithFewColours, s_nNoIcon, "column C8D0D4 body F7F8F9" },
    { s_nFlat | s_nGradient, WithFewColours, ODS_SELECTED, "edge D77800 body FFFFFF" },
    { s_nFlat, HighContrastBlack, s_nNoIcon, "column 000000 body 000000" },
    { s_nFlat | s_nGradient, HighContrastBlack, ODS_SELECTED, "edge FFFFFF body 800080" },
    { s_nFlat | s_nGradient, HighContrastWhite, ODS_SELECTED, "edge 000000 body 000000" },
    { s_nRaised | s_nTextOnly | s_nShaded, ClassicSystem, s_nNoIcon, "edge C8D0D4 body C8D0D4" },
    { s_nRaised | s_nShaded, ClassicSystem, 0, "icon 0000CD" },
    { s_nTextOnly, ClassicSystem, 0, "icon C8D0D4" },
    { s_nRaised, ClassicSystem, ODS_SELECTED, "edge FFFFFF far-edge 808080 body C8D0D4 icon 0000FF" },
    { s_nShaded, ClassicSystem, ODS_SELECTED, "edge FFFFFF far-edge 808080 column F4D7B3 body CBD0D2" },
    { s_nTextOnly, ClassicSystem, ODS_SELECTED, "edge D77800 body D77800" },
    { s_nRaised | s_nTextOnly | s_nShaded, ClassicSystem, s_nLine, "body C8D0D4 line FFFFFF" },
};
// clang-format on

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
            std::istringstream words(row.pszPoints);
            COLORREF colour = 0;
            for (std::string point; words >> point >> std::hex >> colour;)
            {
                EXPECT_PRED3(IsNear, drawing.At(point), colour, NEARLY)
                    << "row " << &row - s_aCases << ", style " << nStyle << ", " << point;
            }
            EXPECT_TRUE(words.eof()) << row.pszPoints;
        }
    }
}

TEST(MenuDrawing, SettingsChangeIconsAndDisabledItems)
{
    constexpr DWORD nFlatStyle = 2;
    CDrawing drawing(nFlatStyle, ClassicSystem());
    drawing.AddIcon();
    const auto at = [&](UINT nState, const char* pszPoint)
    {
        drawing.Draw(nState);
        return drawing.At(pszPoint);
    };
    EXPECT_TRUE(CNewMenu::SetDarkenedIcons(FALSE));
    EXPECT_EQ(at(0, "icon"), 0x0000FFU);
    EXPECT_EQ(at(ODS_DISABLED, "icon"), 0x979C9EU) << "the column darkened by 70";
    EXPECT_EQ(at(ODS_SELECTED, "shadow"), 0xD1977DU)
        << "the highlight dimmed, below and on the right";
    EXPECT_EQ(at(ODS_SELECTED | ODS_DISABLED, "body"), 0xF4D7B3U);
    EXPECT_TRUE(CNewMenu::SetDisabledSelectable(FALSE));
    EXPECT_EQ(at(ODS_SELECTED | ODS_DISABLED, "body"), 0xF7F8F9U);
    CNewMenu::SetDarkenedIcons(TRUE);
    EXPECT_EQ(CNewMenu::SetDarkeningAmount(100), 50);
    ::Sleep(2100);  // icons are looked after now and then
    EXPECT_EQ(at(0, "icon"), 0x00009BU);
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
    ExpectPixels(picture, "59 2 C8D0D4");                // the beginning stays
    ExpectPixels(picture, "56 4 B5BCC0");                // column 4 * 6 of 255
    ExpectPixels(picture, "59 20 B0B8BB 20 39 B0B8BB");  // 30
    ExpectPixels(picture, "56 20 6A6E70 20 36 6A6E70");  // 120
    ExpectPixels(picture, "20 35 FFFFFF");               // nothing of the shadow
    DrawBarShadow(pDC, CRect(0, 0, 60, 40), WithFewColours());
    ExpectPixels(picture, "58 20 808080 20 39 808080");
}

// One of twenty bands further after two pixels.
TEST(MenuDrawing, GradientsGoInBandsWhereTheSystemHasNone)
{
    CMenuSystem old = ClassicSystem();
    old.m_version = EWindowsVersion::windows98;
    CMemoryPicture picture(40, 10);
    CDC* pDC = CDC::FromHandle(picture);
    FillGradient(pDC, CRect(0, 0, 40, 10), 0x0000FF, 0xFF0000, false, old);
    ExpectPixels(picture, "0 5 0000FF 1 5 0000FF 2 5 0D00F2 20 5 80007F");
    FillGradient(pDC, CRect(0, 0, 40, 10), 0x0000FF, 0xFF0000, true, old);
    ExpectPixels(picture, "20 0 0000FF 20 9 CC0033");
}

// A corner, and where the ground begins and ends.
TEST(MenuDrawing, TitlesHaveTheGroundThatTheirFlagsSay)
{
    const std::pair<UINT, const char*> aCases[] = {
        { 0, "0 0 6A240A 2 12 6A240A 97 12 6A240A" },
        { TITLE_GRADIENT, "0 0 6A240A 2 12 6A240A 97 12 F7F8F9" },
        { TITLE_ROUNDED, "0 0 C8D0D4 2 12 6A240A 97 12 6A240A" },
        { TITLE_RAISED, "0 0 FFFFFF 2 12 6A240A 97 12 6A240A" },
        { TITLE_RAISED | TITLE_GRADIENT, "0 0 FFFFFF 2 12 6A240A 97 12 F7F8F9" },
        { TITLE_VERTICAL | TITLE_GRADIENT, "0 0 F7F8F9 50 23 6A240A 50 0 F7F8F9" },
    };
    for (const auto& [nFlags, pszPoints] : aCases)
    {
        SCOPED_TRACE(nFlags);
        CMemoryPicture picture(100, 24);
        CTitleView title;
        title.m_rect = CRect(0, 0, 100, 24);
        title.m_nFlags = nFlags;
        title.m_colours =
            TitleColours(ClassicSystem(), { NO_TITLE_COLOUR, NO_TITLE_COLOUR, NO_TITLE_COLOUR });
        DrawMenuTitle(CDC::FromHandle(picture), title, ClassicSystem());
        ExpectPixels(picture, pszPoints, NEARLY);
    }
}

TEST(MenuDrawing, WhatIsDrawnInMemoryIsCopiedAtTheEnd)
{
    CMemoryPicture picture(10, 10);
    {
        CNewMemDC memory(CDC::FromHandle(picture), CRect(2, 2, 8, 8));
        memory.FillSolidRect(0, 0, 5, 10, 0x0000FF);
        ExpectPixels(picture, "3 3 FFFFFF");
    }
    ExpectPixels(picture, "3 3 0000FF 1 3 FFFFFF");
    EXPECT_EQ(CNewBrushList::Brush(0x123456), CNewBrushList::Brush(0x123456));
}
}  // namespace
