// The node types as a table: a name, the class that stands behind it and how it is made.
#pragma once

#include "platform/base/cstring.h"

class CNode;

// Row numbers of the table.
enum ENodeType
{
    NTI_STANDARD,
    NTI_DIVISION,
    NTI_NTHROOT,
    NTI_ROOT,
    NTI_POWERTO,
    NTI_PLACEHOLDER,
    NTI_BRACE,
    NTI_EQUATION,
    NTI_PLUS,
    NTI_MINUS,
    NTI_TIMES,
    NTI_NUMBER,
    NTI_PARTDERIVE,
    NTI_DERIVE,
    NTI_SUM,
    NTI_PROD,
    NTI_RANGE,
    NTI_INTEGRAL,
    NTI_INTEGRAND,
    NTI_FUNC,
    NTI_USERFUNC,
    NTI_EXTFUNC,
    NTI_POISON,
    NTI_INDEX,
    NTI_VECTOR,
    NTI_CONSTANT,
    NTI_VARIABLE,
    NTI_LIMES,
    NTI_OPERATOR,
    NTI_ARROWS,
    NTI_BINOMIAL,
    NTI_MATRIX,
    NTI_LINE,
    NTI_ELEMENT,
    NTI_NABLA,
    NTI_LAPLACE,
    NTI_INFINITY,
    NTI_PLANCK,
    NTI_LAMBDA,
    NTI_CROSS,
    NTI_LABEL,
    NTI_COUNT
};

struct CNodeType
{
    const CString* pstrName;  // immortal
    CNode* (*pfnCreate)();
};

const CNodeType& GetNodeType(ENodeType nType);

// The row of a name, compared with its case; null for an unknown name.
const CNodeType* FindNodeType(const CString& strName);
