// A page as large as the formula.
#pragma once

#include <string>
#include <vector>

#include "picture/node_boxes.h"
#include "picture/placement.h"

// Its text can be searched and read aloud. boxes are those of all nodes, and drawn if the options
// say so. Throws CPictureFailure. There is none on Windows.
std::string PdfBytes(const CDrawing& drawing, const CPlacement& placement,
                     const CPictureOptions& options, const std::vector<CNodeBox>& boxes);
