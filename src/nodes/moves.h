// The moves that the shapes of the node family are made of, on top of the arithmetic of box.h.
#pragma once

#include <algorithm>

#include "nodes/box.h"
#include "nodes/node.h"

// Adds up lengths; wraps like the rest.
template <class... T>
constexpr int Sum(int a, T... rest)
{
    ((a = WrapAdd(a, rest)), ...);
    return a;
}

// Places a part at (x, y) and moves y one unit below it.
inline void StackDown(CRect& part, int x, int& y)
{
    Place(part, x, y);
    y = Sum(y, H(part), 1);
}

// Places a part at (x, y) and moves x one unit to the right of it.
inline void PlaceInRow(CRect& part, int& x, int y)
{
    Place(part, x, y);
    x = Sum(x, W(part), 1);
}

inline int WidestOf(const CRect& a, const CRect& b)
{
    return std::max(W(a), W(b));
}
inline int WidestOf(const CRect& a, const CRect& b, const CRect& c)
{
    return std::max(WidestOf(a, b), W(c));
}
inline int HighestOf(const CRect& a, const CRect& b, const CRect& c)
{
    return std::max({ H(a), H(b), H(c) });
}

// The axis of a part that was just measured; 0 for one without height or without a node.
inline int AxisOf(const CNode* pPart, const CRect& part)
{
    return pPart && H(part) != 0 ? pPart->m_nBaseline : 0;
}

// By how much the part with the higher axis stands out over the other: the other is moved down.
inline int Excess(int nAxis, int nOther)
{
    return nAxis > nOther ? WrapSub(nAxis, nOther) : 0;
}
