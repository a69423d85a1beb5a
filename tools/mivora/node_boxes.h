// The rectangles of the nodes over a picture, for whoever looks for a fault in the layout.
#pragma once

#include <vector>

#include "tree/bin_tree.h"

class CDC;

// Where a node is; one unit is a pixel of the screen.
struct CNodeBox
{
    CRect subtree;
    CRect own;
    int nAxis;  // y
};

// In the order in which they are drawn. The tree has just been painted at (0, 0), on pDC or a
// context that measures alike.
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
constexpr double s_fBoxLine = 0.5;     // width
constexpr double s_fAxisOverhang = 2;  // on both sides of the subtree
