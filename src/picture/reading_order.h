// The texts of a drawing in the order in which a reader meets them.
#pragma once

#include <vector>

#include "picture/drawing.h"
#include "picture/node_boxes.h"

// Numbers of texts: what is left below a node, its own sign, what is right; a bracket stands on
// both sides of what it encloses. boxes are those of the drawing's tree.
std::vector<size_t> ReadingOrder(const CDrawing& drawing, const std::vector<CNodeBox>& boxes);
