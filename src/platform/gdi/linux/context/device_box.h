// Boxes of device pixels: right and bottom lie outside.
#pragma once

#include "platform/base/geometry.h"

#include <algorithm>

// Device coordinates further out are moved here; sums of a few of them do not overflow.
constexpr int DEVICE_LIMIT = 1 << 27;

constexpr POINT LimitPoint(POINT point, int nLimit = DEVICE_LIMIT)
{
    return { std::clamp(point.x, -nLimit, nLimit), std::clamp(point.y, -nLimit, nLimit) };
}

constexpr CRect LimitBox(const RECT& box)
{
    return { std::clamp(box.left, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.top, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.right, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.bottom, -DEVICE_LIMIT, DEVICE_LIMIT) };
}

// What both cover; an empty box, not always (0, 0, 0, 0), if that is nothing.
constexpr CRect IntersectBoxes(const RECT& a, const RECT& b)
{
    return { std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
             std::min(a.bottom, b.bottom) };
}

// The box with edges that stand the right way round.
constexpr CRect Normalized(CRect box)
{
    box.NormalizeRect();
    return box;
}

// Likewise for fills by a brush and block transfers: the first edge stays inside and the second
// outside, so that the swapped box is one pixel further to the right, or down.
constexpr CRect ShiftInverted(CRect box)
{
    if (box.left > box.right)
        box = { box.right + 1, box.top, box.left + 1, box.bottom };
    if (box.top > box.bottom)
        box = { box.left, box.bottom + 1, box.right, box.top + 1 };
    return box;
}
