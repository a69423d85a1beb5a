// The formulas that the benchmarks share.
#pragma once

#include <string>
#include <vector>

class CNode;

// The lines of tests/data/formulas.txt; ends the program if the file is not there.
const std::vector<std::string>& Formulas();

// The nodes of a tree; 0 without a root.
int CountNodes(CNode* pRoot);
