// Points, sizes and rectangles: value types with the layout of POINT, SIZE and RECT. A rectangle's
// right and bottom edges lie outside of it, and nothing puts an inverted one right unasked.
#pragma once

#include "platform/base/types.h"

// Coordinates may come from a damaged file: sums wrap around as 32-bit machine arithmetic does.
constexpr LONG WrapAdd(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
constexpr LONG WrapSub(LONG a, LONG b)
{
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}

class CSize : public SIZE
{
public:
    constexpr CSize() : SIZE{ 0, 0 } {}
    constexpr CSize(int nWidth, int nHeight) : SIZE{ nWidth, nHeight } {}
    constexpr CSize(const SIZE& size) : SIZE(size) {}

    friend constexpr bool operator==(const CSize& a, const CSize& b)
    {
        return a.cx == b.cx && a.cy == b.cy;
    }
    constexpr CSize operator-() const { return { WrapSub(0, cx), WrapSub(0, cy) }; }
    constexpr CSize operator+(const CSize& b) const
    {
        return { WrapAdd(cx, b.cx), WrapAdd(cy, b.cy) };
    }
    constexpr CSize operator-(const CSize& b) const
    {
        return { WrapSub(cx, b.cx), WrapSub(cy, b.cy) };
    }
    constexpr void operator+=(const CSize& b) { *this = *this + b; }
    constexpr void operator-=(const CSize& b) { *this = *this - b; }
};

class CPoint : public POINT
{
public:
    constexpr CPoint() : POINT{ 0, 0 } {}
    constexpr CPoint(int nX, int nY) : POINT{ nX, nY } {}
    constexpr CPoint(const POINT& point) : POINT(point) {}

    constexpr void Offset(int dx, int dy) { *this += CSize(dx, dy); }

    friend constexpr bool operator==(const CPoint& a, const CPoint& b)
    {
        return a.x == b.x && a.y == b.y;
    }
    constexpr CPoint operator-() const { return { WrapSub(0, x), WrapSub(0, y) }; }
    constexpr CPoint operator+(const CSize& size) const
    {
        return { WrapAdd(x, size.cx), WrapAdd(y, size.cy) };
    }
    constexpr CPoint operator-(const CSize& size) const
    {
        return { WrapSub(x, size.cx), WrapSub(y, size.cy) };
    }
    constexpr CSize operator-(const CPoint& b) const
    {
        return { WrapSub(x, b.x), WrapSub(y, b.y) };
    }
    constexpr void operator+=(const CSize& size) { *this = *this + size; }
    constexpr void operator-=(const CSize& size) { *this = *this - size; }
};

class CRect : public RECT
{
public:
    constexpr CRect() : RECT{ 0, 0, 0, 0 } {}
    constexpr CRect(int l, int t, int r, int b) : RECT{ l, t, r, b } {}
    constexpr CRect(const RECT& rect) : RECT(rect) {}
    constexpr CRect(const RECT* pRect) : RECT(*pRect) {}
    constexpr CRect(CPoint topLeft, CSize size)
        : RECT{ topLeft.x, topLeft.y, WrapAdd(topLeft.x, size.cx), WrapAdd(topLeft.y, size.cy) }
    {
    }
    constexpr CRect(CPoint topLeft, CPoint bottomRight)
        : RECT{ topLeft.x, topLeft.y, bottomRight.x, bottomRight.y }
    {
    }

    // Negative in an inverted rectangle.
    constexpr int Width() const { return WrapSub(right, left); }
    constexpr int Height() const { return WrapSub(bottom, top); }
    constexpr CSize Size() const { return { Width(), Height() }; }
    constexpr CPoint TopLeft() const { return { left, top }; }
    // The halves are rounded towards zero.
    constexpr CPoint CenterPoint() const
    {
        return { WrapAdd(left, right) / 2, WrapAdd(top, bottom) / 2 };
    }

    // An inverted rectangle is empty too.
    constexpr BOOL IsRectEmpty() const { return right <= left || bottom <= top; }
    constexpr BOOL PtInRect(POINT point) const
    {
        return left <= point.x && point.x < right && top <= point.y && point.y < bottom;
    }

    constexpr void SetRectEmpty() { *this = CRect(); }

    constexpr void OffsetRect(int dx, int dy)
    {
        *this = CRect(WrapAdd(left, dx), WrapAdd(top, dy), WrapAdd(right, dx), WrapAdd(bottom, dy));
    }
    constexpr void OffsetRect(SIZE size) { OffsetRect(size.cx, size.cy); }
    constexpr void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    constexpr void MoveToXY(int x, int y) { OffsetRect(WrapSub(x, left), WrapSub(y, top)); }

    // Moves each side outwards by the amount; negative amounts move it inwards.
    constexpr void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
    constexpr void InflateRect(SIZE size) { InflateRect(size.cx, size.cy); }
    constexpr void InflateRect(int l, int t, int r, int b)
    {
        *this = CRect(WrapSub(left, l), WrapSub(top, t), WrapAdd(right, r), WrapAdd(bottom, b));
    }
    constexpr void DeflateRect(int dx, int dy) { DeflateRect(dx, dy, dx, dy); }
    constexpr void DeflateRect(SIZE size) { DeflateRect(size.cx, size.cy); }
    constexpr void DeflateRect(int l, int t, int r, int b)
    {
        *this = CRect(WrapAdd(left, l), WrapAdd(top, t), WrapSub(right, r), WrapSub(bottom, b));
    }

    constexpr void NormalizeRect()
    {
        *this = CRect(left < right ? left : right, top < bottom ? top : bottom,
                      left < right ? right : left, top < bottom ? bottom : top);
    }

    // Becomes the smallest rectangle around both; one that is empty does not count. Two empty ones
    // give (0, 0, 0, 0) and FALSE.
    BOOL UnionRect(const RECT* pFirst, const RECT* pSecond);

    // Becomes what both share; (0, 0, 0, 0) and FALSE if that is nothing.
    BOOL IntersectRect(const RECT* pFirst, const RECT* pSecond);

    friend constexpr bool operator==(const CRect& a, const CRect& b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
    operator RECT*() { return this; }
    operator const RECT*() const { return this; }

    constexpr void operator+=(POINT point) { OffsetRect(point); }
    constexpr void operator-=(POINT point) { OffsetRect(-CPoint(point)); }
    void operator|=(const RECT& rect) { UnionRect(this, &rect); }
    void operator&=(const RECT& rect) { IntersectRect(this, &rect); }
    constexpr CRect operator+(POINT point) const
    {
        CRect result(*this);
        result += point;
        return result;
    }
    constexpr CRect operator-(POINT point) const
    {
        CRect result(*this);
        result -= point;
        return result;
    }
    CRect operator|(const RECT& rect) const
    {
        CRect result(*this);
        result |= rect;
        return result;
    }
    CRect operator&(const RECT& rect) const
    {
        CRect result(*this);
        result &= rect;
        return result;
    }
};

static_assert(sizeof(CRect) == 16 && sizeof(CPoint) == 8 && sizeof(CSize) == 8);
