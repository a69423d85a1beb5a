// Rectangles: empty, inverted and overflowing ones.
#include "platform/base/geometry.h"

#include <gtest/gtest.h>

#include <climits>

void PrintTo(const CRect& r, std::ostream* pStream);  // found by the type of its argument
void PrintTo(const CRect& r, std::ostream* pStream)
{
    *pStream << "(" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << ")";
}

TEST(CRect, JoinsAndMeetsAnother)
{
    const CRect box(10, 20, 30, 40);
    const CRect none;
    const struct
    {
        CRect first, second, joined, common;
    } aCases[] = {
        { box, { 25, 5, 50, 30 }, { 10, 5, 50, 40 }, { 25, 20, 30, 30 } },
        { box, { 30, 20, 40, 40 }, { 10, 20, 40, 40 }, none },  // they only touch
        { box, { 0, 0, 0, 100 }, box, none },                   // no width
        { { 0, 0, 100, 0 }, box, box, none },                   // no height
        { box, { 28, 38, 12, 22 }, box, none },                 // inverted
        { { 9, 9, 9, 9 }, { 5, 9, 1, 3 }, none, none },
    };
    for (const auto& c : aCases)
    {
        CRect result(1, 2, 3, 4);
        EXPECT_EQ(result.UnionRect(&c.first, &c.second), c.joined != none);
        EXPECT_EQ(result, c.joined);
        EXPECT_EQ(result.IntersectRect(c.first, c.second), c.common != none);
        EXPECT_EQ(result, c.common);
        CRect own(c.first);
        own.UnionRect(own, &c.second);  // the result may be one of the arguments
        EXPECT_EQ(own, c.joined);
    }
}

TEST(CRect, HoldsItsLeftAndTopEdgesOnly)
{
    const CRect box(10, 20, 30, 40);
    for (const CPoint inside : { CPoint(10, 20), CPoint(29, 39) })
        EXPECT_TRUE(box.PtInRect(inside)) << inside.x;
    for (const CPoint outside : { CPoint(9, 20), CPoint(10, 19), CPoint(30, 25), CPoint(15, 40) })
        EXPECT_FALSE(box.PtInRect(outside)) << outside.x;
    EXPECT_FALSE(CRect(30, 20, 10, 40).PtInRect(CPoint(20, 30)));  // inverted: nothing
    EXPECT_FALSE(CRect(5, 5, 5, 9).PtInRect(CPoint(5, 5)));
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
