// Menus over the system's.
#include "platform/win/menu.h"

#include "platform/win/module.h"
#include "platform/win/system_call.h"
#include "platform/win/temporary_wrappers.h"
#include "platform/win/window_proc.h"

#include <utility>

IMPLEMENT_DYNCREATE(CMenu, CObject)

using CMenus = CTemporaryWrappers<CMenu>;

namespace
{
// Whose popup is open, for owner-drawn items: the system tells a window the item's identifier only.
struct CTracked
{
    HWND hWnd;
    HMENU hMenu;
};
constinit thread_local CTracked t_tracked = {};

class CTrackScope
{
public:
    CTrackScope(HWND hWnd, HMENU hMenu) : m_outer(std::exchange(t_tracked, { hWnd, hMenu })) {}
    ~CTrackScope() { t_tracked = m_outer; }
    CTrackScope(const CTrackScope&) = delete;
    CTrackScope& operator=(const CTrackScope&) = delete;

private:
    CTracked m_outer;
};

// The menu among this one and its submenus that has the item.
HMENU FindMenuOf(HMENU hMenu, UINT nID)
{
    const int nItems = ::GetMenuItemCount(hMenu);
    for (int n = 0; n < nItems; ++n)
    {
        if (const HMENU hSub = ::GetSubMenu(hMenu, n))
        {
            // A popup may be owner-drawn itself; its identifier is its handle then.
            const HMENU hFound = static_cast<UINT>(reinterpret_cast<UINT_PTR>(hSub)) == nID
                                     ? hMenu
                                     : FindMenuOf(hSub, nID);
            if (hFound != nullptr)
                return hFound;
        }
        else if (::GetMenuItemID(hMenu, n) == nID)
        {
            return hMenu;
        }
    }
    return nullptr;
}
}  // namespace

CMenu::~CMenu()
{
    if (!m_bTemporary)
        DestroyMenu();
}

CMenu* CMenu::FromHandle(HMENU hMenu)
{
    return CMenus::Find(hMenu, &CMenu::m_hMenu);
}

CMenu* CMenu::FromHandlePermanent(HMENU hMenu)
{
    return CMenus::FindPermanent(hMenu);
}

void CMenu::DeleteTempMap()
{
    if (AfxMessageDepth() == 0)
        CMenus::Clear();
}

CMenu* CMenu::FromItem(HWND hWnd, UINT nID)
{
    if (t_tracked.hWnd == hWnd)
        return FromHandlePermanent(FindMenuOf(t_tracked.hMenu, nID));
    // A child's "menu" is its identifier.
    const bool bChild = (::GetWindowLongA(hWnd, GWL_STYLE) & WS_CHILD) != 0;
    return bChild ? nullptr : FromHandlePermanent(FindMenuOf(::GetMenu(hWnd), nID));
}

BOOL CMenu::Attach(HMENU hMenu)
{
    ASSERT(m_hMenu == nullptr);
    if (hMenu == nullptr)
        return FALSE;
    m_hMenu = hMenu;
    CHandleMap<CMenu>::Insert(this);
    return TRUE;
}

HMENU CMenu::Detach()
{
    if (m_hMenu != nullptr)
        CHandleMap<CMenu>::Remove(this);
    return std::exchange(m_hMenu, nullptr);
}

BOOL CMenu::CreateMenu()
{
    return Attach(::CreateMenu());
}

BOOL CMenu::CreatePopupMenu()
{
    return Attach(::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(LPCSTR pszName)
{
    return Attach(::LoadMenuA(AfxFindResourceHandle(pszName, RT_MENU), pszName));
}

BOOL CMenu::LoadMenu(UINT nID)
{
    return LoadMenu(MAKEINTRESOURCEA(nID));
}

BOOL CMenu::DestroyMenu()
{
    return m_hMenu != nullptr && ::DestroyMenu(Detach());
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT pExclude)
{
    ASSERT(::IsMenu(m_hMenu));
    const HWND hWnd = pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
    const CTrackScope scope(hWnd, m_hMenu);
    TPMPARAMS params = { sizeof(params), pExclude != nullptr ? *pExclude : RECT{} };
    return CallSystem(
        [&]
        {
            return ::TrackPopupMenuEx(m_hMenu, nFlags, x, y, hWnd,
                                      pExclude != nullptr ? &params : nullptr);
        });
}

void CMenu::DrawItem(LPDRAWITEMSTRUCT) {}

void CMenu::MeasureItem(LPMEASUREITEMSTRUCT) {}

// ---- One call of the system each

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nItem, LPCSTR pszText)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::AppendMenuA(m_hMenu, nFlags, nItem, pszText);
}

UINT CMenu::CheckMenuItem(UINT nItem, UINT nCheck)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::CheckMenuItem(m_hMenu, nItem, nCheck);
}

BOOL CMenu::CheckMenuRadioItem(UINT nFirst, UINT nLast, UINT nItem, UINT nFlags)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::CheckMenuRadioItem(m_hMenu, nFirst, nLast, nItem, nFlags);
}

BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::DeleteMenu(m_hMenu, nPosition, nFlags);
}

UINT CMenu::EnableMenuItem(UINT nItem, UINT nEnable)
{
    ASSERT(::IsMenu(m_hMenu));
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, nItem, nEnable));
}

UINT CMenu::GetMenuItemCount() const
{
    ASSERT(::IsMenu(m_hMenu));
    return static_cast<UINT>(::GetMenuItemCount(m_hMenu));
}

UINT CMenu::GetMenuItemID(int nPosition) const
{
    ASSERT(::IsMenu(m_hMenu));
    return ::GetMenuItemID(m_hMenu, nPosition);
}

UINT CMenu::GetMenuState(UINT nItem, UINT nFlags) const
{
    ASSERT(::IsMenu(m_hMenu));
    return ::GetMenuState(m_hMenu, nItem, nFlags);
}

int CMenu::GetMenuString(UINT nItem, CString& strText, UINT nFlags) const
{
    ASSERT(::IsMenu(m_hMenu));
    const int nLength = ::GetMenuStringA(m_hMenu, nItem, nullptr, 0, nFlags);
    const int nGot =
        ::GetMenuStringA(m_hMenu, nItem, strText.GetBuffer(nLength), nLength + 1, nFlags);
    strText.ReleaseBuffer(nGot);
    return nGot;
}

CMenu* CMenu::GetSubMenu(int nPosition) const
{
    ASSERT(::IsMenu(m_hMenu));
    return FromHandle(::GetSubMenu(m_hMenu, nPosition));
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem, LPCSTR pszText)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::InsertMenuA(m_hMenu, nPosition, nFlags, nItem, pszText);
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem, LPCSTR pszText)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::ModifyMenuA(m_hMenu, nPosition, nFlags, nItem, pszText);
}

BOOL CMenu::SetDefaultItem(UINT nItem, BOOL bByPosition)
{
    ASSERT(::IsMenu(m_hMenu));
    return ::SetMenuDefaultItem(m_hMenu, nItem, static_cast<UINT>(bByPosition));
}
