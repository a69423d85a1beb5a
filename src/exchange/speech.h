// A formula in words.
#pragma once

#include <string>

class CNode;

// What a listener needs to write the formula down: English in UTF-8, on one line, without an end
// mark. Brackets are told where they are shown; operands that belong together without showing it
// are called a quantity. pRoot may be null. The tree stays as it is. CInvalidArgException for a
// kind outside its table.
std::string SpokenText(const CNode* pRoot);
