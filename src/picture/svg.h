// SVG by our own hand: outlines of glyphs in whole hundredths of a pixel, nothing that has a name
// but what is drawn more than once.
#pragma once

#include <string>
#include <vector>

#include "picture/node_boxes.h"
#include "picture/placement.h"

// Any number of them can stand in one page: a glyph that is used again is named after its shape.
std::string SvgBytes(const CDrawing& drawing, const CPlacement& placement,
                     const CPictureOptions& options, const std::vector<CNodeBox>& boxes);
