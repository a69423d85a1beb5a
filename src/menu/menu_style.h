// The styles that menus can be drawn in.
#pragma once

#include <span>

#include "platform/base/types.h"

// How items look.
enum class EItemStyle
{
    raised,    // a raised frame around the selection
    flat,      // a column for icons
    text,      // fill and text, no icons
    shaded,    // the selection has a gradient and a raised frame
    gradient,  // as flat, the column has a gradient
};
// How items are measured.
enum class EMeasureStyle
{
    plain,
    flat,
    shaded,
};
// How the windows of menus look.
enum class EFrameStyle
{
    raised,
    flat,
    gradient,  // flat, beside a column with a gradient
};

struct CMenuStyle
{
    DWORD m_nId;
    EFrameStyle m_frame;
    EItemStyle m_item;
    EMeasureStyle m_measure;
    bool m_bFrame;  // the skin draws the frame in the system's place
};

constexpr DWORD DEFAULT_MENU_STYLE = 2;

std::span<const CMenuStyle> MenuStyles();
// Null if there is none.
const CMenuStyle* FindMenuStyle(DWORD nId);
// The style that comes into force when this one is chosen: Wine draws its own frame into the inside
// of the window, where ours would cut items off.
DWORD StyleInForce(DWORD nId, bool bWine);
