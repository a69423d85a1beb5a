// The node types as a table: a name, the class that stands behind it and how it is made.
#pragma once

#include "nodes/type_names.h"
#include "platform/base/cstring.h"

class CNode;

struct CNodeType
{
    const CString* pstrName;  // immortal
    CNode* (*pfnCreate)();
};

const CNodeType& GetNodeType(ENodeType nType);

// The row of a name, compared with its case; null for an unknown name.
const CNodeType* FindNodeType(const CString& strName);
