// The rectangles of the nodes over a picture, for whoever looks for a fault in the layout.
#pragma once

#include <vector>

#include "platform/base/geometry.h"

class CBinTree;
class CDC;
class CNode;

// Where a node is; one unit is a pixel of the screen.
struct CNodeBox
{
    const CNode* pNode;
    CRect subtree;
    CRect own;
    int nAxis;  // y
};

// In the order in which nodes are painted: a node, what is left below it, what is right. The tree
// has just been painted at (0, 0), on pDC or a context that measures alike.
std::vector<CNodeBox> FindBoxes(CBinTree& tree, CDC* pDC);

// How they are drawn: own parts in blue, subtrees in grey, axes in red; lines of a rectangle lie
// inside of it.
struct CBoxColour
{
    double fRed;
    double fGreen;
    double fBlue;
    double fOpacity;
};
constexpr CBoxColour s_subtreeColour = { 0.4, 0.4, 0.4, 0.5 };
constexpr CBoxColour s_ownColour = { 0, 0.2, 1, 0.8 };
constexpr CBoxColour s_axisColour = { 1, 0, 0, 0.6 };
constexpr double BOX_LINE = 0.5;     // width
constexpr double AXIS_OVERHANG = 2;  // on both sides of the subtree

// Calls fill(left, top, right, bottom, colour) for the bars that the boxes are drawn with.
template <class Fill>
void DrawBoxes(const std::vector<CNodeBox>& boxes, Fill fill)
{
    const auto frame = [&](const CRect& rect, const CBoxColour& colour)
    {
        const double l = rect.left;
        const double t = rect.top;
        const double r = rect.right;
        const double b = rect.bottom;
        if (r - l <= 2 * BOX_LINE || b - t <= 2 * BOX_LINE)  // too small for an inside
        {
            fill(l, t, r < l + BOX_LINE ? l + BOX_LINE : r, b < t + BOX_LINE ? t + BOX_LINE : b,
                 colour);
            return;
        }
        fill(l, t, r, t + BOX_LINE, colour);
        fill(l, b - BOX_LINE, r, b, colour);
        fill(l, t + BOX_LINE, l + BOX_LINE, b - BOX_LINE, colour);
        fill(r - BOX_LINE, t + BOX_LINE, r, b - BOX_LINE, colour);
    };
    for (const CNodeBox& box : boxes)
    {
        frame(box.subtree, s_subtreeColour);
        frame(box.own, s_ownColour);
        fill(box.subtree.left - AXIS_OVERHANG, box.nAxis - BOX_LINE / 2,
             box.subtree.right + AXIS_OVERHANG, box.nAxis + BOX_LINE / 2, s_axisColour);
    }
}
