// The moves from which layouts are put together, on rectangles with y down. Stored formulas can
// hold any 32-bit number: sums wrap, as they do in CRect.
#pragma once

#include "platform/base/geometry.h"

constexpr int WrapMul(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}

// Right minus left and bottom minus top; negative for a rectangle that is turned over.
inline int W(const CRect& r)
{
    return WrapSub(r.right, r.left);
}
inline int H(const CRect& r)
{
    return WrapSub(r.bottom, r.top);
}

// Cuts towards zero; what 32 bits cannot hold gives the smallest number, as the processor does.
constexpr int TruncToInt(double d)
{
    constexpr double fLimit = 2147483648.0;
    return d > -fLimit - 1.0 && d < fLimit ? static_cast<int>(d) : -2147483647 - 1;
}

// Adds (x, y): puts a rectangle that stands at (0, 0) with its top left corner there.
inline void Place(CRect& r, int x, int y)
{
    r.OffsetRect(x, y);
}

// Moves r sideways by half of what c is wider: centred if both have the same left edge.
inline void CentreHorizontally(CRect& r, const CRect& c)
{
    Place(r, WrapSub(W(c), W(r)) / 2, 0);
}

// The same downwards: centred if both have the same top edge.
inline void CentreVertically(CRect& r, const CRect& c)
{
    Place(r, 0, WrapSub(H(c), H(r)) / 2);
}

// The smallest rectangle around both; an empty one (right not above left, or bottom not below
// top) does not count, and two empty ones give (0, 0, 0, 0).
inline CRect Union(const CRect& a, const CRect& b)
{
    CRect rect(0, 0, 0, 0);
    rect.UnionRect(&a, &b);
    return rect;
}
