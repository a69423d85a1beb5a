// A tree written as one line of text, for people and tests.
#pragma once

#include "platform/base/cstring.h"

class CNode;

// (TYPE[kind] "symbol" left right); a missing node is "-". The kind stands for the types that
// have kinds, and a value node in the face "Symbol" is marked.
CString TreeForm(const CNode* pNode);

// Bytes outside printable ASCII, the quotation mark and the backslash as \xNN.
CString EscapeSymbol(const CString& strSymbol);

// Whether TreeForm shows the node's kind; it is given in nKind then.
bool HasShownKind(const CNode* pNode, int& nKind);

// Whether it is a name or a number in the face "Symbol".
bool IsShownGreek(const CNode* pNode);
