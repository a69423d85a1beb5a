// The formulas that the benchmarks share.
#pragma once

#include <string>
#include <vector>

// The lines of tests/data/formulas.txt; ends the program if the file is not there.
const std::vector<std::string>& Formulas();
