// Trees written as text, for formulas that no source text gives.
#pragma once

#include <string>

#include <mivora/tree/bin_tree.h>

// Makes a sketch the content of a tree:
//
//     (TYPE[kind] "symbol" LEFT RIGHT)    kind, symbol and children may be left out
//     word, 12                            a variable, a number
//     -                                   no child
//
// The type is a node type without its NT_. A sketch that is none throws std::runtime_error.
void BuildTree(CBinTree& tree, const std::string& strSketch);
