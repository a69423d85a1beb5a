// Records of items.
#include "menu/win32/menu_item_data.h"

#include <unordered_set>

IMPLEMENT_DYNAMIC(CNewMenuItemData, CObject)
IMPLEMENT_DYNAMIC(CNewMenuItemDataTitle, CNewMenuItemData)

namespace
{
// Menus may hold items of others: their data must not be taken for ours. Never freed: menus that
// end with the program still ask.
std::unordered_set<ULONG_PTR>& KnownData()
{
    static auto& s_known = *new std::unordered_set<ULONG_PTR>;
    return s_known;
}

CString Narrow(const std::wstring& text)
{
    const int nUnits = static_cast<int>(text.size());
    const int nBytes =
        ::WideCharToMultiByte(CP_ACP, 0, text.data(), nUnits, nullptr, 0, nullptr, nullptr);
    CString strText;
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), nUnits, strText.GetBuffer(nBytes), nBytes,
                          nullptr, nullptr);
    strText.ReleaseBuffer(nBytes);
    return strText;
}
}  // namespace

CNewMenuItemData::CNewMenuItemData(CNewMenu* pMenu) : m_pMenu(pMenu)
{
    m_link.pItem = this;
    Describe();
    KnownData().insert(GetMenuData());
}

CNewMenuItemData::~CNewMenuItemData()
{
    KnownData().erase(GetMenuData());
}

void CNewMenuItemData::SetText(const std::wstring& text)
{
    m_wideText = text;
    m_strText = Narrow(text);
    Describe();
}

void CNewMenuItemData::Describe()
{
    m_link.accessible = { MSAA_MENU_SIG, static_cast<DWORD>(m_wideText.size()), m_wideText.data() };
}

ULONG_PTR CNewMenuItemData::GetMenuData() const
{
    return reinterpret_cast<ULONG_PTR>(&m_link);
}

CNewMenuItemData* CNewMenuItemData::FromMenuData(ULONG_PTR nData)
{
    return KnownData().contains(nData) ? reinterpret_cast<const CLink*>(nData)->pItem : nullptr;
}
