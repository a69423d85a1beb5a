// Menus and their records; messages about items.
#include "menu/win32/new_menu.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "menu/item_layout.h"
#include "menu/win32/accelerator_text.h"
#include "menu/win32/item_painter.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/menu_item_data.h"
#include "menu/win32/menu_temp_handler.h"
#include "menu/win32/menu_theme.h"
#include "platform/base/exception.h"
#include "platform/win/module.h"

IMPLEMENT_DYNCREATE(CNewMenu, CMenu)

namespace
{
MENUITEMINFOW ItemInfo(HMENU hMenu, UINT nPosition, UINT nMask)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = nMask;
    if (!::GetMenuItemInfoW(hMenu, nPosition, TRUE, &info))
        info.fType = MFT_BITMAP;  // nothing of ours
    return info;
}

std::wstring ItemText(HMENU hMenu, UINT nPosition)
{
    const int nLength = ::GetMenuStringW(hMenu, nPosition, nullptr, 0, MF_BYPOSITION);
    std::wstring text(static_cast<std::size_t>(std::max(nLength, 0)) + 1, L'\0');
    const int nGot = ::GetMenuStringW(hMenu, nPosition, text.data(), nLength + 1, MF_BYPOSITION);
    text.resize(static_cast<std::size_t>(std::max(nGot, 0)));
    return text;
}

void SetItemDrawing(HMENU hMenu, UINT nPosition, UINT nType, ULONG_PTR nData)
{
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA;  // the text stays: it has the mnemonic
    info.fType = nType;
    info.dwItemData = nData;
    ::SetMenuItemInfoW(hMenu, nPosition, TRUE, &info);
}

// Lower case; 0 for none. A doubled mark is a sign of the text.
wchar_t Mnemonic(const std::wstring& text)
{
    for (std::size_t n = text.find(L'&'); n != text.npos && n + 1 < text.size();
         n = text.find(L'&', n + 2))
        if (text[n + 1] != L'&')
            return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[n + 1])));
    return 0;
}

bool IsTitle(const CNewMenuItemData& item)
{
    return item.IsKindOf(RUNTIME_CLASS(CNewMenuItemDataTitle)) != FALSE;
}
}  // namespace

// ---- Life

CNewMenu::CNewMenu(HMENU hParent)
    : m_hParent(hParent), m_nIconWidth(DEFAULT_ICON_SIZE.cx), m_nIconHeight(DEFAULT_ICON_SIZE.cy)
{
    CNewMenuThreadHook::Need();
}

CNewMenu::~CNewMenu()
{
    CNewMenu::DestroyMenu();
}

BOOL CNewMenu::LoadMenu(HINSTANCE hInstance, UINT nID)
{
    return AttachMenu(::LoadMenuW(hInstance, MAKEINTRESOURCEW(nID)));
}

BOOL CNewMenu::LoadMenu(UINT nID)
{
    return LoadMenu(MAKEINTRESOURCEA(nID));
}

BOOL CNewMenu::LoadMenu(LPCSTR pszName)
{
    return AttachMenu(::LoadMenuA(AfxFindResourceHandle(pszName, MAKEINTRESOURCEA(4)), pszName));
}

BOOL CNewMenu::AttachMenu(HMENU hMenu)
{
    if (!Attach(hMenu))
        return FALSE;
    m_bPopup = m_hParent != nullptr;
    Synchronise();
    return TRUE;
}

BOOL CNewMenu::DestroyMenu()
{
    const HMENU hMenu = m_hMenu;
    if (hMenu == nullptr)
        return FALSE;
    ReleaseSubMenus();
    ForgetItems(false);
    Detach();
    return ::DestroyMenu(hMenu);
}

HMENU CNewMenu::DetachMenu()
{
    ReleaseSubMenus();
    ForgetItems(true);
    return Detach();
}

void CNewMenu::ReleaseSubMenus()
{
    for (const HMENU hSub : std::exchange(m_subMenus, {}))
    {
        if (auto* pSub = dynamic_cast<CNewMenu*>(FromHandlePermanent(hSub)))
        {
            pSub->DetachMenu();
            delete pSub;
        }
    }
}

// Unless the menu ends as well, the system has to draw its items again.
void CNewMenu::ForgetItems(bool bGiveBack)
{
    const int nItems = bGiveBack && ::IsMenu(m_hMenu) ? ::GetMenuItemCount(m_hMenu) : 0;
    for (UINT n = 0; n < static_cast<UINT>(std::max(nItems, 0)); ++n)
    {
        const MENUITEMINFOW info = ItemInfo(m_hMenu, n, MIIM_FTYPE | MIIM_DATA);
        if (CNewMenuItemData::FromMenuData(info.dwItemData) != nullptr)
            SetItemDrawing(m_hMenu, n, info.fType & ~static_cast<UINT>(MFT_OWNERDRAW), 0);
    }
    m_items.clear();
}

// ---- Records

void CNewMenu::Synchronise()
{
    const bool bMeasure = std::exchange(m_nLook, GetMenuLookNumber()) != GetMenuLookNumber();
    Items old = std::exchange(m_items, {});
    const int nItems = ::GetMenuItemCount(m_hMenu);
    for (int n = 0; n < nItems; ++n)
        SynchroniseItem(static_cast<UINT>(n), old, bMeasure);
    SynchroniseSubMenus();
}

// An item whose text was set by other means has lost its record: it is known by its command, so
// that it keeps its icon.
void CNewMenu::SynchroniseItem(UINT nPosition, Items& old, bool bMeasure)
{
    const MENUITEMINFOW info =
        ItemInfo(m_hMenu, nPosition, MIIM_FTYPE | MIIM_DATA | MIIM_ID | MIIM_SUBMENU);
    CNewMenuItemData* pKnown = CNewMenuItemData::FromMenuData(info.dwItemData);
    const bool bOwnerDrawn = (info.fType & MFT_OWNERDRAW) != 0;
    if ((info.fType & MFT_BITMAP) != 0 || (bOwnerDrawn && pKnown == nullptr))
        return;  // the system's, or drawn by somebody else
    const bool bCommand = info.hSubMenu == nullptr && info.wID != 0;
    const auto found = std::ranges::find_if(
        old,
        [&](const auto& pItem)
        {
            return pItem && (pKnown != nullptr ? pItem.get() == pKnown
                                               : bCommand && pItem->m_nID == info.wID);
        });
    std::unique_ptr<CNewMenuItemData> pItem =
        found != old.end() ? std::move(*found) : std::make_unique<CNewMenuItemData>(this);
    pItem->m_nID = info.wID;
    pItem->m_nFlags = ::GetMenuState(m_hMenu, nPosition, MF_BYPOSITION) & 0xFFU;
    pItem->m_nFlags |= info.fType & (MF_SEPARATOR | MF_RIGHTJUSTIFY | MFT_RADIOCHECK);
    if (info.hSubMenu != nullptr)
        pItem->m_nFlags |= MF_POPUP;
    if (!IsTitle(*pItem))
        pItem->SetText(ItemText(m_hMenu, nPosition));
    // The system keeps a size until the item becomes another.
    if (bOwnerDrawn && bMeasure)
        SetItemDrawing(m_hMenu, nPosition, info.fType & ~static_cast<UINT>(MFT_OWNERDRAW), 0);
    if (!bOwnerDrawn || bMeasure)
        SetItemDrawing(m_hMenu, nPosition, info.fType | MFT_OWNERDRAW, pItem->GetMenuData());
    m_items.push_back(std::move(pItem));
}

void CNewMenu::SynchroniseSubMenus()
{
    const int nItems = ::GetMenuItemCount(m_hMenu);
    for (int n = 0; n < nItems; ++n)
    {
        const HMENU hSub = ::GetSubMenu(m_hMenu, n);
        if (hSub == nullptr)
            continue;
        if (CMenu* pThere = FromHandlePermanent(hSub))
        {
            if (auto* pSub = dynamic_cast<CNewMenu*>(pThere))
                pSub->Synchronise();
            continue;
        }
        // Deleted by ReleaseSubMenus, or with the handle's other owner.
        auto* pSub = new CNewMenu(m_hMenu);
        pSub->m_nIconWidth = m_nIconWidth;
        pSub->m_nIconHeight = m_nIconHeight;
        pSub->m_hAccelerators = m_hAccelerators;
        m_subMenus.push_back(hSub);
        pSub->AttachMenu(hSub);
    }
}

CNewMenuItemData* CNewMenu::FindItem(UINT nID) const
{
    const auto found =
        std::ranges::find_if(m_items, [=](const auto& pItem) { return pItem->m_nID == nID; });
    return found != m_items.end() ? found->get() : nullptr;
}

int CNewMenu::FindPosition(const CNewMenuItemData& item) const
{
    const int nItems = ::GetMenuItemCount(m_hMenu);
    for (int n = 0; n < nItems; ++n)
    {
        if (ItemInfo(m_hMenu, static_cast<UINT>(n), MIIM_DATA).dwItemData == item.GetMenuData())
            return n;
    }
    return -1;
}

bool CNewMenu::IsDefault(const CNewMenuItemData& item) const
{
    return item.m_nID != 0 && ::GetMenuDefaultItem(m_hMenu, FALSE, GMDI_USEDISABLED) == item.m_nID;
}

CNewMenu* CNewMenu::FromItemData(ULONG_PTR nData)
{
    const CNewMenuItemData* pItem = CNewMenuItemData::FromMenuData(nData);
    return pItem != nullptr ? pItem->m_pMenu : nullptr;
}

CNewMenu* CNewMenu::GetNewSubMenu(int nPosition) const
{
    return dynamic_cast<CNewMenu*>(FromHandlePermanent(::GetSubMenu(m_hMenu, nPosition)));
}

CNewMenuItemDataTitle* CNewMenu::InsertTitle(int nPosition, const std::wstring& text, UINT nFlags)
{
    auto pTitle = std::make_unique<CNewMenuItemDataTitle>(this);
    pTitle->m_nTitleFlags = nFlags;
    pTitle->SetText(text);
    const int nItems = ::GetMenuItemCount(m_hMenu);
    const UINT nPlace = static_cast<UINT>(nPosition < 0 ? nItems : std::min(nPosition, nItems));
    // No command can come from it, and neither mouse nor keys stop there.
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA | MIIM_STATE;
    info.fType = MFT_OWNERDRAW | MFT_SEPARATOR;
    info.fState = MFS_DISABLED;
    info.dwItemData = pTitle->GetMenuData();
    if (!::InsertMenuItemW(m_hMenu, nPlace, TRUE, &info))
        return nullptr;
    // The items stand beside a vertical title.
    if ((nFlags & TITLE_VERTICAL) != 0 && nPlace + 1 <= static_cast<UINT>(nItems))
    {
        const MENUITEMINFOW next = ItemInfo(m_hMenu, nPlace + 1, MIIM_FTYPE | MIIM_DATA);
        SetItemDrawing(m_hMenu, nPlace + 1, next.fType | MFT_MENUBREAK, next.dwItemData);
    }
    CNewMenuItemDataTitle* pShown = pTitle.get();
    m_items.push_back(std::move(pTitle));
    Synchronise();
    return pShown;
}

// ---- Icons and shortcuts

BOOL CNewMenu::LoadToolBar(UINT nID)
{
    return LoadToolBar(MAKEINTRESOURCEA(nID));
}

BOOL CNewMenu::LoadToolBar(LPCSTR pszName)
{
    const HINSTANCE hInstance = AfxFindResourceHandle(pszName, MAKEINTRESOURCEA(241));
    const auto pIcons = CNewMenuIcons::FromToolBar(hInstance, pszName);
    if (pIcons == nullptr)
        return FALSE;
    SetIcons(pIcons);
    return TRUE;
}

void CNewMenu::SetIcons(const std::shared_ptr<CNewMenuIcons>& pIcons)
{
    const CSize size = pIcons->GetIconSize();
    for (const auto& pItem : m_items)
    {
        const int nIcon = pItem->m_nID != 0 ? pIcons->FindIndex(pItem->m_nID) : -1;
        if (nIcon < 0)
            continue;
        pItem->m_pIcons = pIcons;
        pItem->m_nIcon = nIcon;
        m_nIconWidth = std::max<int>(m_nIconWidth, size.cx);
        m_nIconHeight = std::max<int>(m_nIconHeight, size.cy);
    }
    for (const HMENU hSub : m_subMenus)
    {
        if (auto* pSub = dynamic_cast<CNewMenu*>(FromHandlePermanent(hSub)))
            pSub->SetIcons(pIcons);
    }
}

void CNewMenu::SetAccelerators(HACCEL hAccelerators)
{
    m_hAccelerators = hAccelerators;
    for (const HMENU hSub : m_subMenus)
    {
        if (auto* pSub = dynamic_cast<CNewMenu*>(FromHandlePermanent(hSub)))
            pSub->SetAccelerators(hAccelerators);
    }
}

// ---- Opening

BOOL CNewMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT pExclude)
{
    CNewMenuThreadHook::Need();
    Synchronise();
    // A window without an object knows nothing of our items.
    const HWND hWnd = pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
    if (CWnd::FromHandlePermanent(hWnd) != nullptr)
        return CMenu::TrackPopupMenu(nFlags, x, y, pWnd, pExclude);
    CNewMenuTempHandler handler(hWnd);
    return handler.Track(*this, nFlags, x, y, pExclude);
}

void CNewMenu::OnInitMenuPopup()
{
    Synchronise();
    CountOpen(1);
}

void CNewMenu::OnUnInitMenuPopup()
{
    CountOpen(-1);
}

void CNewMenu::CountOpen(int nMore)
{
    for (auto* p = dynamic_cast<CNewMenu*>(FromHandlePermanent(m_hParent)); p != nullptr;
         p = dynamic_cast<CNewMenu*>(FromHandlePermanent(p->m_hParent)))
    {
        p->m_nOpenSubMenus = std::max(p->m_nOpenSubMenus + nMore, 0);
        p->RedrawOfBar();
    }
}

// The system has drawn the item of a bar before its popup opens, and draws it no more then.
void CNewMenu::RedrawOfBar()
{
    if (m_bPopup != FALSE || !::IsWindow(m_hWndDrawn) || (m_drawn.itemState & ODS_SELECTED) == 0)
        return;
    DRAWITEMSTRUCT draw = m_drawn;
    draw.hDC = ::GetWindowDC(m_hWndDrawn);
    DrawItem(&draw);
    ::ReleaseDC(m_hWndDrawn, draw.hDC);
}

LRESULT CNewMenu::FindKeyboardItem(UINT nChar, HMENU hMenu)
{
    const auto* pMenu = dynamic_cast<CNewMenu*>(FromHandlePermanent(hMenu));
    if (pMenu == nullptr)
        return 0;
    const auto nWanted = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(nChar)));
    int nFirst = -1;
    for (const auto& pItem : pMenu->m_items)
    {
        if (Mnemonic(pItem->GetWideText()) != nWanted)
            continue;
        if (nFirst >= 0)  // several: the user goes from one to the next
            return MAKELRESULT(nFirst, MNC_SELECT);
        nFirst = pMenu->FindPosition(*pItem);
    }
    return nFirst >= 0 ? MAKELRESULT(nFirst, MNC_EXECUTE) : 0;
}

// ---- Measuring

void CNewMenu::MeasureItem(LPMEASUREITEMSTRUCT pMeasure)
{
    const CNewMenuItemData* pItem = CNewMenuItemData::FromMenuData(pMeasure->itemData);
    if (pItem == nullptr)
        return;
    GetMenuSystem();  // may have changed
    (pItem->m_pMenu->*g_pMenuTheme->m_pfnMeasureItem)(pMeasure);
}

namespace
{
std::wstring ShownText(const CNewMenuItemData& item, HACCEL hAccelerators)
{
    std::wstring text = item.GetWideText();
    if (hAccelerators != nullptr && item.m_nID != 0 && text.find(L'\t') == text.npos)
        text += AcceleratorText(hAccelerators, item.m_nID);
    return text;
}

CSize MeasureTitleItem(CDC* pDC, CNewMenuItemDataTitle& title)
{
    CFont* pFont = title.m_font.GetSafeHandle() != nullptr ? &title.m_font : TitleFont(false);
    const CSelectScope font(pDC, pFont);
    const CSize text = WideTextExtent(pDC, title.GetWideText(), DT_SINGLELINE | DT_NOPREFIX);
    const CSize icon = title.m_pIcons != nullptr ? title.m_pIcons->GetIconSize() : CSize();
    return MeasureTitle(text, icon, title.m_nTitleFlags);
}
}  // namespace

void CNewMenu::MeasureBy(LPMEASUREITEMSTRUCT pMeasure, EMeasureStyle style)
{
    CNewMenuItemData* pItem = CNewMenuItemData::FromMenuData(pMeasure->itemData);
    if (pItem == nullptr)
        return;
    CClientDC screen(nullptr);
    const auto sizeOf = [&](const CNewMenuItemData& item)
    {
        CItemContent content;
        const std::wstring text = ShownText(item, m_hAccelerators);
        content.m_text =
            MenuTextExtent(&screen, text, IsDefault(item), GetMenuSettings().m_bShortcuts);
        content.m_icon = CSize(m_nIconWidth, m_nIconHeight);
        content.m_bSeparator = (item.m_nFlags & MF_SEPARATOR) != 0;
        content.m_bSubmenu = (item.m_nFlags & MF_POPUP) != 0;
        content.m_bBar = m_bPopup == FALSE;
        content.m_bMnemonic = Mnemonic(text) != 0;
        return MeasureItemIn(style, content, GetMenuSystem());
    };
    CSize size;
    if (IsTitle(*pItem))
        size = MeasureTitleItem(&screen, static_cast<CNewMenuItemDataTitle&>(*pItem));
    else
        size = sizeOf(*pItem);
    if (pItem->m_nID >= FIRST_SYSTEM_ITEM && pItem->m_nID <= LAST_SYSTEM_ITEM)
    {
        auto next = std::ranges::find(m_items, pItem, &std::unique_ptr<CNewMenuItemData>::get);
        while (next != m_items.end() && ++next != m_items.end() && (*next)->m_nID == 0)
        {
        }
        const int nNext = next != m_items.end() ? sizeOf(**next).cx : 0;
        size = SystemItemSize(size, nNext, GetMenuSystem());
    }
    pMeasure->itemWidth = static_cast<UINT>(std::max<int>(size.cx, 0));
    pMeasure->itemHeight = static_cast<UINT>(std::max<int>(size.cy, 0));
}

void CNewMenu::MeasureFlatItem(LPMEASUREITEMSTRUCT pMeasure)
{
    MeasureBy(pMeasure, EMeasureStyle::flat);
}

void CNewMenu::MeasurePlainItem(LPMEASUREITEMSTRUCT pMeasure)
{
    MeasureBy(pMeasure, EMeasureStyle::plain);
}

void CNewMenu::MeasureShadedItem(LPMEASUREITEMSTRUCT pMeasure)
{
    MeasureBy(pMeasure, EMeasureStyle::shaded);
}

// ---- Drawing

void CNewMenu::DrawItem(LPDRAWITEMSTRUCT pDraw)
{
    const CNewMenuItemData* pItem = CNewMenuItemData::FromMenuData(pDraw->itemData);
    if (pItem == nullptr)
        return;
    CNewMenuIcons::CheckAllStates();
    GetMenuSystem();  // may have changed
    CNewMenu& menu = *pItem->m_pMenu;
    menu.m_hWndDrawn = ::WindowFromDC(pDraw->hDC);
    menu.m_drawn = *pDraw;
    if (IsTitle(*pItem))
        (menu.*g_pMenuTheme->m_pfnDrawTitle)(pDraw);
    else
        (menu.*g_pMenuTheme->m_pfnDrawItem)(pDraw);
}

// The highlight is the mouse's where the mouse is in the item, unless a key has just been pressed.
static bool IsMouseIn(HWND hWnd, const CRect& item)
{
    const DWORD nPoint = ::GetMessagePos();
    const CPoint point(static_cast<short>(LOWORD(nPoint)), static_cast<short>(HIWORD(nPoint)));
    CPoint inside = point;
    ::ScreenToClient(hWnd, &inside);
    return item.PtInRect(inside) && !CNewMenuHook::IsMouseWhereKeyWas(point);
}

void CNewMenu::DrawBy(LPDRAWITEMSTRUCT pDraw, DrawFunction draw)
{
    const CNewMenuItemData* pItem = CNewMenuItemData::FromMenuData(pDraw->itemData);
    if (pItem == nullptr)
        return;
    CItemView view;
    view.m_rect = pDraw->rcItem;
    view.m_text = ShownText(*pItem, m_hAccelerators);
    view.m_iconSize = CSize(m_nIconWidth, m_nIconHeight);
    view.m_pIcons = pItem->m_pIcons.get();
    view.m_nIcon = pItem->m_nIcon;
    view.m_nState = pDraw->itemState;
    if (IsDefault(*pItem))  // not every system says so
        view.m_nState |= ODS_DEFAULT;
    view.m_bBar = m_bPopup == FALSE;
    view.m_bOpen = view.m_bBar && m_nOpenSubMenus > 0;
    view.m_bSeparator = (pItem->m_nFlags & MF_SEPARATOR) != 0;
    view.m_bRightJustify = (pItem->m_nFlags & MF_RIGHTJUSTIFY) != 0;
    view.m_bRadio = (pItem->m_nFlags & MFT_RADIOCHECK) != 0;
    view.m_bFromMouse = m_hWndDrawn != nullptr && IsMouseIn(m_hWndDrawn, view.m_rect);

    CDC* pTarget = CDC::FromHandle(pDraw->hDC);
    const CMenuLook look = { GetMenuSystem(), GetMenuSettings(),
                             g_pMenuTheme->GetGradientColours() };
    if (view.m_bBar || view.m_bSeparator)
    {
        draw(pTarget, view, look);
        return;
    }
    CNewMemDC memory(pTarget, view.m_rect);
    draw(&memory, view, look);
}

namespace
{
template <void (*pfnDraw)(CDC*, const CItemView&, const CMenuLook&)>
void WithBarShadow(CDC* pDC, const CItemView& item, const CMenuLook& look)
{
    pfnDraw(pDC, item, look);
    if (HasBarShadow(item, look))
        g_pMenuTheme->PaintBarShadow(pDC, item.m_rect);
}
}  // namespace

void CNewMenu::DrawRaised(LPDRAWITEMSTRUCT pDraw)
{
    DrawBy(pDraw, DrawRaisedItem);
}

void CNewMenu::DrawFlat(LPDRAWITEMSTRUCT pDraw)
{
    DrawBy(pDraw, WithBarShadow<DrawFlatItem>);
}

void CNewMenu::DrawTextOnly(LPDRAWITEMSTRUCT pDraw)
{
    DrawBy(pDraw, DrawTextItem);
}

void CNewMenu::DrawShaded(LPDRAWITEMSTRUCT pDraw)
{
    DrawBy(pDraw, DrawShadedItem);
}

void CNewMenu::DrawGradient(LPDRAWITEMSTRUCT pDraw)
{
    DrawBy(pDraw, WithBarShadow<DrawGradientItem>);
}

void CNewMenu::DrawTitleItem(LPDRAWITEMSTRUCT pDraw)
{
    DrawTitle(pDraw);
}

void CNewMenu::DrawTitle(LPDRAWITEMSTRUCT pDraw)
{
    auto* pTitle =
        dynamic_cast<CNewMenuItemDataTitle*>(CNewMenuItemData::FromMenuData(pDraw->itemData));
    if (pTitle == nullptr)
        return;
    CTitleView view;
    view.m_rect = pDraw->rcItem;
    // A vertical title stands beside all items of its menu.
    if ((pTitle->m_nTitleFlags & TITLE_VERTICAL) != 0 && m_hWndDrawn != nullptr)
    {
        CRect client;
        ::GetClientRect(m_hWndDrawn, &client);
        view.m_rect.bottom = std::max(view.m_rect.bottom, client.bottom - view.m_rect.top);
    }
    view.m_text = pTitle->GetWideText();
    view.m_nFlags = pTitle->m_nTitleFlags;
    view.m_colours =
        TitleColours(GetMenuSystem(), { pTitle->m_crStart, pTitle->m_crEnd, pTitle->m_crText });
    view.m_pIcons = pTitle->m_pIcons.get();
    view.m_nIcon = pTitle->m_nIcon;
    view.m_pFont = pTitle->m_font.GetSafeHandle() != nullptr ? &pTitle->m_font : nullptr;
    CDC* pTarget = CDC::FromHandle(pDraw->hDC);
    CNewMemDC memory(pTarget, view.m_rect);
    DrawMenuTitle(&memory, view, GetMenuSystem());
}

BOOL CNewMenu::EraseBackground(CDC*, const CRect&)
{
    return FALSE;
}

// ---- The process

DWORD CNewMenu::SetStyle(DWORD nId)
{
    return SetMenuStyle(nId);
}
DWORD CNewMenu::GetStyle()
{
    return GetMenuStyle();
}
BOOL CNewMenu::SetDarkenedIcons(BOOL bOn)
{
    return std::exchange(GetMenuSettings().m_bDarkenedIcons, bOn != FALSE);
}
BOOL CNewMenu::GetDarkenedIcons()
{
    return GetMenuSettings().m_bDarkenedIcons;
}
int CNewMenu::SetDarkeningAmount(int nAmount)
{
    return std::exchange(GetMenuSettings().m_nDarkening, nAmount);
}
int CNewMenu::GetDarkeningAmount()
{
    return GetMenuSettings().m_nDarkening;
}
BOOL CNewMenu::SetDisabledSelectable(BOOL bOn)
{
    return std::exchange(GetMenuSettings().m_bDisabledSelectable, bOn != FALSE);
}
BOOL CNewMenu::GetDisabledSelectable()
{
    return GetMenuSettings().m_bDisabledSelectable;
}
BOOL CNewMenu::SetShortcutTexts(BOOL bOn)
{
    ChangeMenuLook();
    return std::exchange(GetMenuSettings().m_bShortcuts, bOn != FALSE);
}
BOOL CNewMenu::GetShortcutTexts()
{
    return GetMenuSettings().m_bShortcuts;
}
BYTE CNewMenu::SetOpacity(BYTE nOpacity)
{
    return std::exchange(GetMenuSettings().m_nOpacity, nOpacity);
}
BYTE CNewMenu::GetOpacity()
{
    return GetMenuSettings().m_nOpacity;
}
BOOL CNewMenu::SetAnyMenu(BOOL bOn)
{
    return std::exchange(GetMenuSettings().m_bAnyMenu, bOn != FALSE);
}
BOOL CNewMenu::GetAnyMenu()
{
    return GetMenuSettings().m_bAnyMenu;
}
