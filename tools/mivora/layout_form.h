// The place of every node as one line of JSON.
#pragma once

#include <string>

#include "service/formula_out.h"

// Measures and paints the tree on the screen's device context, at (0, 0).
std::string LayoutForm(CFormulaOut& formula);
