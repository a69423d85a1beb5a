// A formula in words, for whoever cannot see its picture.
#pragma once

#include <string>

#include "service/formula_out.h"

// In UTF-8, one line; empty for an empty formula.
std::string WordsOf(CFormulaOut& formula);
