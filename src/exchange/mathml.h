// A formula as MathML, for browsers and for screen readers.
#pragma once

#include <string>

class CNode;

// A math element of MathML Core in UTF-8, on one line. What the next painting of the tree would
// show is what is written: a sign that shows as a question mark is one, and an intent tells what it
// means. pRoot may be null. The tree stays as it is. CInvalidArgException for a kind outside its
// table.
std::string MathMLText(const CNode* pRoot);
