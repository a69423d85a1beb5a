// Formulas in files of their own: saved as the library does it, and read back, which its public
// class has no operation for.
#pragma once

#include <string>

#include "service/formula_out.h"

// Both throw CFailure. What is loaded stands as it was stored: nothing is parsed or reformatted.
void SaveStored(CFormulaOut& formula, const std::string& strPath);
void LoadStored(CFormulaOut& formula, const std::string& strPath);

// Text, rectangle, name, tree and format: a line each, or one line of JSON; with line breaks.
std::string DescribeStored(CFormulaOut& formula);
std::string DescribeStoredAsJson(CFormulaOut& formula);
