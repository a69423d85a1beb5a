// Menus that are open: their windows taken over and given back, in every style.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "control/win32/resource.h"
#include "menu/win32/accelerator_text.h"
#include "menu/win32/menu_hook.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_frame.h"
#include "menu/win32/windows_system.h"
#include "pixels.h"
#include "platform/gdi/memory_picture.h"
#include "platform/win/desk.h"
#include "platform/win/dialog_template.h"
#include "platform/win/holdings.h"
#include "systems.h"

namespace
{
constexpr UINT s_nFirst = 800;
constexpr UINT s_nChecked = 801;
constexpr UINT s_nGrey = 802;
constexpr UINT s_nInSubmenu = 803;

// The owner of menus: it looks at each that is open when nothing else happens, and ends it.
template <class TWindow>
class TOwner : public TWindow
{
public:
    std::function<void(HWND)> m_onIdle;
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
        return TWindow::WindowProc(nMessage, wParam, lParam);
    }
    void PostNcDestroy() override {}
};
using COwner = TOwner<CNewFrameWnd>;

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
        m_plain.CreateEx(0, nullptr, "plain", WS_POPUP | WS_VISIBLE, CRect(700, 700, 800, 800),
                         &m_owner, 0);
        m_system.m_bWine = false;
        SetShadow(true);
        Fill(m_menu);
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
    template <class TWindow>
    void Open(TOwner<TWindow>& owner, CMenu& menu, const std::function<void(HWND)>& look)
    {
        bool bSeen = false;
        owner.m_onIdle = [&](HWND hWnd)
        {
            bSeen = true;
            look(hWnd);
        };
        const RECT exclude = { 150, 150, 200, 200 };
        EXPECT_FALSE(menu.TrackPopupMenu(TPM_RETURNCMD, 200, 200, &owner, &exclude));
        EXPECT_TRUE(bSeen);
        owner.m_onIdle = nullptr;
    }
    void Open(CMenu& menu, const std::function<void(HWND)>& look) { Open(m_owner, menu, look); }
    void Open(const std::function<void(HWND)>& look) { Open(m_menu, look); }

    COwner m_owner;
    TOwner<CWnd> m_plain;  // knows nothing of our menus
    CMenuSystem m_system = ReadMenuSystem();
    CNewMenu m_menu;
};

// Of the client area, or of the window with its frame.
void ExpectPixelsOf(HWND hWnd, const std::string& strPoints, bool bFrame = true)
{
    const HDC hDC = bFrame ? ::GetWindowDC(hWnd) : ::GetDC(hWnd);
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

TEST_F(MenuPopup, EveryStyleShowsItsItemsAndFrame)
{
    // The colour of the first item; the window's corner and second column, where the frame is not
    // the system's.
    const std::pair<const char*, const char*> aCases[] = {
        { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" }, { "C8D0D4", "" },
        { "F7F8F9", "0 0 64686A 1 10 D0D7DA" }, { "F7F8F9", "" },
        { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" }, { "C8D0D4", "" },
        { "C8D0D4", "0 0 C8D0D4 1 10 FFFFFF" }, { "C8D0D4", "" },
        { "F7F8F9", "0 0 64686A 1 10 FFFFFF" }, { "F7F8F9", "" },
        { "F7F8F9", "0 0 64686A 1 10 D0D7DA" }, { "F7F8F9", "" },
    };
    for (DWORD nStyle = 0; nStyle < std::size(aCases); nStyle++)
    {
        SCOPED_TRACE(nStyle);
        CNewMenu::SetStyle(nStyle);
        CNewMenu menu;
        Fill(menu);
        const auto look = [&](HWND hWnd)
        {
            EXPECT_NE(CNewMenuHook::Find(hWnd), nullptr);
            CRect item;
            ::GetMenuItemRect(nullptr, menu, 0, &item);
            ::MapWindowPoints(nullptr, hWnd, reinterpret_cast<POINT*>(&item), 2);
            EXPECT_GE(item.Height(), 19);
            CRect client;
            ::GetClientRect(hWnd, &client);
            const int x = std::min(item.right, client.right) - 8;
            ExpectPixelsOf(hWnd, Place(x, item.top + 4) + aCases[nStyle].first, false);
            ExpectPixelsOf(hWnd, aCases[nStyle].second);
        };
        Open(m_owner, menu, look);
        Open(m_plain, menu, look);
    }
}

TEST_F(MenuPopup, TheProcedureComesAndGoes)
{
    CMenu plain;
    plain.CreatePopupMenu();
    plain.AppendMenu(MF_STRING, s_nFirst, "plain");
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
    CNewMenu next;  // the hook is set again where it is needed
    Fill(next);
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
        CNewMenu menu;
        Fill(menu);
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
    EXPECT_EQ(message.wParam, s_nFirst);
    EXPECT_EQ(s_nOpened, 1);
    ::DestroyWindow(hStatic);
}

TEST_F(MenuPopup, ItemsKeepTheirNamesForScreenReaders)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA | MIIM_FTYPE;
    ASSERT_TRUE((m_menu.Synchronise(), ::GetMenuItemInfoW(m_menu, 1, TRUE, &info)));
    EXPECT_NE(info.fType & MFT_OWNERDRAW, 0U);
    const auto* pName = reinterpret_cast<const MSAAMENUINFO*>(info.dwItemData);
    EXPECT_EQ(pName->dwMSAASignature, static_cast<DWORD>(MSAA_MENU_SIG));
    EXPECT_EQ(pName->cchWText, 8U);
    EXPECT_STREQ(pName->pszWText, L"&Checked");
}

TEST_F(MenuPopup, RecordsFollowTheSystemsMenu)
{
    m_menu.Synchronise();
    CNewMenuItemData* pFirst = m_menu.FindItem(s_nFirst);
    ASSERT_NE(pFirst, nullptr);
    m_menu.ModifyMenu(s_nFirst, MF_BYCOMMAND | MF_STRING, s_nFirst, "Other");
    m_menu.DeleteMenu(s_nGrey, MF_BYCOMMAND);
    m_menu.AppendMenu(MF_STRING, 900, "New");
    m_menu.Synchronise();
    EXPECT_EQ(m_menu.FindItem(s_nFirst), pFirst) << "with its icon";
    EXPECT_STREQ(pFirst->m_strText, "Other");
    EXPECT_EQ(m_menu.FindItem(s_nGrey), nullptr);
    ASSERT_NE(m_menu.FindItem(900), nullptr);
    ASSERT_NE(m_menu.GetNewSubMenu(3), nullptr);
    EXPECT_NE(m_menu.GetNewSubMenu(3)->FindItem(s_nInSubmenu), nullptr);

    const HMENU hMenu = m_menu.DetachMenu();
    EXPECT_EQ(::GetMenuState(hMenu, 0, MF_BYPOSITION) & MF_OWNERDRAW, 0U) << "as it was";
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
        Open([&](HWND) { ::GetMenuItemRect(nullptr, m_menu, 1, &item); });
        EXPECT_EQ(item.Height(), nStyle == 3 ? 22 : 24);
    }
}

TEST_F(MenuPopup, KeysFindTheirItems)
{
    m_menu.AppendMenu(MF_STRING, 900, "&Copy");
    m_menu.AppendMenu(MF_STRING, 901, "A && &b");
    m_menu.Synchronise();
    const std::pair<UINT, LRESULT> aCases[] = { { 'F', MAKELRESULT(0, MNC_EXECUTE) },
                                                { 'd', MAKELRESULT(3, MNC_EXECUTE) },
                                                { 'c', MAKELRESULT(1, MNC_SELECT) },
                                                { 'b', MAKELRESULT(6, MNC_EXECUTE) },
                                                { 'x', 0 },
                                                { '&', 0 } };
    for (const auto& [nChar, lAnswer] : aCases)
        EXPECT_EQ(CNewMenu::FindKeyboardItem(nChar, m_menu), lAnswer) << nChar;
    EXPECT_EQ(CNewMenu::FindKeyboardItem('F', nullptr), 0);
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
        EXPECT_EQ(g_pMenuTheme->m_nId, nBefore);
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
            CNewMenu menu;
            Fill(menu);
            menu.InsertTitle(0, L"Title", TITLE_GRADIENT);
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
    bar.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(m_menu.DetachMenu()), "&File");
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
    item.OffsetRect(CPoint(0, 0) - WindowRect(frame).TopLeft());
    const std::string strCorner = Place(item.left, item.top);
    ExpectPixelsOf(frame, strCorner + "C8D0D4");
    bool bOpened = false;
    frame.m_onIdle = [&](HWND hMenu)
    {
        if (hMenu == nullptr || bOpened)
            return;
        bOpened = true;
        ExpectPixelsOf(frame, strCorner + "D77800");
        ExpectPixelsOf(frame, Place(item.right - 1, item.bottom - 6) + "B0B8BB");  // shadow
    };
    frame.SendMessage(WM_SYSCOMMAND, SC_KEYMENU, 'f');
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
    bar.AppendMenu(MF_STRING, s_nFirst, "&First");
    dialog.SetMenu(&bar);
    dialog.AttachBar();
    EXPECT_NE(dialog.GetNewMenu().FindItem(s_nFirst), nullptr);
    dialog.DestroyWindow();
    bar.Detach();
}
}  // namespace
