// The default format table, and the table's archive form.
#include "format/tree_format.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "format/node_types.h"
#include "platform/base/archive.h"
#include "platform/base/system.h"
#include "platform/gdi/gdi.h"

CBinTreeFormat g_DefaultFormat;

namespace
{
using CSlot = CFormatInfoOb* CBinTreeFormat::*;

struct CRecordRow
{
    EFormatRecord nRecord;
    CSlot slot;
    const char* pszFont;
    bool bWindowText;  // else black, whatever the system's colour is
    int nBold;
    int nItalic;
    BYTE nCharSet;
};

constexpr int s_nStoredRecords = FR_EXTRA;
// clang-format off
constexpr CRecordRow s_aRecords[] = {
    // record       slot                          face            window text bold italic charset
    { FR_TEXT,     &CBinTreeFormat::m_pText,     "Times New Roman", true,  0, 0, 0 },
    { FR_VARIABLE, &CBinTreeFormat::m_pVariable, "Times New Roman", false, 0, 1, 0 },
    { FR_CONSTANT, &CBinTreeFormat::m_pConstant, "Times New Roman", false, 0, 1, 0 },
    { FR_NUMBER,   &CBinTreeFormat::m_pNumber,   "Times New Roman", false, 0, 0, 0 },
    { FR_FUNCTION, &CBinTreeFormat::m_pFunction, "Times New Roman", false, 1, 0, 0 },
    { FR_OPERATOR, &CBinTreeFormat::m_pOperator, "Symbol",          true,  0, 0, 2 },
    { FR_SYMBOL,   &CBinTreeFormat::m_pSymbol,   "Symbol",          true,  0, 0, 2 },
    { FR_EXTRA,    &CBinTreeFormat::m_pExtra,    "MT Extra",        true,  0, 0, 2 },
};
// clang-format on
static_assert(IsInOrder(s_aRecords, &CRecordRow::nRecord, FR_COUNT),
              "types tell records by number");

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
    for (int i = 0; i < NTI_COUNT; ++i)
    {
        const auto nType = static_cast<ENodeType>(i);
        m_TypeMap.SetAt(NodeTypeName(nType), this->*s_aRecords[NodeTypeData(nType).nRecord].slot);
    }
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
