// The moves from which layouts are put together, on rectangles with y down that start at (0, 0).
// Stored formulas can hold any 32-bit number: sums wrap, as they do in CRect.
#pragma once

#include <algorithm>

#include "nodes/node.h"

// Adds up lengths.
template <class... T>
constexpr int Sum(int a, T... rest)
{
    ((a = WrapAdd(a, rest)), ...);
    return a;
}

// Cuts towards zero; what 32 bits cannot hold gives the smallest number, as the processor does.
constexpr int TruncToInt(double d)
{
    constexpr double fLimit = 2147483648.0;
    return d > -fLimit - 1.0 && d < fLimit ? static_cast<int>(d) : -2147483647 - 1;
}

// Places a part at (x, y) and moves y one unit below it.
inline void StackDown(CRect& part, int x, int& y)
{
    part.OffsetRect(x, y);
    y = Sum(y, part.Height(), 1);
}

// Places a part at (x, y) and moves x one unit to the right of it.
inline void PlaceInRow(CRect& part, int& x, int y)
{
    part.OffsetRect(x, y);
    x = Sum(x, part.Width(), 1);
}

// Moves a part sideways by half of what c is wider: centred if both have the same left edge.
inline void CentreHorizontally(CRect& part, const CRect& c)
{
    part.OffsetRect(WrapSub(c.Width(), part.Width()) / 2, 0);
}

// The same downwards: centred if both have the same top edge.
inline void CentreVertically(CRect& part, const CRect& c)
{
    part.OffsetRect(0, WrapSub(c.Height(), part.Height()) / 2);
}

// The largest of widths and heights.
template <class... T>
int WidestOf(const CRect& first, const T&... rest)
{
    return std::max({ first.Width(), rest.Width()... });
}
template <class... T>
int HighestOf(const CRect& first, const T&... rest)
{
    return std::max({ first.Height(), rest.Height()... });
}

// The axis of a part that was just measured; 0 for one without height or without a node.
inline int AxisOf(const CNode* pPart, const CRect& part)
{
    return pPart && part.Height() != 0 ? pPart->m_nBaseline : 0;
}

// By how much the part with the higher axis stands out over the other: the other is moved down.
inline int Excess(int nAxis, int nOther)
{
    return nAxis > nOther ? WrapSub(nAxis, nOther) : 0;
}
