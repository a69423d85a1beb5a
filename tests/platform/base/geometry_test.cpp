// Rectangles: empty, inverted and overflowing ones.
#include "platform/base/geometry.h"

#include <gtest/gtest.h>

#include <climits>

void PrintTo(const CRect& r, std::ostream* pStream);  // found by the type of its argument
void PrintTo(const CRect& r, std::ostream* pStream)
{
    *pStream << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}

TEST(CRect, UnionLeavesOutEmptyRectangles)
{
    const CRect box(10, 20, 30, 40);
    const struct
    {
        CRect first, second, expected;
    } aCases[] = {
        { box, { 25, 5, 50, 30 }, { 10, 5, 50, 40 } },
        { box, { 0, 0, 0, 100 }, box },    // no width
        { { 0, 0, 100, 0 }, box, box },    // no height
        { box, { 100, 0, 50, 10 }, box },  // inverted
        { { 9, 9, 9, 9 }, { 5, 9, 1, 3 }, { 0, 0, 0, 0 } },
    };
    for (const auto& c : aCases)
    {
        CRect result(1, 2, 3, 4);
        EXPECT_EQ(result.UnionRect(&c.first, &c.second), c.expected != CRect());
        EXPECT_EQ(result, c.expected);
        CRect own(c.first);
        own.UnionRect(own, &c.second);  // the result may be one of the arguments
        EXPECT_EQ(own, c.expected);
    }
}

TEST(CRect, IntersectionOfStrangersIsNull)
{
    CRect result(1, 2, 3, 4);
    const CRect box(0, 0, 10, 10);
    EXPECT_TRUE(result.IntersectRect(box, CRect(5, -5, 20, 5)));
    EXPECT_EQ(result, CRect(5, 0, 10, 5));
    EXPECT_FALSE(result.IntersectRect(box, CRect(10, 0, 20, 10)));  // they only touch
    EXPECT_EQ(result, CRect());
    EXPECT_FALSE(result.IntersectRect(box, CRect(8, 8, 2, 2)));
}

TEST(CRect, HoldsItsLeftAndTopEdgesOnly)
{
    const CRect box(10, 20, 30, 40);
    const struct
    {
        CRect rect;
        CPoint point;
        BOOL bInside;
    } aCases[] = {
        { box, { 10, 20 }, TRUE },
        { box, { 29, 39 }, TRUE },
        { box, { 9, 20 }, FALSE },
        { box, { 10, 19 }, FALSE },
        { box, { 30, 25 }, FALSE },
        { box, { 15, 40 }, FALSE },
        { { 30, 20, 10, 40 }, { 20, 30 }, FALSE },  // inverted: nothing
        { { 5, 5, 5, 9 }, { 5, 5 }, FALSE },
    };
    for (const auto& c : aCases)
        EXPECT_EQ(c.rect.PtInRect(c.point), c.bInside) << c.point.x << ' ' << c.point.y;
}

TEST(CRect, NothingPutsAnInvertedOneRightUnasked)
{
    CRect rect(30, 40, 10, 20);
    EXPECT_EQ(rect.Size(), CSize(-20, -20));
    rect.OffsetRect(1, -1);
    EXPECT_EQ(rect, CRect(31, 39, 11, 19));
    rect.InflateRect(2, 3);
    EXPECT_EQ(rect, CRect(29, 36, 13, 22));
    EXPECT_TRUE(rect.IsRectEmpty());
    rect.NormalizeRect();
    EXPECT_EQ(rect, CRect(13, 22, 29, 36));
    EXPECT_EQ(rect.CenterPoint(), CPoint(21, 29));
    EXPECT_EQ(CRect(-3, -3, 0, 0).CenterPoint(), CPoint(-1, -1));
    rect.DeflateRect(1, 2, 3, 4);
    EXPECT_EQ(rect, CRect(14, 24, 26, 32));
}

TEST(CRect, WrapsAroundAsMachineArithmetic)
{
    CRect rect(INT_MIN, INT_MAX, INT_MAX, INT_MIN);
    EXPECT_EQ(rect.Width(), -1);
    EXPECT_EQ(rect.Height(), 1);
    rect.OffsetRect(1, 1);
    EXPECT_EQ(rect, CRect(INT_MIN + 1, INT_MIN, INT_MIN, INT_MIN + 1));
    rect.InflateRect(INT_MAX, INT_MAX);
    EXPECT_EQ(rect.left, 2);
    EXPECT_EQ(-CPoint(INT_MIN, 1), CPoint(INT_MIN, -1));
}
