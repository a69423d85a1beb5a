// The table of all node types.
#include "format/node_types.h"

#include <array>

namespace
{
struct CRow
{
    ENodeType nType;
    const char* pszName;
    EFormatRecord nRecord;
    EKinds nKinds;
    bool bMeasuresText;
    int nPriority;
    unsigned nFlags;  // 1 the text can be edited, 2 replaceable
    int nLeftStep;
    int nRightStep;
    const char* pszSymbol;
    const char* pszDescription;
    const char* pszTextFormat;
    const char* pszTextOwn;
};

// Stored formulas hold the names, and rely on the records, the odd ones too: a derivative is set as
// text, a partial one as an operator; limits and binomials are bold like function names. A question
// mark is one: these types show it in their font. Signs and generated texts of KINDS_SIGN stand in
// tables beside the classes. The factory takes the 2 from the first row.
// clang-format off
#define TYPE(name) NTI_##name, "NT_" #name
constexpr CRow s_aRows[] = {
    // type               format record kinds        text   pr  fl L  R  sign     description               generated text      own
    { TYPE(STANDARD),    FR_TEXT,      KINDS_NONE,  true,  -1, 2, 0, 0, "",      "",                       "%s %s %s",         "" },
    { TYPE(DIVISION),    FR_OPERATOR,  KINDS_SHAPE, false,  4, 2, 0, 0, "/",     "over",                   "(%s)%s(%s)",       "/" },
    { TYPE(NTHROOT),     FR_SYMBOL,    KINDS_NONE,  true,   1, 2, 0, 1, "\xD6",  "n-th root",              "(%s) %s (%s)))",   "** (-(1.0D0 /" },
    { TYPE(ROOT),        FR_SYMBOL,    KINDS_NONE,  true,   1, 2, 0, 1, "\xD6",  "square root",            "SQRT(%s%s%s",      ")" },
    { TYPE(POWERTO),     FR_OPERATOR,  KINDS_NONE,  false,  1, 2, 0, 1, "^",     "power to",               "(%s) %s (%s)",     "**" },
    { TYPE(PLACEHOLDER), FR_TEXT,      KINDS_NONE,  false, -1, 2, 0, 0, "",      "",                       "%s%s%s",           "EMPTY" },
    { TYPE(BRACE),       FR_SYMBOL,    KINDS_SIGN,  true,   1, 2, 0, 0, "",      "brace",                  "(%s%s%s",          ")" },
    { TYPE(EQUATION),    FR_OPERATOR,  KINDS_SIGN,  true,  20, 2, 0, 0, "",      "equation",               "%s %s %s",         "" },
    { TYPE(PLUS),        FR_OPERATOR,  KINDS_NONE,  true,   6, 2, 0, 0, "+",     "plus",                   "%s %s %s",         "+" },
    { TYPE(MINUS),       FR_OPERATOR,  KINDS_NONE,  true,   6, 2, 0, 0, "-",     "minus",                  "%s %s %s",         "-" },
    { TYPE(TIMES),       FR_OPERATOR,  KINDS_NONE,  true,   4, 2, 0, 0, "\xB4",  "times",                  "(%s)%s(%s)",       "*" },
    { TYPE(NUMBER),      FR_NUMBER,    KINDS_NONE,  true,   0, 3, 0, 0, "0.0",   "number",                 "%s%s%s",           "" },
    { TYPE(PARTDERIVE),  FR_OPERATOR,  KINDS_NONE,  true,   1, 2, 0, 0, "?",     "partial d/dt",           "DERIVE(%s %s %s)", "," },
    { TYPE(DERIVE),      FR_TEXT,      KINDS_NONE,  true,   1, 2, 0, 0, "d",     "d/dt",                   "DERIVE(%s %s %s)", "," },
    { TYPE(SUM),         FR_SYMBOL,    KINDS_NONE,  true,  -1, 2, 0, 0, "\xE5",  "sum",                    "SUM(%s %s %s)",    "," },
    { TYPE(PROD),        FR_SYMBOL,    KINDS_NONE,  true,  -1, 2, 0, 0, "?",     "product",                "PROD(%s %s %s)",   "," },
    { TYPE(RANGE),       FR_OPERATOR,  KINDS_NONE,  false, -1, 0, 1, 1, "range", "placeholder for ranges", "RANGE(%s %s %s)",  "," },
    { TYPE(INTEGRAL),    FR_SYMBOL,    KINDS_SIGN,  true,  -1, 2, 0, 0, "",      "Integral",               "INT(%s %s %s)",    "," },
    { TYPE(INTEGRAND),   FR_TEXT,      KINDS_NONE,  true,  -1, 0, 0, 0, "d",     "integrand",              "%s%s %s",          "," },
    { TYPE(FUNC),        FR_FUNCTION,  KINDS_SIGN,  true,  -1, 2, 0, 0, "",      "function",               "%s%s%s",           "" },
    { TYPE(USERFUNC),    FR_FUNCTION,  KINDS_NONE,  true,  -1, 3, 0, 0, "f",     "user function",          "%s%s%s",           "" },
    { TYPE(EXTFUNC),     FR_FUNCTION,  KINDS_NONE,  true,  -1, 2, 0, 0, "",      "",                       "%s %s %s",         "" },
    { TYPE(POISON),      FR_SYMBOL,    KINDS_SIGN,  true,  -1, 2, 0, 0, "",      "brace",                  "(%s%s%s",          ")" },
    { TYPE(INDEX),       FR_TEXT,      KINDS_NONE,  false,  1, 0, 1, 1, "",      "",                       "_%s_%s%s",         "" },
    { TYPE(VECTOR),      FR_SYMBOL,    KINDS_SIGN,  true,   1, 2, 0, 0, "",      "overline",               "%s%s%s",           "" },
    { TYPE(CONSTANT),    FR_CONSTANT,  KINDS_NONE,  true,  -1, 3, 0, 0, "const", "",                       "%s%s%s",           "" },
    { TYPE(VARIABLE),    FR_VARIABLE,  KINDS_NONE,  true,   0, 3, 0, 0, "var",   "variable",               "%s%s%s",           "" },
    { TYPE(LIMES),       FR_FUNCTION,  KINDS_NONE,  true,   1, 2, 1, 0, "lim",   "lim",                    "LIMES(%s %s %s)",  "," },
    { TYPE(OPERATOR),    FR_OPERATOR,  KINDS_NONE,  true,   1, 2, 0, 0, "?",     "->",                     "%s %s %s",         "," },
    { TYPE(ARROWS),      FR_SYMBOL,    KINDS_SIGN,  true,   1, 2, 0, 0, "",      "arrow",                  "%s %s %s",         "" },
    { TYPE(BINOMIAL),    FR_FUNCTION,  KINDS_NONE,  true,   1, 2, 0, 0, "",      "",                       "%s %s %s",         "" },
    { TYPE(MATRIX),      FR_TEXT,      KINDS_NONE,  false,  1, 2, 0, 0, "",      "",                       "MATRIX(%s%s%s",    ")" },
    { TYPE(LINE),        FR_TEXT,      KINDS_NONE,  false,  1, 2, 0, 0, "",      "",                       "%s%s%s)",          " LINE(" },
    { TYPE(ELEMENT),     FR_TEXT,      KINDS_NONE,  false,  1, 2, 0, 0, "",      "",                       " ELEMENT(%s%s%s",  ")" },
    { TYPE(NABLA),       FR_SYMBOL,    KINDS_NONE,  true,   1, 2, 0, 0, "?",     "nabla",                  "%s%s%s",           "NABLA" },
    { TYPE(LAPLACE),     FR_SYMBOL,    KINDS_NONE,  true,   1, 2, 0, 0, "D",     "laplace",                "%s%s_%s",          "DELTA" },
    { TYPE(INFINITY),    FR_SYMBOL,    KINDS_NONE,  true,   1, 2, 0, 0, "?",     "infinity",               "%s%s%s",           "INFINITY" },
    { TYPE(PLANCK),      FR_EXTRA,     KINDS_NONE,  true,   1, 2, 0, 0, "h",     "planck",                 "%s%s%s",           "PLANCK" },
    { TYPE(LAMBDA),      FR_EXTRA,     KINDS_NONE,  true,   1, 2, 0, 0, "D",     "Lambda",                 "%s%s%s",           "LAMBDA" },
    { TYPE(CROSS),       FR_OPERATOR,  KINDS_NONE,  true,   4, 2, 0, 0, "?",     "vectorproduct",          "(%s)%s(%s)",       "VEC_PROD" },
    { TYPE(LABEL),       FR_TEXT,      KINDS_NONE,  true,   0, 1, 1, 1, "label", "label",                  "%s%s%s",           "" },
};
#undef TYPE
// clang-format on
static_assert(IsInOrder(s_aRows, &CRow::nType, NTI_COUNT), "the row number is the type");

std::array<CNodeType, NTI_COUNT> MakeTable()
{
    std::array<CNodeType, NTI_COUNT> table;
    for (const CRow& row : s_aRows)
    {
        table[row.nType] = { CString::Immortal(row.pszSymbol),
                             CString::Immortal(row.pszDescription),
                             row.nPriority,
                             row.nFlags,
                             row.nLeftStep,
                             row.nRightStep,
                             CString::Immortal(row.pszTextFormat),
                             CString::Immortal(row.pszTextOwn),
                             row.nRecord,
                             row.nKinds,
                             row.bMeasuresText };
    }
    return table;
}

// Types by the hash of their names, with open addressing; a name is found with one comparison. The
// names stand apart from the other data: a search touches nothing else.
class CNameTable
{
public:
    CNameTable()
    {
        m_aSlots.fill(NTI_COUNT);
        for (const CRow& row : s_aRows)
        {
            m_aNames[row.nType] = CString::Immortal(row.pszName);
            *FindSlot(m_aNames[row.nType]) = row.nType;
        }
    }

    // The slot that holds the name, or the free one where it would be.
    ENodeType* FindSlot(const CString& strName)
    {
        unsigned nSlot = strName.GetHash() % s_nSlots;
        while (m_aSlots[nSlot] != NTI_COUNT && m_aNames[m_aSlots[nSlot]] != strName)
            nSlot = (nSlot + 1) % s_nSlots;
        return &m_aSlots[nSlot];
    }

    const CString& GetName(ENodeType nType) const { return m_aNames[nType]; }

private:
    static constexpr unsigned s_nSlots = 256;

    std::array<CString, NTI_COUNT> m_aNames;
    std::array<ENodeType, s_nSlots> m_aSlots;
};

CNameTable& NameTable()
{
    static CNameTable s_table;
    return s_table;
}
}  // namespace

const CNodeType& NodeTypeData(ENodeType nType)
{
    static const std::array<CNodeType, NTI_COUNT> s_table = MakeTable();
    return s_table[nType];
}

const CString& NodeTypeName(ENodeType nType)
{
    return NameTable().GetName(nType);
}

ENodeType FindNodeType(const CString& strName)
{
    return *NameTable().FindSlot(strName);
}
