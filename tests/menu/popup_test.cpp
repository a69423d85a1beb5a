// Menus that are open: their windows taken over and given back, in every style.
#include <windows.h>

#include <gtest/gtest.h>
#include <psapi.h>

#include <algorithm>
#include <functional>

#include "control/win32/resource.h"
#include "menu/win32/accelerator_text.h"
#include "menu/win32/menu_hook.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_frame.h"
#include "menu/win32/windows_system.h"
#include "platform/gdi/memory_picture.h"
#include "platform/win/desk.h"
#include "systems.h"

namespace
{
constexpr UINT s_nFirst = 800;
constexpr UINT s_nChecked = 801;
constexpr UINT s_nGrey = 802;
constexpr UINT s_nInSubmenu = 803;

// The owner of menus: it looks at each that is open when nothing else happens, and ends it.
class COwner : public CNewFrameWnd
{
public:
    std::function<void(HWND)> m_onIdle;
    UINT m_nCommand = 0;
    UINT m_nMeasured = 0;

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_ENTERIDLE && wParam == MSGF_MENU)
        {
            if (m_onIdle)
                m_onIdle(reinterpret_cast<HWND>(lParam));
            ::EndMenu();
        }
        m_nMeasured += nMessage == WM_MEASUREITEM;
        if (nMessage == WM_COMMAND)
            m_nCommand = LOWORD(wParam);
        return CNewFrameWnd::WindowProc(nMessage, wParam, lParam);
    }
    void PostNcDestroy() override {}
};

void Fill(CNewMenu& menu)
{
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, s_nFirst, "&First\tCtrl+F");
    menu.AppendMenu(MF_STRING | MF_CHECKED, s_nChecked, "&Checked");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, s_nGrey, "&Disabled");
    CMenu sub;
    sub.CreatePopupMenu();
    sub.AppendMenu(MF_STRING, s_nInSubmenu, "Inside");
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), "&More");
    menu.SetDefaultItem(s_nFirst);
}

class MenuPopup : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(
            m_owner.Create(nullptr, "owner", WS_POPUP | WS_VISIBLE, CRect(100, 100, 500, 400)));
        m_system = ReadMenuSystem();
        m_system.m_bWine = false;
        m_system.m_bDropShadow = true;
        SetMenuSystem(&m_system);
        ::SetCursorPos(10, 10);
    }
    void TearDown() override
    {
        m_owner.DestroyWindow();
        SetMenuSystem(nullptr);
        GetMenuSettings() = CMenuSettings();
        CNewMenu::SetStyle(DEFAULT_MENU_STYLE);
    }
    // The menu opens, is looked at, and closes.
    void Open(CNewMenu& menu, const std::function<void(HWND)>& look = nullptr)
    {
        bool bSeen = false;
        m_owner.m_onIdle = [&](HWND hWnd)
        {
            bSeen = true;
            if (look)
                look(hWnd);
        };
        menu.TrackPopupMenu(0, 200, 200, &m_owner);
        EXPECT_TRUE(bSeen);
        m_owner.m_onIdle = nullptr;
    }

    COwner m_owner;
    CMenuSystem m_system;
};

COLORREF PixelOf(HWND hWnd, CPoint point, bool bFrame)
{
    const HDC hDC = bFrame ? ::GetWindowDC(hWnd) : ::GetDC(hWnd);
    const COLORREF colour = ::GetPixel(hDC, point.x, point.y);
    ::ReleaseDC(hWnd, hDC);
    return colour;
}

TEST_F(MenuPopup, EveryStyleShowsItsItemsAndFrame)
{
    constexpr COLORREF crMenu = 0xC8D0D4;
    const struct
    {
        DWORD nStyle;
        COLORREF frame;      // the corner of the window; not looked at where it is the system's
        COLORREF innerLeft;  // the second column
        COLORREF body;       // of the first item
    } aCases[] = {
        { 0, crMenu, 0xFFFFFF, crMenu },      { 1, 0, 0, crMenu },
        { 2, 0x64686A, 0xD0D7DA, 0xF7F8F9 },  { 3, 0, 0, 0xF7F8F9 },
        { 4, crMenu, 0xFFFFFF, crMenu },      { 5, 0, 0, crMenu },
        { 6, crMenu, 0xFFFFFF, crMenu },      { 7, 0, 0, crMenu },
        { 8, 0x64686A, 0xFFFFFF, 0xF7F8F9 },  { 9, 0, 0, 0xF7F8F9 },
        { 10, 0x64686A, 0xD0D7DA, 0xF7F8F9 }, { 11, 0, 0, 0xF7F8F9 },
    };
    for (const auto& row : aCases)
    {
        CNewMenu::SetStyle(row.nStyle);
        CNewMenu menu;
        Fill(menu);
        Open(menu,
             [&](HWND hWnd)
             {
                 EXPECT_NE(CNewMenuHook::Find(hWnd), nullptr);
                 CRect item;
                 ::GetMenuItemRect(nullptr, menu, 0, &item);
                 ::MapWindowPoints(nullptr, hWnd, reinterpret_cast<POINT*>(&item), 2);
                 CRect client;
                 ::GetClientRect(hWnd, &client);
                 const int x = std::min(item.right, client.right) - 8;
                 EXPECT_EQ(PixelOf(hWnd, { x, item.top + 4 }, false), row.body) << row.nStyle;
                 if (row.nStyle % 2 != 0)
                     return;
                 EXPECT_EQ(PixelOf(hWnd, { 0, 0 }, true), row.frame) << row.nStyle;
                 EXPECT_EQ(PixelOf(hWnd, { 1, 10 }, true), row.innerLeft) << row.nStyle;
             });
    }
}

TEST_F(MenuPopup, TheProcedureComesAndGoes)
{
    CNewMenu menu;
    Fill(menu);
    CMenu plain;
    plain.CreatePopupMenu();
    plain.AppendMenu(MF_STRING, s_nFirst, "plain");
    for (const bool bAny : { true, false })
    {
        CNewMenu::SetAnyMenu(bAny);
        HWND hWindow = nullptr;
        Open(menu,
             [&](HWND hWnd)
             {
                 hWindow = hWnd;
                 const ATOM nAtom = ::GlobalFindAtomA("OldMenuProc");
                 ASSERT_NE(nAtom, 0);
                 const HANDLE hOld = ::GetPropA(hWnd, MAKEINTATOM(nAtom));
                 EXPECT_EQ(reinterpret_cast<WNDPROC>(hOld), CNewMenuHook::Find(hWnd)->m_pfnOld);
                 EXPECT_NE(reinterpret_cast<LONG_PTR>(hOld),
                           ::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
             });
        EXPECT_EQ(::GlobalFindAtomA("OldMenuProc"), 0);
        EXPECT_EQ(CNewMenuHook::Find(hWindow), nullptr);
        m_owner.m_onIdle = [&](HWND hWnd)
        {
            EXPECT_EQ(CNewMenuHook::Find(hWnd) != nullptr, bAny);
        };
        plain.TrackPopupMenu(0, 200, 200, &m_owner);
    }
}

TEST_F(MenuPopup, TheLibraryMayGoWhileAMenuIsOpen)
{
    CNewMenu menu;
    Fill(menu);
    Open(menu,
         [&](HWND hWnd)
         {
             const LONG nStyle = ::GetWindowLongW(hWnd, GWL_STYLE);
             const WNDPROC pfnOld = CNewMenuHook::Find(hWnd)->m_pfnOld;
             CNewMenuThreadHook::EndAll();
             EXPECT_EQ(reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC)), pfnOld);
             EXPECT_EQ(CNewMenuHook::Find(hWnd), nullptr);
             EXPECT_EQ(::GetWindowLongW(hWnd, GWL_STYLE) & WS_VISIBLE, nStyle & WS_VISIBLE);
         });
    CNewMenu next;  // the hook is set again where it is needed
    Fill(next);
    Open(next, [](HWND hWnd) { EXPECT_NE(CNewMenuHook::Find(hWnd), nullptr); });
}

// What the system's menus here never send, sent by hand.
TEST_F(MenuPopup, MessagesOfTheWindowAreAnswered)
{
    CNewMenu::SetStyle(2);
    CNewMenu menu;
    Fill(menu);
    for (const bool bShadow : { true, false })
    {
        m_system.m_bDropShadow = bShadow;
        SetMenuSystem(&m_system);
        Open(menu,
             [&](HWND hWnd)
             {
                 RECT inside = { 100, 100, 300, 300 };
                 ::SendMessageA(hWnd, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&inside));
                 EXPECT_EQ(CRect(inside),
                           bShadow ? CRect(102, 102, 298, 298) : CRect(102, 102, 295, 294));
                 CRect window;
                 ::GetWindowRect(hWnd, &window);
                 WINDOWPOS position = { hWnd,           nullptr,        window.left,
                                        window.top + 1, window.Width(), window.Height(),
                                        SWP_NOACTIVATE };
                 ::SendMessageA(hWnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
                 EXPECT_EQ(position.y, window.top);
                 EXPECT_EQ(position.cx - window.Width(), bShadow ? -2 : 2);
                 EXPECT_EQ(position.cy - window.Height(), bShadow ? -2 : 2);

                 CMemoryPicture picture(window.Width(), window.Height());
                 ::SendMessageA(hWnd, WM_PRINT, reinterpret_cast<WPARAM>(HDC(picture)), 0);
                 EXPECT_EQ(::GetPixel(picture, 0, 0), 0x64686AU);
                 EXPECT_EQ(::GetPixel(picture, 1, 10), 0xD0D7DAU);
                 EXPECT_EQ(::GetPixel(picture, 2, 1), 0xF7F8F9U);
                 const int nShadow = bShadow ? 1 : 5;  // the frame's last column
                 EXPECT_EQ(::GetPixel(picture, window.Width() - nShadow, 20), 0x64686AU);
                 EXPECT_NE(::GetPixel(picture, window.Width() - nShadow + 1, 20), 0x64686AU);
                 EXPECT_EQ(::GetPixel(picture, 30, 30), 0xF7F8F9U) << "items";

                 ::SendMessageA(hWnd, WM_KEYDOWN, VK_ESCAPE, 0);
                 EXPECT_TRUE(CNewMenuHook::Find(hWnd)->m_bEscape);
             });
    }
}

TEST_F(MenuPopup, AWindowThatGoesElsewhereIsGivenBack)
{
    // The record that knows of a key; another opening of the same window begins a new one.
    const struct
    {
        const char* pszName;
        UINT nFlags;
        bool bStays;
    } aCases[] = { { "moved", SWP_NOSIZE, true }, { "moved and sized", 0, false } };
    for (const auto& row : aCases)
    {
        CNewMenu menu;
        Fill(menu);
        Open(menu,
             [&](HWND hWnd)
             {
                 ::SendMessageA(hWnd, WM_KEYDOWN, VK_ESCAPE, 0);
                 ::SetWindowPos(hWnd, nullptr, 300, 300, 90, 90,
                                row.nFlags | SWP_NOACTIVATE | SWP_NOZORDER);
                 ASSERT_NE(CNewMenuHook::Find(hWnd), nullptr);
                 EXPECT_EQ(CNewMenuHook::Find(hWnd)->m_bEscape, row.bStays) << row.pszName;
             });
    }
}

TEST_F(MenuPopup, AShadowOfItsOwnDarkensTheScreen)
{
    m_system.m_bDropShadow = false;
    SetMenuSystem(&m_system);
    CNewMenu::SetStyle(2);
    CNewMenu menu;
    Fill(menu);
    m_owner.UpdateWindow();
    PumpUntil([] { return false; }, 200);  // until the screen has it
    Open(menu,
         [&](HWND hWnd)
         {
             CRect window;
             ::GetWindowRect(hWnd, &window);
             const COLORREF behind = PixelOf(hWnd, { window.Width() - 1, 0 }, true);
             const COLORREF shadow = PixelOf(hWnd, { window.Width() - 4, 30 }, true);
             EXPECT_EQ(behind, 0xFFFFFFU) << "the owner";
             EXPECT_EQ(shadow, 0x878787U) << "darkened by 120";
             EXPECT_EQ(PixelOf(hWnd, { window.Width() - 1, 30 }, true), 0xE1E1E1U) << "by 30";
         });
}

TEST_F(MenuPopup, OpacityMakesTheWindowLayered)
{
    CNewMenu::SetStyle(2);
    CNewMenu::SetOpacity(128);
    CNewMenu menu;
    Fill(menu);
    Open(menu,
         [](HWND hWnd)
         {
             EXPECT_NE(::GetWindowLongA(hWnd, GWL_EXSTYLE) & WS_EX_LAYERED, 0);
             ::SetWindowLongA(hWnd, GWL_EXSTYLE, 0);
             ::SendMessageA(hWnd, WM_TIMER, CNewMenuHook::LAYER_TIMER, 0);
             BYTE nAlpha = 0;
             DWORD nFlags = 0;
             EXPECT_TRUE(::GetLayeredWindowAttributes(hWnd, nullptr, &nAlpha, &nFlags));
             EXPECT_EQ(nAlpha, 128);
             CNewMenuThreadHook::EndAll();
             EXPECT_EQ(::GetWindowLongA(hWnd, GWL_EXSTYLE) & WS_EX_LAYERED, 0) << "as it was";
         });
}

TEST_F(MenuPopup, CommandsComeToTheOwnerOrToItsStandIn)
{
    // A window without an object: the menu has one of its own meanwhile.
    const HWND hStatic = ::CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 100, 100, 300, 300,
                                         nullptr, nullptr, nullptr, nullptr);
    static UINT s_nCommand;
    s_nCommand = 0;
    static WNDPROC s_pfnOld;
    s_pfnOld = reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(
        hStatic, GWLP_WNDPROC,
        reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(
            [](HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) -> LRESULT
            {
                if (nMessage == WM_COMMAND)
                    s_nCommand = LOWORD(wParam);
                if (nMessage == WM_INITMENUPOPUP)
                {
                    for (const WPARAM nKey : { VK_DOWN, VK_RETURN })
                    {
                        ::PostMessageA(::GetActiveWindow() != nullptr ? ::GetActiveWindow() : hWnd,
                                       WM_KEYDOWN, nKey, 0);
                    }
                }
                return ::CallWindowProcA(s_pfnOld, hWnd, nMessage, wParam, lParam);
            }))));
    CNewMenu menu;
    Fill(menu);
    CWnd* pStatic = CWnd::FromHandle(hStatic);
    EXPECT_TRUE(menu.TrackPopupMenu(0, 200, 200, pStatic));
    EXPECT_TRUE(PumpUntil([] { return s_nCommand == s_nFirst; }, 2000));
    ::DestroyWindow(hStatic);
}

TEST_F(MenuPopup, ItemsKeepTheirNamesForScreenReaders)
{
    CNewMenu menu;
    Fill(menu);
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA | MIIM_FTYPE;
    ASSERT_TRUE((menu.Synchronise(), ::GetMenuItemInfoW(menu, 1, TRUE, &info)));
    EXPECT_NE(info.fType & MFT_OWNERDRAW, 0U);
    const auto* pName = reinterpret_cast<const MSAAMENUINFO*>(info.dwItemData);
    EXPECT_EQ(pName->dwMSAASignature, static_cast<DWORD>(MSAA_MENU_SIG));
    EXPECT_EQ(pName->cchWText, 8U);
    EXPECT_STREQ(pName->pszWText, L"&Checked");
}

TEST_F(MenuPopup, RecordsFollowTheSystemsMenu)
{
    CNewMenu menu;
    Fill(menu);
    menu.Synchronise();
    CNewMenuItemData* pFirst = menu.FindItem(s_nFirst);
    ASSERT_NE(pFirst, nullptr);
    menu.ModifyMenu(s_nFirst, MF_BYCOMMAND | MF_STRING, s_nFirst, "Other");
    menu.DeleteMenu(s_nGrey, MF_BYCOMMAND);
    menu.AppendMenu(MF_STRING, 900, "New");
    menu.Synchronise();
    EXPECT_EQ(menu.FindItem(s_nFirst), pFirst) << "with its icon";
    EXPECT_STREQ(pFirst->m_strText, "Other");
    EXPECT_EQ(menu.FindItem(s_nGrey), nullptr);
    ASSERT_NE(menu.FindItem(900), nullptr);
    ASSERT_NE(menu.GetNewSubMenu(3), nullptr);
    EXPECT_NE(menu.GetNewSubMenu(3)->FindItem(s_nInSubmenu), nullptr);

    const HMENU hMenu = menu.DetachMenu();
    EXPECT_EQ(::GetMenuState(hMenu, 0, MF_BYPOSITION) & MF_OWNERDRAW, 0U) << "as it was";
    ::DestroyMenu(hMenu);
    EXPECT_EQ(CNewMenu::FromItemData(12345), nullptr);
}

TEST_F(MenuPopup, SizesFollowTheStyle)
{
    CNewMenu menu;
    Fill(menu);
    const struct
    {
        DWORD nStyle;
        int nHeight;  // of an icon of 15 and what the style adds
    } aCases[] = { { 3, 22 }, { 7, 24 }, { 3, 22 } };
    m_system.m_nMenuHeight = 19;
    SetMenuSystem(&m_system);
    for (const auto& row : aCases)
    {
        CNewMenu::SetStyle(row.nStyle);
        Open(menu,
             [&](HWND)
             {
                 CRect item;
                 ::GetMenuItemRect(nullptr, menu, 1, &item);
                 EXPECT_EQ(item.Height(), row.nHeight) << row.nStyle;
             });
    }
}

TEST_F(MenuPopup, KeysFindTheirItems)
{
    CNewMenu menu;
    Fill(menu);
    menu.AppendMenu(MF_STRING, 900, "&Copy");
    menu.AppendMenu(MF_STRING, 901, "A && &b");
    menu.Synchronise();
    const struct
    {
        UINT nChar;
        LRESULT lAnswer;
    } aCases[] = { { 'F', MAKELRESULT(0, MNC_EXECUTE) },
                   { 'd', MAKELRESULT(3, MNC_EXECUTE) },
                   { 'c', MAKELRESULT(1, MNC_SELECT) },
                   { 'b', MAKELRESULT(6, MNC_EXECUTE) },
                   { 'x', 0 },
                   { '&', 0 } };
    for (const auto& row : aCases)
        EXPECT_EQ(CNewMenu::FindKeyboardItem(row.nChar, menu), row.lAnswer) << row.nChar;
    EXPECT_EQ(CNewMenu::FindKeyboardItem('F', nullptr), 0);
}

TEST_F(MenuPopup, WineGetsTheNextOddStyle)
{
    SetMenuSystem(nullptr);
    EXPECT_EQ(GetMenuSystem().m_bWine, RunsOnWine());
    CNewMenu::SetStyle(0);
    for (DWORD nId = 0; nId < 12; ++nId)
    {
        EXPECT_EQ(CNewMenu::SetStyle(nId), StyleInForce(nId == 0 ? 0 : nId - 1, RunsOnWine()));
        EXPECT_EQ(g_pMenuTheme->m_nId, StyleInForce(nId, RunsOnWine()));
        EXPECT_EQ(CNewMenu::GetStyle(), g_pMenuTheme->m_nId);
    }
    CNewMenu::SetStyle(99);
    EXPECT_EQ(CNewMenu::GetStyle(), 11U);
}

SIZE_T MemoryInUse()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

TEST_F(MenuPopup, AThousandOpeningsLeaveNothingBehind)
{
    const auto openOnce = [&](DWORD nStyle)
    {
        CNewMenu::SetStyle(nStyle);
        CNewMenu menu;
        Fill(menu);
        menu.InsertTitle(0, L"Title", TITLE_GRADIENT);
        Open(menu);
    };
    for (DWORD n = 0; n < 48; ++n)
        openOnce(n % 12);
    const SGuiHandles before = SGuiHandles::Count();
    const SIZE_T nMemory = MemoryInUse();
    for (DWORD n = 0; n < 1000; ++n)
        openOnce(n % 12);
    const SGuiHandles after = SGuiHandles::Count();
    EXPECT_LE(after.nUser, before.nUser + 2);
    EXPECT_LE(after.nGdi, before.nGdi + 2);
    EXPECT_LE(MemoryInUse(), nMemory + 256 * 1024);
}

// The control's own menu, from the resources.
TEST_F(MenuPopup, ResourcesGiveItemsAndIcons)
{
    CNewMenu menu;
    EXPECT_FALSE(menu.LoadMenu(999));
    ASSERT_TRUE(menu.LoadMenu(IDR_FORMULA_MENU));
    CNewMenu* pPopup = menu.GetNewSubMenu(0);
    ASSERT_NE(pPopup, nullptr);
    EXPECT_FALSE(pPopup->LoadToolBar(999));
    const CNewMenuItemData* pItem = pPopup->FindItem(ID_FORMULA_SAVE);
    ASSERT_NE(pItem, nullptr);
    EXPECT_EQ(pItem->GetWideText(), L"\u4FDD\u5B58\u4E3ATQX\u6587\u4EF6");
    EXPECT_EQ(pItem->m_nIcon, -1);
    ASSERT_TRUE(pPopup->LoadToolBar(IDR_FORMULA_TOOLBAR));
    EXPECT_EQ(pItem->m_nIcon, 0);
    EXPECT_EQ(pItem->m_pIcons->GetIconSize(), CSize(20, 20));
    EXPECT_EQ(pItem->m_pIcons->GetImageCount(), 3);

    // One list for all, while there is an item that points to it.
    const std::weak_ptr<CNewMenuIcons> pList = pItem->m_pIcons;
    CNewMenu other;
    Fill(other);
    other.AppendMenu(MF_STRING, ID_FORMULA_SAVE, "the same");
    other.Synchronise();
    ASSERT_TRUE(other.LoadToolBar(IDR_FORMULA_TOOLBAR));
    EXPECT_EQ(other.FindItem(ID_FORMULA_SAVE)->m_pIcons, pList.lock());
    menu.DestroyMenu();
    EXPECT_FALSE(pList.expired());
    other.DestroyMenu();
    EXPECT_TRUE(pList.expired());
}

TEST_F(MenuPopup, KeysOfCommandsHaveNames)
{
    ACCEL aKeys[] = { { FVIRTKEY | FCONTROL, 'S', s_nFirst }, { FVIRTKEY, VK_F1, s_nChecked } };
    const HACCEL hKeys = ::CreateAcceleratorTableA(aKeys, 2);
    const std::wstring control = AcceleratorText(hKeys, s_nFirst);  // as the keyboard calls it
    EXPECT_TRUE(control == L"\tCtrl+S" || control == L"\tControl+S");
    EXPECT_EQ(AcceleratorText(hKeys, s_nChecked), L"\tF1");
    EXPECT_EQ(AcceleratorText(hKeys, s_nGrey), L"");
    ::DestroyAcceleratorTable(hKeys);
}

// ---- Bars

TEST_F(MenuPopup, ABarIsDrawnByItsFrame)
{
    CMenu bar;
    bar.CreateMenu();
    CMenu popup;
    popup.CreatePopupMenu();
    popup.AppendMenu(MF_STRING, s_nFirst, "&First");
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup.Detach()), "&File");
    m_system.m_bFlatBar = false;
    SetMenuSystem(&m_system);
    COwner frame;
    ASSERT_TRUE(frame.CreateEx(0, "STATIC", "bar", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 300,
                               200, nullptr, bar.Detach()));
    EXPECT_NE(frame.GetNewMenu().GetNewSubMenu(0), nullptr);
    EXPECT_GT(frame.m_nMeasured, 0U);
    frame.UpdateWindow();
    CRect item;
    ASSERT_TRUE(::GetMenuItemRect(frame, ::GetMenu(frame), 0, &item));
    CRect window;
    frame.GetWindowRect(&window);
    item.OffsetRect(-window.left, -window.top);
    EXPECT_EQ(PixelOf(frame, item.TopLeft(), true), 0xC8D0D4U);
    bool bOpened = false;
    frame.m_onIdle = [&](HWND hMenu)
    {
        if (hMenu == nullptr || bOpened)
            return;
        bOpened = true;
        EXPECT_EQ(PixelOf(frame, item.TopLeft(), true), 0xD77800U);
        EXPECT_EQ(PixelOf(frame, { item.right - 1, item.bottom - 6 }, true), 0xB0B8BBU) << "shadow";
    };
    frame.SendMessage(WM_SYSCOMMAND, SC_KEYMENU, 'f');
    EXPECT_TRUE(bOpened);
    frame.DestroyWindow();
    EXPECT_EQ(frame.GetNewMenu().GetSafeHmenu(), nullptr);
}

TEST_F(MenuPopup, ADialogDrawsItsBarToo)
{
    struct
    {
        DLGTEMPLATE head;
        WORD aEmpty[3];  // menu, class, title
    } form = { { WS_POPUP | WS_CAPTION, 0, 0, 10, 10, 100, 60 }, {} };
    CNewDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(&form.head, &m_owner));
    CMenu bar;
    bar.CreateMenu();
    bar.AppendMenu(MF_STRING, s_nFirst, "&First");
    dialog.SetMenu(&bar);
    dialog.AttachBar();
    EXPECT_NE(dialog.GetNewMenu().FindItem(s_nFirst), nullptr);
    dialog.DestroyWindow();
    bar.Detach();
}
}  // namespace
