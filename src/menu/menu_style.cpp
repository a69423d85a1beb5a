// The table of styles.
#include "menu/menu_style.h"

#include <algorithm>

namespace
{
// Programs keep numbers: a row keeps its own.
constexpr CMenuStyle s_aStyles[] = {
    // frame                      items                 measuring              own frame
    { 0, EFrameStyle::raised, EItemStyle::raised, EMeasureStyle::plain, true },
    { 1, EFrameStyle::raised, EItemStyle::raised, EMeasureStyle::plain, false },
    { 2, EFrameStyle::flat, EItemStyle::flat, EMeasureStyle::flat, true },
    { 3, EFrameStyle::flat, EItemStyle::flat, EMeasureStyle::flat, false },
    { 4, EFrameStyle::raised, EItemStyle::text, EMeasureStyle::plain, true },
    { 5, EFrameStyle::raised, EItemStyle::text, EMeasureStyle::plain, false },
    { 6, EFrameStyle::raised, EItemStyle::shaded, EMeasureStyle::shaded, true },
    { 7, EFrameStyle::raised, EItemStyle::shaded, EMeasureStyle::shaded, false },
    { 8, EFrameStyle::gradient, EItemStyle::gradient, EMeasureStyle::flat, true },
    { 9, EFrameStyle::gradient, EItemStyle::gradient, EMeasureStyle::flat, false },
    { 10, EFrameStyle::flat, EItemStyle::gradient, EMeasureStyle::flat, true },
    { 11, EFrameStyle::flat, EItemStyle::gradient, EMeasureStyle::flat, false },
};
}  // namespace

std::span<const CMenuStyle> MenuStyles()
{
    return s_aStyles;
}

const CMenuStyle* FindMenuStyle(DWORD nId)
{
    const auto* pStyle = std::ranges::find(s_aStyles, nId, &CMenuStyle::m_nId);
    return pStyle != std::end(s_aStyles) ? pStyle : nullptr;
}

DWORD StyleInForce(DWORD nId, bool bWine)
{
    return bWine ? nId | 1U : nId;
}
