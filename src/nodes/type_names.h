// The names of the node types. A name, never the run-time class, tells the type of a node;
// archives hold the names.
#pragma once

#include <optional>

#include "platform/base/cstring.h"

// In the order of the factory's table.
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

// "NT_..." as an immortal string: copies are free. Usable before main.
const CString& NodeTypeName(ENodeType nType);

// Compares exactly, with case; empty for an unknown name.
std::optional<ENodeType> NodeTypeFromName(const CString& strName);

// The same with NTI_COUNT for an unknown name, for who asks for every node of a tree: taking an
// optional apart costs more than the search.
ENodeType FindNodeType(const CString& strName);
