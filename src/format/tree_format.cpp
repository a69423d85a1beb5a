// The default format table, and the table's archive form.
#include "format/tree_format.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "platform/base/archive.h"
#include "platform/base/system.h"
#include "platform/gdi/gdi.h"

CBinTreeFormat g_DefaultFormat;

namespace
{
using CSlot = CFormatInfoOb* CBinTreeFormat::*;

struct CRecordRow
{
    CSlot slot;
    const char* pszFont;
    bool bWindowText;  // else black, whatever the system's colour is
    int nBold;
    int nItalic;
    BYTE nCharSet;
};

// In the order of the archive, which leaves out the last one.
constexpr int s_nStoredRecords = 7;
// clang-format off
const CRecordRow s_aRecords[] = {
    // slot                        face            window text bold italic charset
    { &CBinTreeFormat::m_pText,     "Times New Roman", true,  0, 0, 0 },
    { &CBinTreeFormat::m_pVariable, "Times New Roman", false, 0, 1, 0 },
    { &CBinTreeFormat::m_pConstant, "Times New Roman", false, 0, 1, 0 },
    { &CBinTreeFormat::m_pNumber,   "Times New Roman", false, 0, 0, 0 },
    { &CBinTreeFormat::m_pFunction, "Times New Roman", false, 1, 0, 0 },
    { &CBinTreeFormat::m_pOperator, "Symbol",          true,  0, 0, 2 },
    { &CBinTreeFormat::m_pSymbol,   "Symbol",          true,  0, 0, 2 },
    { &CBinTreeFormat::m_pExtra,    "MT Extra",        true,  0, 0, 2 },
};
// clang-format on

struct CTypeRow
{
    const char* pszType;
    CSlot slot;
};

// Archives of formulas rely on these pairings, the odd ones too: a derivative is set as text, a
// partial one as an operator; limits and binomials are bold like function names.
// clang-format off
const CTypeRow s_aTypes[] = {
    { "NT_STANDARD",    &CBinTreeFormat::m_pText },
    { "NT_PLACEHOLDER", &CBinTreeFormat::m_pText },
    { "NT_DERIVE",      &CBinTreeFormat::m_pText },
    { "NT_INTEGRAND",   &CBinTreeFormat::m_pText },
    { "NT_INDEX",       &CBinTreeFormat::m_pText },
    { "NT_MATRIX",      &CBinTreeFormat::m_pText },
    { "NT_LINE",        &CBinTreeFormat::m_pText },
    { "NT_ELEMENT",     &CBinTreeFormat::m_pText },
    { "NT_LABEL",       &CBinTreeFormat::m_pText },
    { "NT_VARIABLE",    &CBinTreeFormat::m_pVariable },
    { "NT_CONSTANT",    &CBinTreeFormat::m_pConstant },
    { "NT_NUMBER",      &CBinTreeFormat::m_pNumber },
    { "NT_FUNC",        &CBinTreeFormat::m_pFunction },
    { "NT_USERFUNC",    &CBinTreeFormat::m_pFunction },
    { "NT_EXTFUNC",     &CBinTreeFormat::m_pFunction },
    { "NT_LIMES",       &CBinTreeFormat::m_pFunction },
    { "NT_BINOMIAL",    &CBinTreeFormat::m_pFunction },
    { "NT_DIVISION",    &CBinTreeFormat::m_pOperator },
    { "NT_POWERTO",     &CBinTreeFormat::m_pOperator },
    { "NT_PLUS",        &CBinTreeFormat::m_pOperator },
    { "NT_MINUS",       &CBinTreeFormat::m_pOperator },
    { "NT_TIMES",       &CBinTreeFormat::m_pOperator },
    { "NT_EQUATION",    &CBinTreeFormat::m_pOperator },
    { "NT_PARTDERIVE",  &CBinTreeFormat::m_pOperator },
    { "NT_RANGE",       &CBinTreeFormat::m_pOperator },
    { "NT_OPERATOR",    &CBinTreeFormat::m_pOperator },
    { "NT_CROSS",       &CBinTreeFormat::m_pOperator },
    { "NT_NTHROOT",     &CBinTreeFormat::m_pSymbol },
    { "NT_ROOT",        &CBinTreeFormat::m_pSymbol },
    { "NT_BRACE",       &CBinTreeFormat::m_pSymbol },
    { "NT_SUM",         &CBinTreeFormat::m_pSymbol },
    { "NT_PROD",        &CBinTreeFormat::m_pSymbol },
    { "NT_INTEGRAL",    &CBinTreeFormat::m_pSymbol },
    { "NT_POISON",      &CBinTreeFormat::m_pSymbol },
    { "NT_VECTOR",      &CBinTreeFormat::m_pSymbol },
    { "NT_NABLA",       &CBinTreeFormat::m_pSymbol },
    { "NT_LAPLACE",     &CBinTreeFormat::m_pSymbol },
    { "NT_ARROWS",      &CBinTreeFormat::m_pSymbol },
    { "NT_INFINITY",    &CBinTreeFormat::m_pSymbol },
    { "NT_PLANCK",      &CBinTreeFormat::m_pExtra },
    { "NT_LAMBDA",      &CBinTreeFormat::m_pExtra },
};
// clang-format on

constexpr int s_anSizes[] = { -12, -10, -8, -16, -12 };

// The old consumer systems drew small type badly: everything is two points larger there.
int SizeStep()
{
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof(info);
    const bool bOld = GetVersionExA(&info) && info.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS &&
                      info.dwMajorVersion < 5;
    return bOld ? 2 : 0;
}

// Tenths of a point; a size that a file or a host made absurd wraps around.
int TenTimes(int nSize)
{
    return static_cast<int>(static_cast<unsigned>(nSize) * 10U);
}
}  // namespace

CBinTreeFormat::CBinTreeFormat() : m_TypeMap(10)
{
    std::unique_ptr<CFormatInfoOb> aRecords[std::size(s_aRecords)];
    std::transform(std::begin(s_aRecords), std::end(s_aRecords), aRecords,
                   [](const CRecordRow& row)
                   {
                       return std::make_unique<CFormatInfoOb>(
                           CString::Immortal(row.pszFont),
                           row.bWindowText ? GetSysColor(COLOR_WINDOWTEXT) : 0, row.nBold,
                           row.nItalic, row.nCharSet);
                   });
    for (std::size_t n = 0; n < std::size(s_aRecords); ++n)
        this->*s_aRecords[n].slot = aRecords[n].get();
    const int nStep = SizeStep();
    std::transform(std::begin(s_anSizes), std::end(s_anSizes), m_nSizes,
                   [nStep](int nSize) { return nSize - nStep; });
    for (const CTypeRow& row : s_aTypes)
        m_TypeMap.SetAt(CString::Immortal(row.pszType), this->*row.slot);
    for (auto& pRecord : aRecords)
        pRecord.release();
}

CBinTreeFormat::~CBinTreeFormat()
{
    for (const CRecordRow& row : s_aRecords)
        delete (this->*row.slot);
}

int CBinTreeFormat::GetHeight(int nLevel) const
{
    return TenTimes(m_nSizes[std::clamp(nLevel, 0, 2)]);
}

int CBinTreeFormat::GetBigHeight(int nLevel) const
{
    return TenTimes(m_nSizes[nLevel <= 0 ? 3 : 4]);
}

CFormatInfoOb* CBinTreeFormat::FindRecord(const CString& strType) const
{
    CFormatInfoOb* pRecord = nullptr;
    m_TypeMap.Lookup(strType, pRecord);
    return pRecord;
}

void CBinTreeFormat::CopyFormat(const CBinTreeFormat& other)
{
    for (const CRecordRow& row : s_aRecords)
        (this->*row.slot)->Assign(*(other.*row.slot));
    std::copy(std::begin(other.m_nSizes), std::end(other.m_nSizes), m_nSizes);
}

// What is loaded takes effect as a whole: an archive that ends early leaves the table as it was.
void CBinTreeFormat::Serialize(CArchive& ar)
{
    CFormatInfoOb aLoaded[s_nStoredRecords];
    int anSizes[std::size(s_anSizes)];
    for (int i = 0; i < s_nStoredRecords; ++i)
        (ar.IsStoring() ? *(this->*s_aRecords[i].slot) : aLoaded[i]).Serialize(ar);
    for (std::size_t i = 0; i < std::size(anSizes); ++i)
    {
        if (ar.IsStoring())
            ar << m_nSizes[i];
        else
            ar >> anSizes[i];
    }
    if (ar.IsLoading())
    {
        for (int i = 0; i < s_nStoredRecords; ++i)
            (this->*s_aRecords[i].slot)->Assign(aLoaded[i]);
        std::copy(std::begin(anSizes), std::end(anSizes), m_nSizes);
    }
}
