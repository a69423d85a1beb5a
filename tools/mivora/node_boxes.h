// The rectangles of the nodes over a picture, for whoever looks for a fault in the layout.
#pragma once

#include <cairo.h>

#include "tree/bin_tree.h"

class CDC;

// Own parts in blue, subtrees in grey, axes in red; one unit is a pixel of the screen. The tree
// has just been painted at (0, 0) on pDC.
void DrawBoxes(cairo_t* pCairo, CBinTree& tree, CDC* pDC);
