// The node types: one row of a table for each of them. A name, never the run-time class, tells the
// type of a node; archives hold the names.
//
// A new type is an enumerator here, its row in node_types.cpp, a class, and a row in each table
// that higher layers keep by type (the factory, the readings of exchange). What is forgotten does
// not compile.
#pragma once

#include <cstddef>

#include "platform/base/cstring.h"

// The numbers of the types: tables by type have their rows in this order.
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

// The records of a format table (tree_format.h), in the order of the archive, which leaves out the
// last one.
enum EFormatRecord : unsigned char
{
    FR_TEXT,
    FR_VARIABLE,
    FR_CONSTANT,
    FR_NUMBER,
    FR_FUNCTION,
    FR_OPERATOR,
    FR_SYMBOL,
    FR_EXTRA,
    FR_COUNT
};

// What the kind of a node decides, in types that have kinds.
enum EKinds : unsigned char
{
    KINDS_NONE,
    KINDS_SHAPE,  // the arrangement
    KINDS_SIGN    // sign and face: a row of the table of the class
};

// What is the same for all nodes of a type. All strings are immortal: a node takes them by pointer.
struct CNodeType
{
    CString strSymbol;
    CString strDescription;
    int nPriority;  // -1 is none
    unsigned nFlags;
    int nLeftLevelStep;
    int nRightLevelStep;
    CString strTextFormat;  // three %s: left, own, right
    CString strTextOwn;     // empty: the symbol stands for the node
    EFormatRecord nRecord;
    EKinds nKinds;
    bool bMeasuresText;  // the size of the own part comes from a text
};

// Usable before main, like the others below.
const CNodeType& NodeTypeData(ENodeType nType);

// "NT_..." as an immortal string: copies are free.
const CString& NodeTypeName(ENodeType nType);

// Compares exactly, with case; NTI_COUNT for an unknown name.
ENodeType FindNodeType(const CString& strName);

// Whether each row stands at the place that its number tells, and none is missing: for tables in
// which a type, or a record, is looked up by its number.
template <class TRow, class TNumber, std::size_t N>
constexpr bool IsInOrder(const TRow (&rows)[N], TNumber TRow::*number, TNumber nCount)
{
    for (std::size_t i = 0; i < N; ++i)
    {
        if (rows[i].*number != static_cast<TNumber>(i))
            return false;
    }
    return N == static_cast<std::size_t>(nCount);
}
