// A drawing on any device context.
#pragma once

#include <optional>

#include "picture/drawing.h"

class CDC;

// In logical units, the formula's corner at a point. The state of the context is as before.
void PaintOnHost(CDC& dc, CPoint corner, const CDrawing& drawing,
                 const std::optional<COLORREF>& background);
