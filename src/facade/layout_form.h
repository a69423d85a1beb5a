// The place of every node as one line of JSON.
#pragma once

#include <string>

#include "service/form_tree.h"
#include "service/formula_out.h"

// Measures and paints the tree on the screen's device context, at (0, 0). What the report has of an
// error or of text that is left out comes last.
std::string LayoutForm(CFormulaOut& formula, const CParseReport& report = {});
