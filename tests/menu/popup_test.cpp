// Menus that are open: their windows taken over and given back, in every style.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <tuple>

#include "control/win32/resource.h"
#include "menu/win32/accelerator_text.h"
#include "menu/win32/menu_hook.h"
#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_frame.h"
#include "menu/win32/windows_system.h"
#include "pixels.h"
#include "platform/gdi/memory_picture.h"
#include "platform/win/desk.h"
#include "platform/win/dialog_template.h"
#include "platform/win/holdings.h"
#include "platform/win/window_dc.h"
#include "systems.h"

namespace
{
constexpr UINT s_nNew = 800;
constexpr UINT s_nOpen = 801;
constexpr UINT s_nGrid = 802;
constexpr UINT s_nSave = 803;
constexpr UINT s_nInSubmenu = 804;

std::function<void(HWND)> s_onIdle;  // with a menu's window

// The owner of menus: each that is open is looked at when nothing else happens, and ended.
template <class TWindow>
class TOwner : public TWindow
{
protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_ENTERIDLE && wParam == MSGF_MENU)
        {
            if (s_onIdle)
                s_onIdle(reinterpret_cast<HWND>(lParam));
            ::EndMenu();
        }
        return TWindow::WindowProc(nMessage, wParam, lParam);
    }
    void PostNcDestroy() override {}
};
using COwner = TOwner<CNewFrameWnd>;

std::shared_ptr<CNewMenuBitmaps> Icons()
{
    const std::tuple<UINT, COLORREF, COLORREF> aIcons[] = { { s_nNew, 0xFFFFFF, 0xA00000 },
                                                            { s_nOpen, 0x5AD2FA, 0x006496 },
                                                            { s_nSave, 0xDC825A, 0x6E2814 } };
    const auto pIcons = std::make_shared<CNewMenuBitmaps>();
    for (const auto& [nID, crPaper, crInk] : aIcons)
    {
        CMemoryPicture picture(16, 15);
        Fill(picture, { 0, 0, 16, 15 }, 0xC0C0C0);
        Fill(picture, { 2, 1, 14, 14 }, crInk);
        Fill(picture, { 3, 2, 13, 13 }, crPaper);
        for (int y = 5; y < 12; y += 3)
            Fill(picture, { 5, y, 11, y + 1 }, crInk);
        pIcons->AddBitmap(nID, picture.Bitmap(), 0xC0C0C0);
    }
    return pIcons;
}

// One of everything.
class CFilledMenu : public CNewMenu
{
public:
    CFilledMenu()
    {
        CreatePopupMenu();
        AppendMenu(MF_STRING, s_nNew, "&New\tCtrl+N");
        AppendMenu(MF_STRING, s_nOpen, "&Open...\tCtrl+O");
        AppendMenu(MF_STRING | MF_CHECKED, s_nGrid, "&Grid");
        AppendMenu(MF_SEPARATOR);
        AppendMenu(MF_STRING | MF_GRAYED, s_nSave, "&Save\tCtrl+S");
        CMenu sub;
        sub.CreatePopupMenu();
        sub.AppendMenu(MF_STRING, s_nOpen, "A &metafile");
        sub.AppendMenu(MF_STRING, s_nInSubmenu, "A &picture");
        AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), "&Export");
        SetDefaultItem(s_nNew);
        InsertTitle(0, L"Formula", TITLE_GRADIENT);
        SetIcons(Icons());
    }
};

class MenuPopup : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(
            m_owner.Create(nullptr, "owner", WS_POPUP | WS_VISIBLE, CRect(100, 100, 500, 400)));
        m_owner.m_bAutoMenuEnable = FALSE;
        m_plain.CreateEx(0, nullptr, "plain", WS_POPUP | WS_VISIBLE, CRect(700, 700, 800, 800),
                         &m_owner, 0);
        m_system.m_bWine = false;
        SetShadow(true);
        ::SetCursorPos(10, 10);
    }
    void TearDown() override
    {
        m_owner.DestroyWindow();
        SetMenuSystem(nullptr);
        GetMenuSettings() = CMenuSettings();
        CNewMenu::SetStyle(DEFAULT_MENU_STYLE);
    }
    // Whether the system draws the shadows of menus.
    void SetShadow(bool bShadow)
    {
        m_system.m_bDropShadow = bShadow;
        SetMenuSystem(&m_system);
    }
    // A menu opens, is looked at, and closes.
    static void Open(CWnd& owner, CMenu& menu, const std::function<void(HWND)>& look)
    {
        bool bSeen = false;
        s_onIdle = [&](HWND hWnd)
        {
            bSeen = true;
            look(hWnd);
        };
        const RECT exclude = { 150, 150, 200, 200 };
        EXPECT_FALSE(menu.TrackPopupMenu(TPM_RETURNCMD, 200, 200, &owner, &exclude));
        EXPECT_TRUE(bSeen);
        s_onIdle = nullptr;
    }
    void Open(CMenu& menu, const std::function<void(HWND)>& look) { Open(m_owner, menu, look); }
    void Open(const std::function<void(HWND)>& look) { Open(m_menu, look); }

    COwner m_owner;
    TOwner<CWnd> m_plain;  // knows nothing of our menus
    CMenuSystem m_system = ReadMenuSystem();
    CFilledMenu m_menu;
};

void ExpectPixelsOf(HWND hWnd, const std::string& strPoints)
{
    const HDC hDC = ::GetWindowDC(hWnd);
    ExpectPixels(hDC, strPoints);
    ::ReleaseDC(hWnd, hDC);
}

std::string Place(int x, int y)
{
    return std::to_string(x) + ' ' + std::to_string(y) + ' ';
}

WNDPROC Procedure(HWND hWnd)
{
    return reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(hWnd, GWLP_WNDPROC));
}

CRect WindowRect(HWND hWnd)
{
    CRect window;
    ::GetWindowRect(hWnd, &window);
    return window;
}

// The window that shows a menu; which one is in front is not certain.
HWND WindowOf(HMENU hMenu)
{
    HWND hWnd = nullptr;
    do
        hWnd = ::FindWindowExA(nullptr, hWnd, "#32768", nullptr);
    while (hWnd != nullptr &&
           ::SendMessageA(hWnd, MN_GETHMENU, 0, 0) != reinterpret_cast<LRESULT>(hMenu));
    return hWnd;
}

// Of the place where menus are; for the page about them.
void WriteScreen(const std::string& strPath)
{
    CMemoryPicture picture(300, 190);
    ::BitBlt(picture, 0, 0, 300, 190, CClientDC(nullptr), 194, 194, SRCCOPY);
    std::ofstream file(strPath, std::ios::binary);
    for (const COLORREF colour : picture.Colours())
        file.write(reinterpret_cast<const char*>(&colour), sizeof colour);
}

TEST_F(MenuPopup, EveryStyleShowsItsItemsAndFrame)
{
    // For two styles each, the colour of an item, and a window's corner and second column in the
    // even one. In the odd one the frame is the system's.
    const std::pair<const char*, const char*> aCases[] = {
        { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" }, { "F7F8F9", "0 0 64686A 1 10 D0D7DA" },
        { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" }, { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" },
        { "F7F8F9", "0 0 64686A 1 10 FFFFFF" }, { "F7F8F9", "0 0 64686A 1 10 D0D7DA" },
    };
    const char* pszFolder = std::getenv("MIVORA_MENU_PICTURES");
    for (DWORD nStyle = 0; nStyle < 12; nStyle++)
    {
        SCOPED_TRACE(nStyle);
        const auto& [pszItem, pszFrame] = aCases[nStyle / 2];
        CNewMenu::SetStyle(nStyle);
        CFilledMenu menu;
        const auto look = [&](HWND hSubmenu)
        {
            const HWND hMenu = WindowOf(menu);
            EXPECT_NE(hMenu, hSubmenu);
            for (const HWND hWnd : { hMenu, hSubmenu })
            {
                EXPECT_NE(CNewMenuHook::Find(hWnd), nullptr);
                ExpectPixelsOf(hWnd, nStyle % 2 == 0 ? pszFrame : "");
            }
            CRect item;
            ::GetMenuItemRect(nullptr, menu, 1, &item);
            EXPECT_GE(item.Height(), 19);
            const CRect window = WindowRect(hMenu);
            ExpectPixelsOf(hMenu, Place(window.Width() - 16, item.top + 4 - window.top) + pszItem);
            if (pszFolder != nullptr)
                WriteScreen(pszFolder + ("/style-" + std::to_string(nStyle)) + ".rgba");
        };
        for (CWnd* pOwner : { static_cast<CWnd*>(&m_plain), static_cast<CWnd*>(&m_owner) })
        {
            SetShadow(pOwner == &m_plain);
            PumpFor(pszFolder != nullptr ? 300 : 0);  // until the screen has what shadows darken
            for (const WPARAM nKey : { VK_UP, VK_RIGHT })
                pOwner->PostMessage(WM_KEYDOWN, nKey);
            Open(*pOwner, menu, look);
        }
    }
}

TEST_F(MenuPopup, TheProcedureComesAndGoes)
{
    CMenu plain;
    plain.CreatePopupMenu();
    plain.AppendMenu(MF_STRING, s_nNew, "plain");
    for (const bool bAny : { true, false })
    {
        CNewMenu::SetAnyMenu(bAny);
        HWND hWindow = nullptr;
        Open(
            [&](HWND hWnd)
            {
                hWindow = hWnd;
                const ATOM nAtom = ::GlobalFindAtomA("OldMenuProc");
                ASSERT_NE(nAtom, 0);
                const auto pfnOld = reinterpret_cast<WNDPROC>(::GetPropA(hWnd, MAKEINTATOM(nAtom)));
                EXPECT_EQ(pfnOld, CNewMenuHook::Find(hWnd)->m_pfnOld);
                EXPECT_NE(pfnOld, Procedure(hWnd));
            });
        EXPECT_EQ(::GlobalFindAtomA("OldMenuProc"), 0);
        EXPECT_EQ(CNewMenuHook::Find(hWindow), nullptr);
        Open(plain, [&](HWND hWnd) { EXPECT_EQ(CNewMenuHook::Find(hWnd) != nullptr, bAny); });
    }
}

TEST_F(MenuPopup, TheLibraryMayGoWhileAMenuIsOpen)
{
    Open(
        [&](HWND hWnd)
        {
            const LONG nStyle = ::GetWindowLongW(hWnd, GWL_STYLE);
            const WNDPROC pfnOld = CNewMenuHook::Find(hWnd)->m_pfnOld;
            CNewMenuThreadHook::EndAll();
            EXPECT_EQ(Procedure(hWnd), pfnOld);
            EXPECT_EQ(CNewMenuHook::Find(hWnd), nullptr);
            EXPECT_EQ(::GetWindowLongW(hWnd, GWL_STYLE) & WS_VISIBLE, nStyle & WS_VISIBLE);
        });
    CFilledMenu next;  // the hook is set again where it is needed
    Open(next, [](HWND hWnd) { EXPECT_NE(CNewMenuHook::Find(hWnd), nullptr); });
}

// What the system's menus here never send, sent by hand.
TEST_F(MenuPopup, MessagesOfTheWindowAreAnswered)
{
    CNewMenu::SetStyle(2);
    const auto look = [&](HWND hWnd)
    {
        const bool bShadow = m_system.m_bDropShadow;
        RECT inside = { 100, 100, 300, 300 };
        ::SendMessageA(hWnd, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&inside));
        EXPECT_EQ(CRect(inside), bShadow ? CRect(102, 102, 298, 298) : CRect(102, 102, 295, 294));
        const CRect window = WindowRect(hWnd);
        WINDOWPOS position = { hWnd,           nullptr,         window.left,   window.top + 1,
                               window.Width(), window.Height(), SWP_NOACTIVATE };
        ::SendMessageA(hWnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&position));
        EXPECT_EQ(position.y, window.top);
        EXPECT_EQ(position.cx - window.Width(), bShadow ? -2 : 2);
        EXPECT_EQ(position.cy - window.Height(), bShadow ? -2 : 2);

        CMemoryPicture picture(window.Width(), window.Height());
        ::SendMessageA(hWnd, WM_PRINT, reinterpret_cast<WPARAM>(HDC(picture)), 0);
        const int x = window.Width() - (bShadow ? 1 : 5);  // the frame's last column
        ExpectPixels(picture, Place(x, 20) + "64686A 0 0 64686A 1 10 D0D7DA 2 1 F7F8F9");
        EXPECT_NE(::GetPixel(picture, x + 1, 20), 0x64686AU);
        ExpectPixels(picture, "30 30 F7F8F9");  // items

        ::SendMessageA(hWnd, WM_KEYDOWN, VK_ESCAPE, 0);
        EXPECT_TRUE(CNewMenuHook::Find(hWnd)->m_bEscape);
    };
    for (const bool bShadow : { true, false })
    {
        SetShadow(bShadow);
        Open(look);
    }
}

// The record that knows of a key; another opening of the same window begins a new one.
TEST_F(MenuPopup, AWindowThatGoesElsewhereIsGivenBack)
{
    for (const UINT nFlags : { SWP_NOSIZE, 0 })
    {
        CFilledMenu menu;
        Open(menu,
             [&](HWND hWnd)
             {
                 ::SendMessageA(hWnd, WM_KEYDOWN, VK_ESCAPE, 0);
                 ::SetWindowPos(hWnd, nullptr, 300, 300, 90, 90,
                                nFlags | SWP_NOACTIVATE | SWP_NOZORDER);
                 ASSERT_NE(CNewMenuHook::Find(hWnd), nullptr);
                 EXPECT_EQ(CNewMenuHook::Find(hWnd)->m_bEscape, nFlags == SWP_NOSIZE);
             });
    }
}

TEST_F(MenuPopup, AShadowOfItsOwnDarkensTheScreen)
{
    SetShadow(false);
    CNewMenu::SetStyle(2);
    m_owner.UpdateWindow();
    PumpFor(200);  // until the screen has it
    Open(
        [&](HWND hWnd)
        {
            const int nWidth = WindowRect(hWnd).Width();
            ExpectPixelsOf(hWnd, Place(nWidth - 1, 0) + "FFFFFF");   // the owner
            ExpectPixelsOf(hWnd, Place(nWidth - 4, 30) + "878787");  // darkened by 120
            ExpectPixelsOf(hWnd, Place(nWidth - 1, 30) + "E1E1E1");  // by 30
        });
}

TEST_F(MenuPopup, OpacityMakesTheWindowLayered)
{
    CNewMenu::SetStyle(2);
    CNewMenu::SetOpacity(128);
    Open(
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

// A window without an object: the menu has one of its own meanwhile.
TEST_F(MenuPopup, CommandsComeToTheOwnerOrToItsStandIn)
{
    const HWND hStatic = ::CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 100, 100, 300, 300,
                                         nullptr, nullptr, nullptr, nullptr);
    static int s_nOpened;
    s_nOpened = 0;
    const WNDPROC pfnCount = [](HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) -> LRESULT
    {
        s_nOpened += nMessage == WM_INITMENUPOPUP;
        return ::DefWindowProcW(hWnd, nMessage, wParam, lParam);
    };
    ::SetWindowLongPtrW(hStatic, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnCount));
    for (const WPARAM nKey : { VK_DOWN, VK_RETURN })
        ::PostMessageA(hStatic, WM_KEYDOWN, nKey, 0);
    EXPECT_TRUE(m_menu.TrackPopupMenu(0, 200, 200, CWnd::FromHandle(hStatic)));
    MSG message = {};
    EXPECT_TRUE(::PeekMessageA(&message, hStatic, WM_COMMAND, WM_COMMAND, PM_REMOVE));
    EXPECT_EQ(message.wParam, s_nNew);
    EXPECT_EQ(s_nOpened, 1);
    ::DestroyWindow(hStatic);
}

TEST_F(MenuPopup, ItemsKeepTheirNamesForScreenReaders)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA | MIIM_FTYPE;
    ASSERT_TRUE((m_menu.Synchronise(), ::GetMenuItemInfoW(m_menu, 3, TRUE, &info)));
    EXPECT_NE(info.fType & MFT_OWNERDRAW, 0U);
    const auto* pName = reinterpret_cast<const MSAAMENUINFO*>(info.dwItemData);
    EXPECT_EQ(pName->dwMSAASignature, static_cast<DWORD>(MSAA_MENU_SIG));
    EXPECT_EQ(pName->cchWText, 5U);
    EXPECT_STREQ(pName->pszWText, L"&Grid");
}

TEST_F(MenuPopup, RecordsFollowTheSystemsMenu)
{
    m_menu.Synchronise();
    CNewMenuItemData* pFirst = m_menu.FindItem(s_nNew);
    ASSERT_NE(pFirst, nullptr);
    m_menu.ModifyMenu(s_nNew, MF_BYCOMMAND | MF_STRING, s_nNew, "Other");
    m_menu.DeleteMenu(s_nSave, MF_BYCOMMAND);
    m_menu.AppendMenu(MF_STRING, 900, "New");
    m_menu.Synchronise();
    EXPECT_EQ(m_menu.FindItem(s_nNew), pFirst) << "with its icon";
    EXPECT_STREQ(pFirst->m_strText, "Other");
    EXPECT_EQ(m_menu.FindItem(s_nSave), nullptr);
    ASSERT_NE(m_menu.FindItem(900), nullptr);
    ASSERT_NE(m_menu.GetNewSubMenu(5), nullptr);
    EXPECT_NE(m_menu.GetNewSubMenu(5)->FindItem(s_nInSubmenu), nullptr);

    const HMENU hMenu = m_menu.DetachMenu();
    EXPECT_EQ(::GetMenuState(hMenu, 1, MF_BYPOSITION) & MF_OWNERDRAW, 0U) << "as it was";
    ::DestroyMenu(hMenu);
    EXPECT_EQ(CNewMenu::FromItemData(12345), nullptr);
}

TEST_F(MenuPopup, SizesFollowTheStyle)
{
    m_system.m_nMenuHeight = 19;
    SetMenuSystem(&m_system);
    // With the same items; the height of an icon of 15 and what the style adds.
    for (const DWORD nStyle : { 3, 7, 3 })
    {
        CNewMenu::SetStyle(nStyle);
        CRect item;
        Open([&](HWND) { ::GetMenuItemRect(nullptr, m_menu, 2, &item); });
        EXPECT_EQ(item.Height(), nStyle == 3 ? 22 : 24);
    }
}

TEST_F(MenuPopup, KeysFindTheirItems)
{
    m_menu.AppendMenu(MF_STRING, 900, "&Go");
    m_menu.AppendMenu(MF_STRING, 901, "A && &b");
    m_menu.Synchronise();
    const std::pair<UINT, LRESULT> aCases[] = { { 'N', MAKELRESULT(1, MNC_EXECUTE) },
                                                { 's', MAKELRESULT(5, MNC_EXECUTE) },
                                                { 'g', MAKELRESULT(3, MNC_SELECT) },
                                                { 'b', MAKELRESULT(8, MNC_EXECUTE) },
                                                { 'x', 0 },
                                                { '&', 0 } };
    for (const auto& [nChar, lAnswer] : aCases)
        EXPECT_EQ(CNewMenu::FindKeyboardItem(nChar, m_menu), lAnswer) << nChar;
    EXPECT_EQ(CNewMenu::FindKeyboardItem('N', nullptr), 0);
}

TEST_F(MenuPopup, WineGetsTheNextOddStyle)
{
    SetMenuSystem(nullptr);
    EXPECT_EQ(GetMenuSystem().m_bWine, RunsOnWine());
    DWORD nBefore = CNewMenu::GetStyle();
    for (DWORD nId = 0; nId < 12; ++nId)
    {
        EXPECT_EQ(CNewMenu::SetStyle(nId), nBefore);
        nBefore = StyleInForce(nId, RunsOnWine());
        EXPECT_EQ(CNewMenu::GetStyle(), nBefore);
    }
    CNewMenu::SetStyle(99);
    EXPECT_EQ(CNewMenu::GetStyle(), 11U);
}

TEST_F(MenuPopup, OpeningsLeaveNothingBehind)
{
    const auto openAll = [&]
    {
        for (DWORD nStyle = 0; nStyle < 12; ++nStyle)
        {
            CNewMenu::SetStyle(nStyle);
            CFilledMenu menu;
            Open(menu, [](HWND) {});
        }
    };
    ExpectNothingLeft(60, openAll);
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
    CFilledMenu other;
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
    ACCEL aKeys[] = { { FVIRTKEY | FCONTROL, 'S', s_nNew }, { FVIRTKEY, VK_F1, s_nGrid } };
    const HACCEL hKeys = ::CreateAcceleratorTableA(aKeys, 2);
    const std::wstring control = AcceleratorText(hKeys, s_nNew);  // as the keyboard calls it
    EXPECT_TRUE(control == L"\tCtrl+S" || control == L"\tControl+S");
    EXPECT_EQ(AcceleratorText(hKeys, s_nGrid), L"\tF1");
    EXPECT_EQ(AcceleratorText(hKeys, s_nSave), L"");
    ::DestroyAcceleratorTable(hKeys);
}

// ---- Bars

TEST_F(MenuPopup, ABarIsDrawnByItsFrame)
{
    CMenu bar;
    bar.CreateMenu();
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_menu.DetachMenu()), "&File");
    m_system.m_bFlatBar = false;
    SetMenuSystem(&m_system);
    COwner frame;
    ASSERT_TRUE(frame.CreateEx(0, "STATIC", "bar", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 300,
                               200, nullptr, bar.Detach()));
    EXPECT_NE(frame.GetNewMenu().GetNewSubMenu(0), nullptr);
    frame.UpdateWindow();
    CRect item;
    ASSERT_TRUE(::GetMenuItemRect(frame, ::GetMenu(frame), 0, &item));
    item.OffsetRect(CPoint(0, 0) - WindowRect(frame).TopLeft());
    const std::string strCorner = Place(item.left, item.top);
    ExpectPixelsOf(frame, strCorner + "C8D0D4");
    bool bOpened = false;
    s_onIdle = [&](HWND hMenu)
    {
        if (hMenu == nullptr || bOpened)
            return;
        bOpened = true;
        ExpectPixelsOf(frame, strCorner + "D77800");
        ExpectPixelsOf(frame, Place(item.right - 1, item.bottom - 6) + "B0B8BB");  // shadow
    };
    frame.SendMessage(WM_SYSCOMMAND, SC_KEYMENU, 'f');
    s_onIdle = nullptr;
    EXPECT_TRUE(bOpened);
    frame.DestroyWindow();
    EXPECT_EQ(frame.GetNewMenu().GetSafeHmenu(), nullptr);
}

TEST_F(MenuPopup, ADialogDrawsItsBarToo)
{
    CNewDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(CDialogTemplate(WS_POPUP | WS_CAPTION).Get(), &m_owner));
    CMenu bar;
    bar.CreateMenu();
    bar.AppendMenu(MF_STRING, s_nNew, "&First");
    dialog.SetMenu(&bar);
    dialog.AttachBar();
    EXPECT_NE(dialog.GetNewMenu().FindItem(s_nNew), nullptr);
    dialog.DestroyWindow();
    bar.Detach();
}
}  // namespace
