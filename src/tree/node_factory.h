// How a node is made from its type.
// Beside the table of the types' names, this is the only place that knows all classes.
#pragma once

#include "format/node_types.h"

class CNode;

// A new node of a type with its name, the caller's; not formatted. CMemoryException.
CNode* MakeNode(ENodeType nType);

// The same by name. An unknown name gives a plain node of that name, in its constructor's font.
CNode* MakeNode(const CString& strType);
