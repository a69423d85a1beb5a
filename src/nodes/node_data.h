// What each node type is constructed with: one table for all classes.
#pragma once

#include "nodes/type_names.h"
#include "platform/base/cstring.h"

// All strings are immortal: a node takes them by pointer.
struct CNodeData
{
    CString strSymbol;
    CString strDescription;
    int nPriority;  // -1 is none
    unsigned nFlags;
    int nLeftLevelStep;
    int nRightLevelStep;
    CString strTextFormat;  // three %s: left, own, right
    CString strTextOwn;     // empty: the symbol stands for the node
};

// Usable before main.
const CNodeData& NodeData(ENodeType nType);
