// Sizes and places of the windows of menus.
#include "menu/frame_layout.h"

#include "menu/item_layout.h"

CFrameSizes FrameSizes(bool bDropShadow)
{
    return { CSize(2, 2), bDropShadow ? CSize(2, 2) : CSize(5, 6) };
}

CRect MenuWindowRect(const CRect& asked, bool bDropShadow)
{
    const int nMore = bDropShadow ? -2 : 2;
    return { CPoint(asked.left, asked.top - 1), asked.Size() + CSize(nMore, nMore) };
}

CRect ClientInside(const CRect& window, const CFrameSizes& sizes)
{
    CRect client = window;
    client.DeflateRect(sizes.m_topLeft.cx, sizes.m_topLeft.cy, sizes.m_bottomRight.cx,
                       sizes.m_bottomRight.cy);
    return client;
}

CRect FrameInside(const CRect& window, bool bDropShadow)
{
    CRect frame = window;
    if (!bDropShadow)
        frame.DeflateRect(0, 0, SHADOW_WIDTH, SHADOW_WIDTH);
    return frame;
}

int WindowShadowDarkness(int nLine, int nPlace, int nLength)
{
    if (nPlace < 4)
        return 0;
    const int nLeft = nLength - nPlace;  // to the end, this pixel included
    if (nPlace < 8)
        return nLine * 6 * (nPlace - 3);
    return nLeft <= 4 ? nLine * 6 * nLeft : nLine * 30;
}
