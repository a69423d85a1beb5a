// The table of all node types.
#include "nodes/node_data.h"

#include <array>

namespace
{
struct CRow
{
    ENodeType nType;
    const char* pszSymbol;
    const char* pszDescription;
    int nPriority;
    unsigned nFlags;  // 1 the text can be edited, 2 replaceable
    int nLeftStep;
    int nRightStep;
    const char* pszTextFormat;
    const char* pszTextOwn;
};

// A question mark is one: these types show it in their font. Symbols and texts of the classes
// with kinds stand in their own tables. The factory takes the 2 from the first row.
// clang-format off
constexpr CRow s_aRows[] = {
    // type             symbol    description               prio flags L  R  format              own
    { NTI_STANDARD,     "",       "",                        -1, 2,    0, 0, "%s %s %s",         "" },
    { NTI_DIVISION,     "/",      "over",                     4, 2,    0, 0, "(%s)%s(%s)",       "/" },
    { NTI_NTHROOT,      "\xD6",   "n-th root",                1, 2,    0, 1, "(%s) %s (%s)))",   "** (-(1.0D0 /" },
    { NTI_ROOT,         "\xD6",   "square root",              1, 2,    0, 1, "SQRT(%s%s%s",      ")" },
    { NTI_POWERTO,      "^",      "power to",                 1, 2,    0, 1, "(%s) %s (%s)",     "**" },
    { NTI_PLACEHOLDER,  "",       "",                        -1, 2,    0, 0, "%s%s%s",           "EMPTY" },
    { NTI_BRACE,        "",       "brace",                    1, 2,    0, 0, "(%s%s%s",          ")" },
    { NTI_EQUATION,     "",       "equation",                20, 2,    0, 0, "%s %s %s",         "" },
    { NTI_PLUS,         "+",      "plus",                     6, 2,    0, 0, "%s %s %s",         "+" },
    { NTI_MINUS,        "-",      "minus",                    6, 2,    0, 0, "%s %s %s",         "-" },
    { NTI_TIMES,        "\xB4",   "times",                    4, 2,    0, 0, "(%s)%s(%s)",       "*" },
    { NTI_NUMBER,       "0.0",    "number",                   0, 3,    0, 0, "%s%s%s",           "" },
    { NTI_PARTDERIVE,   "?",      "partial d/dt",             1, 2,    0, 0, "DERIVE(%s %s %s)", "," },
    { NTI_DERIVE,       "d",      "d/dt",                     1, 2,    0, 0, "DERIVE(%s %s %s)", "," },
    { NTI_SUM,          "\xE5",   "sum",                     -1, 2,    0, 0, "SUM(%s %s %s)",    "," },
    { NTI_PROD,         "?",      "product",                 -1, 2,    0, 0, "PROD(%s %s %s)",   "," },
    { NTI_RANGE,        "range",  "placeholder for ranges",  -1, 0,    1, 1, "RANGE(%s %s %s)",  "," },
    { NTI_INTEGRAL,     "",       "Integral",                -1, 2,    0, 0, "INT(%s %s %s)",    "," },
    { NTI_INTEGRAND,    "d",      "integrand",               -1, 0,    0, 0, "%s%s %s",          "," },
    { NTI_FUNC,         "",       "function",                -1, 2,    0, 0, "%s%s%s",           "" },
    { NTI_USERFUNC,     "f",      "user function",           -1, 3,    0, 0, "%s%s%s",           "" },
    { NTI_EXTFUNC,      "",       "",                        -1, 2,    0, 0, "%s %s %s",         "" },
    { NTI_POISON,       "",       "brace",                   -1, 2,    0, 0, "(%s%s%s",          ")" },
    { NTI_INDEX,        "",       "",                         1, 0,    1, 1, "_%s_%s%s",         "" },
    { NTI_VECTOR,       "",       "overline",                 1, 2,    0, 0, "%s%s%s",           "" },
    { NTI_CONSTANT,     "const",  "",                        -1, 3,    0, 0, "%s%s%s",           "" },
    { NTI_VARIABLE,     "var",    "variable",                 0, 3,    0, 0, "%s%s%s",           "" },
    { NTI_LIMES,        "lim",    "lim",                      1, 2,    1, 0, "LIMES(%s %s %s)",  "," },
    { NTI_OPERATOR,     "?",      "->",                       1, 2,    0, 0, "%s %s %s",         "," },
    { NTI_ARROWS,       "",       "arrow",                    1, 2,    0, 0, "%s %s %s",         "" },
    { NTI_BINOMIAL,     "",       "",                         1, 2,    0, 0, "%s %s %s",         "" },
    { NTI_MATRIX,       "",       "",                         1, 2,    0, 0, "MATRIX(%s%s%s",    ")" },
    { NTI_LINE,         "",       "",                         1, 2,    0, 0, "%s%s%s)",          " LINE(" },
    { NTI_ELEMENT,      "",       "",                         1, 2,    0, 0, " ELEMENT(%s%s%s",  ")" },
    { NTI_NABLA,        "?",      "nabla",                    1, 2,    0, 0, "%s%s%s",           "NABLA" },
    { NTI_LAPLACE,      "D",      "laplace",                  1, 2,    0, 0, "%s%s_%s",          "DELTA" },
    { NTI_INFINITY,     "?",      "infinity",                 1, 2,    0, 0, "%s%s%s",           "INFINITY" },
    { NTI_PLANCK,       "h",      "planck",                   1, 2,    0, 0, "%s%s%s",           "PLANCK" },
    { NTI_LAMBDA,       "D",      "Lambda",                   1, 2,    0, 0, "%s%s%s",           "LAMBDA" },
    { NTI_CROSS,        "?",      "vectorproduct",            4, 2,    0, 0, "(%s)%s(%s)",       "VEC_PROD" },
    { NTI_LABEL,        "label",  "label",                    0, 1,    1, 1, "%s%s%s",           "" },
};
// clang-format on
static_assert(std::size(s_aRows) == NTI_COUNT);

constexpr bool IsInOrder()
{
    for (int i = 0; i < NTI_COUNT; ++i)
    {
        if (s_aRows[i].nType != i)
            return false;
    }
    return true;
}
static_assert(IsInOrder(), "the row number is the type");

std::array<CNodeData, NTI_COUNT> MakeTable()
{
    std::array<CNodeData, NTI_COUNT> table;
    for (const CRow& row : s_aRows)
    {
        table[row.nType] = { CString::Immortal(row.pszSymbol),
                             CString::Immortal(row.pszDescription),
                             row.nPriority,
                             row.nFlags,
                             row.nLeftStep,
                             row.nRightStep,
                             CString::Immortal(row.pszTextFormat),
                             CString::Immortal(row.pszTextOwn) };
    }
    return table;
}
}  // namespace

const CNodeData& NodeData(ENodeType nType)
{
    static const std::array<CNodeData, NTI_COUNT> s_table = MakeTable();
    return s_table[nType];
}
