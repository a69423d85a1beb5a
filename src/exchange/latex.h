// A formula as LaTeX.
#pragma once

#include <string>

class CNode;

// What goes between the dollar signs, in UTF-8, on one line: needs the package amsmath and nothing
// else. What the next painting of the tree would show is what is written. pRoot may be null: the
// text is empty. The tree stays as it is. CInvalidArgException for a kind outside its table.
std::string LatexText(const CNode* pRoot);
