// Raster operations and device boxes: the arithmetic that all targets which draw share.
#pragma once

#include "platform/gdi/gdi.h"
#include "platform/gdi/linux/pixel_rows.h"

#include <algorithm>
#include <optional>

// What a pen, a brush or a source picture does to what is there: one of the sixteen functions of
// two bits. Bit 2 * new + old holds the result, so that it is the R2_ constant less one.
using CRasterOp = unsigned;
constexpr CRasterOp OP_BLACK = 0;
constexpr CRasterOp OP_NOT = 5;
constexpr CRasterOp OP_XOR = 6;
constexpr CRasterOp OP_AND = 8;
constexpr CRasterOp OP_NOP = 10;
constexpr CRasterOp OP_COPY = 12;
constexpr CRasterOp OP_OR = 14;
constexpr CRasterOp OP_WHITE = 15;
constexpr CRasterOp OP_COPY_INVERTED = 3;

constexpr CRasterOp OpFromRop2(int nRop2)
{
    return static_cast<CRasterOp>(nRop2 - 1);
}

// Operations of three inputs that use two of them only: pattern and destination, or source and
// destination. None for the others.
constexpr std::optional<CRasterOp> PatternOp(DWORD nRop)
{
    const unsigned nTable = nRop >> 16 & 0xFF;
    if ((nTable >> 2 & 0x33) != (nTable & 0x33))
        return std::nullopt;
    return (nTable & 3) | (nTable >> 2 & 12);
}
constexpr std::optional<CRasterOp> SourceOp(DWORD nRop)
{
    const unsigned nTable = nRop >> 16 & 0xFF;
    if (nTable >> 4 != (nTable & 15))
        return std::nullopt;
    return nTable & 15;
}

// False if the result is the same whatever is drawn: no brush is needed.
constexpr bool UsesNew(CRasterOp op)
{
    return op >> 2 != (op & 3);
}

// False if the result is the same whatever was there.
constexpr bool UsesOld(CRasterOp op)
{
    return (op >> 1 & 5) != (op & 5);
}

constexpr CPixel Combine(CRasterOp op, CPixel before, CPixel drawn)
{
    return (op & 1 ? ~before & ~drawn : 0) | (op & 2 ? before & ~drawn : 0) |
           (op & 4 ? ~before & drawn : 0) | (op & 8 ? before & drawn : 0);
}

// Device coordinates further out are moved here; sums of a few of them do not overflow.
constexpr int DEVICE_LIMIT = 1 << 27;

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
