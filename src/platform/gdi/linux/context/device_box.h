// Boxes of device pixels: right and bottom lie outside.
#pragma once

#include "platform/gdi/gdi.h"

#include <algorithm>

// Device coordinates further out are moved here; sums of a few of them do not overflow.
constexpr int DEVICE_LIMIT = 1 << 27;

constexpr POINT LimitPoint(POINT point, int nLimit = DEVICE_LIMIT)
{
    return { std::clamp(point.x, -nLimit, nLimit), std::clamp(point.y, -nLimit, nLimit) };
}

constexpr RECT LimitBox(const RECT& box)
{
    return { std::clamp(box.left, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.top, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.right, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(box.bottom, -DEVICE_LIMIT, DEVICE_LIMIT) };
}

constexpr bool IsEmptyBox(const RECT& box)
{
    return box.left >= box.right || box.top >= box.bottom;
}

constexpr RECT IntersectBoxes(const RECT& a, const RECT& b)
{
    return { std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
             std::min(a.bottom, b.bottom) };
}

constexpr RECT UnionBoxes(const RECT& a, const RECT& b)
{
    return { std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
             std::max(a.bottom, b.bottom) };
}

// Edges that stand the wrong way round are swapped.
constexpr RECT SwapInverted(const RECT& box)
{
    return { std::min(box.left, box.right), std::min(box.top, box.bottom),
             std::max(box.left, box.right), std::max(box.top, box.bottom) };
}

// Likewise for block transfers: the first edge stays inside and the second outside, so that the
// swapped box is one pixel further to the right, or down.
constexpr RECT ShiftInverted(RECT box)
{
    if (box.left > box.right)
        box = { box.right + 1, box.top, box.left + 1, box.bottom };
    if (box.top > box.bottom)
        box = { box.left, box.bottom + 1, box.right, box.top + 1 };
    return box;
}
