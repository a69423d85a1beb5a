// The names of the node types.
#include "nodes/type_names.h"

#include <array>

namespace
{
constexpr const char* s_apszNames[NTI_COUNT] = {
    "NT_STANDARD",   "NT_DIVISION", "NT_NTHROOT",  "NT_ROOT",    "NT_POWERTO",  "NT_PLACEHOLDER",
    "NT_BRACE",      "NT_EQUATION", "NT_PLUS",     "NT_MINUS",   "NT_TIMES",    "NT_NUMBER",
    "NT_PARTDERIVE", "NT_DERIVE",   "NT_SUM",      "NT_PROD",    "NT_RANGE",    "NT_INTEGRAL",
    "NT_INTEGRAND",  "NT_FUNC",     "NT_USERFUNC", "NT_EXTFUNC", "NT_POISON",   "NT_INDEX",
    "NT_VECTOR",     "NT_CONSTANT", "NT_VARIABLE", "NT_LIMES",   "NT_OPERATOR", "NT_ARROWS",
    "NT_BINOMIAL",   "NT_MATRIX",   "NT_LINE",     "NT_ELEMENT", "NT_NABLA",    "NT_LAPLACE",
    "NT_INFINITY",   "NT_PLANCK",   "NT_LAMBDA",   "NT_CROSS",   "NT_LABEL",
};

// Types by the hash of their names, with open addressing; a name is found with one comparison.
class CNameTable
{
public:
    CNameTable()
    {
        m_aSlots.fill(NTI_COUNT);
        for (int i = 0; i < NTI_COUNT; ++i)
        {
            m_aNames[i] = CString::Immortal(s_apszNames[i]);
            *FindSlot(m_aNames[i]) = static_cast<ENodeType>(i);
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

const CString& NodeTypeName(ENodeType nType)
{
    return NameTable().GetName(nType);
}

ENodeType FindNodeType(const CString& strName)
{
    return *NameTable().FindSlot(strName);
}

std::optional<ENodeType> NodeTypeFromName(const CString& strName)
{
    const ENodeType nType = FindNodeType(strName);
    return nType == NTI_COUNT ? std::nullopt : std::optional(nType);
}
