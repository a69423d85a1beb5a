// Colours, sizes and places of menus, as numbers.
#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <tuple>

#include "menu/colour.h"
#include "menu/frame_layout.h"
#include "menu/icon_images.h"
#include "menu/item_layout.h"
#include "menu/menu_colours.h"
#include "menu/menu_settings.h"
#include "menu/menu_style.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "systems.h"

void PrintTo(const CRect& rect, std::ostream* pStream)
{
    *pStream << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
}
void PrintTo(const CSize& size, std::ostream* pStream)
{
    *pStream << size.cx << ' ' << size.cy;
}

namespace
{
constexpr COLORREF s_crMenu = 0xC8D0D4;
constexpr COLORREF s_crWindow = 0xFFFFFF;
constexpr COLORREF s_crBlue = 0xD77800;

TEST(MenuColours, ArithmeticRoundsAndStaysInItsRange)
{
    const std::pair<COLORREF, COLORREF> aCases[] = {
        { DarkenColour(s_crMenu, 128), 0x64686A },
        { DarkenColour(0x646464, 1), 0x646464 },
        { DarkenColour(0x010203, 255), 0 },
        { LightenColour(s_crMenu, 128), 0xE4E8EA },
        { LightenColour(0x123456, 0), 0x123456 },
        { LightenColour(0x123456, 255), s_crWindow },
        { AddToColour(0x20F07F, 0x10), 0x30FF8F },
        { TintColour(s_crMenu, s_crWindow), 0xD0D7DA },
        { TintColour(s_crWindow, s_crMenu), 0xF7F8F9 },
        { TintColour(s_crWindow, s_crWindow), s_crWindow },
        { MixColours(s_crWindow, s_crBlue), 0xF4D7B3 },
        { MixColours(0x0F0F0F, 0x050505), 0x0D0D0D },
        { BlendColours(s_crWindow, s_crMenu, 100), 0xE8EBED },
        { BlendColours(0, s_crWindow, 255), 0xFEFEFE },
        { GreyColour(0x000105), 0x020202 },
        { GreyColour(0x0000FF), 0x555555 },
        { DimColour(s_crBlue), 0xBD5400 },
        { DimColour(s_crWindow), 0xD9B3B3 },
        { BandColour(0x0000FF, 0xFF0000, 0, 4), 0x0000FF },
        { BandColour(0x0000FF, 0xFF0000, 1, 4), 0x4000BF },
        { BandColour(0x0000FF, 0xFF0000, 4, 4), 0xFF0000 },
    };
    for (const auto& row : aCases)
        EXPECT_EQ(row.first, row.second) << &row - aCases;
    EXPECT_FALSE(IsBright(0x808080));
    EXPECT_TRUE(IsBright(0x818080));
    EXPECT_EQ(CountColours(-1), 64000);
    EXPECT_EQ(CountColours(20), 20);
}

TEST(MenuColours, DependOnTheSystem)
{
    CMenuSystem bright = ClassicSystem();
    bright.m_colours[COLOR_HIGHLIGHT] = 0x00FFFF;
    CMenuSystem brightThemed = bright;
    brightThemed.m_bTheme = true;
    CMenuSystem contrastInFewColours = HighContrastBlack();
    contrastInFewColours.m_nColours = 16;
    // Highlight, column, body, frame, text of a selected item and of another.
    const std::pair<CMenuSystem, std::array<COLORREF, 6>> aCases[] = {
        { ClassicSystem(), { 0xF4D7B3, 0xD0D7DA, 0xF7F8F9, 0x64686A, 0, 0 } },
        { bright, { 0xDBFFFF, 0xD0D7DA, 0xF7F8F9, 0x64686A, 0, 0 } },
        { brightThemed, { 0xB3FFFF, 0xD0D7DA, 0xF7F8F9, 0x64686A, 0, 0 } },
        { WithFewColours(), { s_crWindow, 0xC8D0D4, 0xF7F8F9, 0x64686A, 0, 0 } },
        { HighContrastBlack(), { 0x800080, 0, 0, s_crWindow, s_crWindow, s_crWindow } },
        { contrastInFewColours, { 0x800080, 0, 0, s_crWindow, s_crWindow, s_crWindow } },
        { HighContrastWhite(), { 0, s_crWindow, s_crWindow, 0, s_crWindow, 0 } },
    };
    for (const auto& [system, colours] : aCases)
    {
        SCOPED_TRACE(colours[0]);
        const CFlatColours flat = FlatColours(system, [](COLORREF c) { return c; });
        const CFrameColours frame = FlatFrameColours(system, 7, false);
        EXPECT_EQ((std::array{ HighlightColour(system), flat.m_column, flat.m_body, frame.m_outer,
                               ItemTextColour(system, true, false),
                               ItemTextColour(system, false, false) }),
                  colours);
        EXPECT_EQ(frame.m_innerLeft, 7U);
        EXPECT_EQ(FlatFrameColours(system, 7, true).m_innerLeft, system.Colour(COLOR_WINDOW));
        EXPECT_EQ(ItemTextColour(system, true, true), 0x6D6D6DU);
    }
    EXPECT_EQ(FlatFrameColours(ClassicSystem(), 7, false).m_inner, 0xF7F8F9U);

    // A device that shows both as one colour gets the plain ones.
    const CFlatColours coarse =
        FlatColours(ClassicSystem(), [](COLORREF c) { return c & 0x808080; });
    EXPECT_EQ(coarse.m_column, s_crMenu);
    EXPECT_EQ(coarse.m_body, s_crWindow);
}

TEST(MenuColours, GradientsComeFromTheThemeOrFromTwoColours)
{
    const std::pair<COLORREF, CGradientColours> aCases[] = {
        { 0xAADADA, { 0xDEF7F4, 0xACDED1, 0x91C6B7, 0x588060 } },
        { 0xE5D7D7, { 0xFAF4F3, 0xECE2E1, 0xB59799, 0x947C7C } },
        { 0xF5C2A3, { 0xFEECDD, 0xF9DBC4, 0xE2A981, 0x9C613B } },
        { 0x6A240A, { 0xBC9C91, 0xAD8778, 0x591E08, 0x3C1406 } },
    };
    CMenuSystem system = Themed();
    for (const auto& [base, colours] : aCases)
    {
        system.m_crTheme = base;
        EXPECT_EQ(GradientColours(system, 1, 2), colours) << std::hex << base;
    }
    EXPECT_EQ(GradientColours(ClassicSystem(), s_crWindow, s_crMenu),
              (CGradientColours{ s_crWindow, 0xE8EBED, s_crMenu, 0xA1A7AA }));
}

TEST(MenuColours, TitlesTakeTheirOwnOrTheSystems)
{
    const auto colours = [](COLORREF start, COLORREF end, COLORREF text)
    {
        const CTitleColours got = TitleColours(ClassicSystem(), { start, end, text });
        return std::array{ got.m_start, got.m_end, got.m_text };
    };
    EXPECT_EQ(colours(1, 2, 3), (std::array<COLORREF, 3>{ 1, 2, 3 }));
    EXPECT_EQ(colours(NO_TITLE_COLOUR, NO_TITLE_COLOUR, NO_TITLE_COLOUR),
              (std::array<COLORREF, 3>{ 0x6A240A, 0xF7F8F9, s_crWindow }));
}

TEST(MenuStyles, OddOnesLeaveTheFrameToTheSystem)
{
    for (DWORD nId = 0; nId < 12; ++nId)
    {
        const CMenuStyle* pStyle = FindMenuStyle(nId);
        ASSERT_NE(pStyle, nullptr);
        EXPECT_EQ(pStyle->m_bFrame, nId % 2 == 0);
        EXPECT_EQ(StyleInForce(nId, false), nId);
        EXPECT_EQ(StyleInForce(nId, true), nId / 2 * 2 + 1);
    }
    EXPECT_EQ(FindMenuStyle(12), nullptr);
    EXPECT_EQ(DEFAULT_MENU_STYLE, 2U);
}

TEST(MenuStyles, SystemsAreTold)
{
    const std::tuple<bool, int, int, int> aCases[] = {
        { false, 3, 10, 0 }, { true, 3, 51, 1 }, { false, 4, 0, 2 }, { false, 4, 10, 3 },
        { false, 4, 90, 4 }, { true, 4, 0, 5 },  { true, 5, 0, 6 },  { true, 5, 1, 7 },
        { true, 6, 0, 7 },   { true, 10, 0, 7 },
    };
    for (const auto& [bNT, nMajor, nMinor, nClass] : aCases)
    {
        EXPECT_EQ(static_cast<int>(ClassifyWindows(bNT, nMajor, nMinor)), nClass)
            << nMajor << '.' << nMinor;
    }
}

// Fields: text, icon, separator, submenu, bar, mnemonic.
TEST(MenuItems, AreMeasuredByTheStyle)
{
    constexpr CSize ICON(16, 15);
    constexpr CSize LABEL(50, 16);
    const CItemContent item{ LABEL, ICON };
    const CItemContent submenu{ LABEL, ICON, false, true };
    const CItemContent bar{ LABEL, ICON, false, true, true };
    const CItemContent marked{ LABEL, ICON, false, true, true, true };
    const CItemContent separator{ {}, ICON, true };
    const CItemContent large{ LABEL, { 20, 20 } };
    using enum EMeasureStyle;
    const std::tuple<EMeasureStyle, CItemContent, int, CSize> aCases[] = {
        { flat, item, 19, { 81, 22 } },    { flat, item, 23, { 83, 22 } },
        { flat, item, 24, { 84, 24 } },    { flat, submenu, 19, { 91, 22 } },
        { flat, large, 19, { 85, 27 } },   { flat, large, 28, { 90, 27 } },
        { flat, large, 29, { 90, 29 } },   { flat, bar, 19, { 50, 19 } },
        { flat, marked, 19, { 44, 19 } },  { flat, marked, 10, { 44, 17 } },
        { flat, separator, 19, { 3, 3 } }, { plain, item, 19, { 78, 20 } },
        { plain, large, 19, { 82, 24 } },  { plain, bar, 19, { 50, 20 } },
        { shaded, item, 19, { 82, 24 } },  { shaded, submenu, 19, { 82, 24 } },
    };
    for (const auto& [style, content, nMenuHeight, size] : aCases)
    {
        CMenuSystem system;
        system.m_nMenuHeight = nMenuHeight;
        EXPECT_EQ(MeasureItemIn(style, content, system), size)
            << static_cast<int>(style) << ' ' << nMenuHeight;
    }
    EXPECT_EQ(SystemItemSize({ 40, 30 }, 60, CMenuSystem()), CSize(60, 19));
    EXPECT_EQ(SystemItemSize({ 70, 30 }, 60, CMenuSystem()), CSize(70, 19));
}

TEST(MenuItems, HaveTheirPartsInPlace)
{
    const CRect item(10, 100, 150, 122);
    using CParts = std::array<CRect, 5>;  // column, body, icon, check, text
    // clang-format off
    const std::pair<CItemLayout, CParts> aCases[] = {
        { LayOutFlatItem(item, { 16, 15 }, false),
          { { { 10, 100, 34, 122 }, { 34, 100, 150, 122 }, { 14, 103, 30, 118 }, { 12, 101, 32, 120 }, { 49, 100, 146, 122 } } } },
        { LayOutFlatItem(item, { 16, 15 }, true),
          { { { 126, 100, 150, 122 }, { 10, 100, 126, 122 }, { 130, 103, 146, 118 }, { 128, 101, 148, 120 }, { 14, 100, 111, 122 } } } },
        { LayOutPlainItem(item, { 20, 20 }),
          { { {}, item, { 14, 101, 34, 121 }, { 12, 101, 36, 121 }, { 38, 100, 146, 122 } } } },
    };
    // clang-format on
    for (const auto& [layout, parts] : aCases)
    {
        EXPECT_EQ((CParts{ layout.m_column, layout.m_body, layout.m_icon, layout.m_check,
                           layout.m_text }),
                  parts);
    }
    EXPECT_EQ(aCases[0].first.m_separator, CRect(49, 100, 146, 122));
}

TEST(MenuFrames, LeaveRoomForTheShadowThatTheSystemDoesNotDraw)
{
    const CRect asked(100, 50, 206, 156);
    EXPECT_EQ(FrameSizes(true).m_topLeft, CSize(2, 2));
    EXPECT_EQ(MenuWindowRect(asked, true), CRect(100, 49, 204, 153));
    EXPECT_EQ(MenuWindowRect(asked, false), CRect(100, 49, 208, 157));
    EXPECT_EQ(ClientInside(asked, FrameSizes(true)), CRect(102, 52, 204, 154));
    EXPECT_EQ(ClientInside(asked, FrameSizes(false)), CRect(102, 52, 201, 150));
    EXPECT_EQ(FrameInside(asked, true), asked);
    EXPECT_EQ(FrameInside(asked, false), CRect(100, 50, 202, 152));
}

TEST(MenuFrames, RaisedOnesHaveTwoColours)
{
    CMemoryPicture picture(6, 5);
    CDC::FromHandle(picture)->Draw3dRect(CRect(1, 1, 5, 4), 0x0000FF, 0xFF0000);
    EXPECT_EQ(picture.Lines(),
              (std::vector<std::string>{ "......", ".rrrb.", ".r..b.", ".bbbb.", "......" }));
}

TEST(MenuFrames, ShadowsFade)
{
    // Line, place, darkness of a window's of 100 and of a bar's.
    const std::array<int, 4> aCases[] = {
        { 1, 0, 0, 0 },    { 4, 3, 0, 0 },    { 1, 4, 6, 6 },      { 4, 4, 24, 24 },
        { 2, 7, 48, 48 },  { 1, 8, 30, 30 },  { 4, 50, 120, 120 }, { 3, 95, 90, 90 },
        { 3, 96, 72, 90 }, { 3, 99, 18, 90 },
    };
    for (const auto& [nLine, nPlace, nWindow, nBar] : aCases)
    {
        EXPECT_EQ(WindowShadowDarkness(nLine, nPlace, 100), nWindow) << nPlace;
        EXPECT_EQ(BarShadowDarkness(nLine, nPlace), nBar) << nPlace;
    }
}

TEST(MenuTitles, TextIconAndLines)
{
    constexpr CSize LABEL(60, 16);
    constexpr CSize crNone;
    constexpr CSize ICON(16, 15);
    EXPECT_EQ(MeasureTitle(LABEL, crNone, 0), CSize(68, 20));
    EXPECT_EQ(MeasureTitle(LABEL, ICON, 0), CSize(88, 23));
    EXPECT_EQ(MeasureTitle(LABEL, crNone, TITLE_VERTICAL), CSize(20, 68));
    const CRect wide(0, 0, 200, 24);
    const CRect high(0, 0, 24, 200);
    using CPlaces = std::array<CRect, 4>;  // the text's corner, icon, two lines
    // clang-format off
    const std::tuple<CRect, CSize, UINT, CPlaces> aCases[] = {
        { wide, crNone, 0, { { { 2, 4, 2, 4 }, {}, {}, { 67, 11, 195, 13 } } } },
        { wide, ICON, 0, { { { 22, 4, 22, 4 }, { 2, 4, 18, 19 }, {}, { 87, 11, 195, 13 } } } },
        { wide, crNone, TITLE_ROUNDED, { { { 12, 4, 12, 4 }, {}, {}, { 77, 11, 195, 13 } } } },
        { { 0, 0, 70, 24 }, crNone, TITLE_ROUNDED, { { { 6, 4, 6, 4 }, {}, {}, {} } } },
        { wide, crNone, TITLE_CENTRED, { { { 71, 4, 71, 4 }, {}, { 5, 11, 64, 13 }, { 136, 11, 195, 13 } } } },
        { high, crNone, TITLE_VERTICAL, { { { 4, 198, 4, 198 }, {}, {}, { 11, 5, 13, 133 } } } },
        { high, ICON, TITLE_VERTICAL | TITLE_CENTRED, { { { 4, 120, 4, 120 }, { 4, 124, 20, 139 }, { 11, 146, 13, 195 }, { 11, 5, 13, 55 } } } },
    };
    // clang-format on
    for (const auto& [rect, icon, nFlags, places] : aCases)
    {
        const auto [iconPlace, text, lines] = LayOutTitle(rect, LABEL, icon, nFlags);
        EXPECT_EQ((CPlaces{ CRect(text, CSize()), iconPlace, lines[0], lines[1] }), places)
            << nFlags;
    }
}

TEST(MenuIcons, AreShadedBesideTheirMask)
{
    constexpr COLORREF crMask = 0xC0C0C0;
    const CIconImage strip{ { 4, 1 }, { crMask, 0x0000FF, 0xFFFFFF, 0x000000 } };
    using P = std::vector<COLORREF>;
    EXPECT_EQ(IconOfStrip(strip, { 2, 1 }, 1).m_pixels, (P{ 0xFFFFFF, 0x000000 }));
    EXPECT_EQ(DarkenedIcon(strip, crMask, 50).m_pixels, (P{ crMask, 0x0000CD, 0xCDCDCD, 0 }));
    EXPECT_EQ(DisabledIcon(strip, crMask).m_pixels, (P{ crMask, 0xAAAAAA, 0xFFFFFF, 0x808080 }));
}
}  // namespace
