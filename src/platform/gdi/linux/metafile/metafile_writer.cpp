// Calls become records. Every byte of a record is set: two recordings of the same calls are equal.
#include "platform/gdi/linux/metafile/metafile_writer.h"

#include "platform/base/code_page.h"
#include "platform/base/rounding.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace
{

LOGFONTW WideFont(const LOGFONTA& font)
{
    LOGFONTW wide{};
    static_assert(offsetof(LOGFONTA, lfFaceName) == offsetof(LOGFONTW, lfFaceName));
    std::memcpy(static_cast<void*>(&wide), &font, offsetof(LOGFONTA, lfFaceName));
    for (int i = 0; i < LF_FACESIZE - 1 && font.lfFaceName[i] != '\0'; ++i)
    {
        wide.lfFaceName[i] = static_cast<char16_t>(
            Windows1252ToUnicode(static_cast<unsigned char>(font.lfFaceName[i])));
    }
    return wide;
}

// The strings of the list one behind the other, each with its end, and the end of the list.
std::u16string WideDescription(LPCSTR pszList)
{
    std::u16string strWide;
    if (!pszList || !*pszList)
        return strWide;
    for (; *pszList; ++pszList)
    {
        for (; *pszList; ++pszList)
        {
            strWide +=
                static_cast<char16_t>(Windows1252ToUnicode(static_cast<unsigned char>(*pszList)));
        }
        strWide += u'\0';
    }
    strWide += u'\0';
    return strWide;
}
}  // namespace

DWORD CMetafileObjects::Add(const CHandleObject& object)
{
    auto free = std::find(m_slots.begin(), m_slots.end(), nullptr);
    if (free == m_slots.end())
    {
        if (m_slots.size() >= std::numeric_limits<WORD>::max() - 1U)
            return 0;
        free = m_slots.insert(free, nullptr);
    }
    *free = &object;
    return static_cast<DWORD>(free - m_slots.begin() + 1);
}

CMetafileWriter::CMetafileWriter(const CDeviceInfo& device, const RECT* pFrame, LPCSTR pszFile,
                                 LPCSTR pszDescription)
    : m_pBits(CMetafileBits::Take())
{
    if (pFrame)
        m_frame = *pFrame;
    if (pszFile)
        m_strFile = pszFile;
    WriteHeader(device, pszDescription);
}

CMetafileWriter::~CMetafileWriter() = default;

// nBytes of a record, not initialised; null if memory is short.
BYTE* CMetafileWriter::WriteLong(std::size_t nBytes)
{
    BYTE* pPlace = m_pBits ? m_pBits->Extend(nBytes) : nullptr;
    if (pPlace)
        ++m_nRecords;
    else
        m_bFailed = true;
    return pPlace;
}

// Counts and bounds are filled in at the end.
void CMetafileWriter::WriteHeader(const CDeviceInfo& device, LPCSTR pszDescription)
{
    std::u16string strDescription = WideDescription(pszDescription);
    const std::size_t nText = strDescription.size() * sizeof(char16_t);
    const std::size_t nSize = sizeof(ENHMETAHEADER) + RoundUp4(nText);
    BYTE* pPlace = WriteLong(nSize);
    if (!pPlace)
        return;

    auto header = MakeRecord<ENHMETAHEADER>(EMR_HEADER);
    header.nSize = static_cast<DWORD>(nSize);
    header.dSignature = ENHMETA_SIGNATURE;
    header.nVersion = ENHMETA_VERSION;
    header.nDescription = static_cast<DWORD>(strDescription.size());
    header.offDescription = strDescription.empty() ? 0 : sizeof header;
    header.szlDevice = { device.m_nWidth, device.m_nHeight };
    header.szlMillimeters = { device.m_nWidthMm, device.m_nHeightMm };
    header.szlMicrometers = { device.m_nWidthMm * 1000, device.m_nHeightMm * 1000 };
    std::memset(pPlace, 0, nSize);
    std::memcpy(pPlace, &header, sizeof header);
    std::memcpy(pPlace + sizeof header, strDescription.data(), nText);
}

CMetafileBits* CMetafileWriter::Finish()
{
    auto end = MakeRecord<EMREOF>(EMR_EOF);
    end.offPalEntries = offsetof(EMREOF, nSizeLast);
    end.nSizeLast = sizeof end;
    Write(end);
    if (m_bFailed)
        return nullptr;

    ENHMETAHEADER header;
    std::memcpy(&header, m_pBits->Data(), sizeof header);
    header.nBytes = static_cast<DWORD>(m_pBits->Size());
    header.nRecords = m_nRecords;
    header.nHandles = m_objects.Count();
    header.rclBounds = m_bounds;
    // Cut, not rounded, as GDI's recorder has it; an empty picture gives a frame of less than
    // nothing.
    auto toFrame = [](LONG nPixel, LONG nMillimetres, LONG nPixels)
    {
        return SaturateToInt(std::int64_t{ nPixel } * nMillimetres * 100 / nPixels);
    };
    header.rclFrame = m_frame.value_or(
        RECT{ toFrame(m_bounds.left, header.szlMillimeters.cx, header.szlDevice.cx),
              toFrame(m_bounds.top, header.szlMillimeters.cy, header.szlDevice.cy),
              toFrame(m_bounds.right, header.szlMillimeters.cx, header.szlDevice.cx),
              toFrame(m_bounds.bottom, header.szlMillimeters.cy, header.szlDevice.cy) });
    std::memcpy(m_pBits->Data(), &header, sizeof header);
    return m_pBits.release();
}

// An object is created in the record when it is first selected.
void CMetafileWriter::ObjectSelected(CDeviceContext&, const CHandleObject& object)
{
    if (object.StockIndex() != CHandleObject::NOT_STOCK)
    {
        WriteValue(EMR_SELECTOBJECT,
                   ENHMETA_STOCK_OBJECT + static_cast<DWORD>(object.StockIndex()));
        return;
    }
    DWORD nNumber = m_objects.Find(object);
    if (nNumber == 0)
    {
        nNumber = m_objects.Add(object);
        if (nNumber == 0 || !WriteCreation(object, nNumber))
        {
            m_bFailed = true;
            return;
        }
    }
    WriteValue(EMR_SELECTOBJECT, nNumber);
}

bool CMetafileWriter::WriteCreation(const CHandleObject& object, DWORD nNumber)
{
    switch (object.Type())
    {
        case OBJ_PEN:
        {
            const LOGPEN& pen = static_cast<const CPenObject&>(object).LogPen();
            auto record = MakeRecord<EMRCREATEPEN>(EMR_CREATEPEN);
            record.ihPen = nNumber;
            record.lopn = pen;
            return Write(record);
        }
        case OBJ_BRUSH:
        {
            const LOGBRUSH& brush = static_cast<const CBrushObject&>(object).LogBrush();
            auto record = MakeRecord<EMRCREATEBRUSHINDIRECT>(EMR_CREATEBRUSHINDIRECT);
            record.ihBrush = nNumber;
            record.lbStyle = brush.lbStyle;
            record.lbColor = brush.lbColor;
            record.lbHatch = static_cast<DWORD>(brush.lbHatch);
            return Write(record);
        }
        case OBJ_FONT:
        {
            auto record = MakeRecord<EMREXTCREATEFONTINDIRECTW>(EMR_EXTCREATEFONTINDIRECTW);
            record.ihFont = nNumber;
            record.elfw.elfLogFont = WideFont(static_cast<const CFontObject&>(object).LogFont());
            return Write(record);
        }
        default:
            return false;
    }
}

void CMetafileWriter::ObjectDeleted(const CHandleObject& object)
{
    DWORD nNumber = m_objects.Find(object);
    if (nNumber == 0)
        return;
    m_objects.Remove(nNumber);
    WriteValue(EMR_DELETEOBJECT, nNumber);
}

void CMetafileWriter::StateSaved(CDeviceContext&)
{
    Write(MakeRecord<EMR>(EMR_SAVEDC));
    ++m_nSaved;
}

// A record tells the level from the top: a player may hold other levels below ours.
void CMetafileWriter::StateRestored(CDeviceContext&, int nSaved)
{
    int nRelative = nSaved < 0 ? nSaved : nSaved - m_nSaved - 1;
    m_nSaved += nRelative;
    WriteValue(EMR_RESTOREDC, static_cast<DWORD>(nRelative));
}

void CMetafileWriter::ClipRectIntersected(CDeviceContext&, const RECT& rect)
{
    auto record = MakeRecord<EMRRECT>(EMR_INTERSECTCLIPRECT);
    record.rect = rect;
    Write(record);
}

bool CMetafileWriter::Comment(CDeviceContext&, std::span<const BYTE> data)
{
    if (data.size() > CMetafileBits::SIZE_LIMIT)
        return false;
    const std::size_t nSize = sizeof(EMRGDICOMMENT) + RoundUp4(data.size());
    BYTE* pPlace = WriteLong(nSize);
    if (!pPlace)
        return false;
    EMRGDICOMMENT record{ { EMR_GDICOMMENT, static_cast<DWORD>(nSize) },
                          static_cast<DWORD>(data.size()) };
    std::memset(pPlace + nSize - sizeof(DWORD), 0, sizeof(DWORD));
    std::memcpy(pPlace, &record, sizeof record);
    if (!data.empty())
        std::memcpy(pPlace + sizeof record, data.data(), data.size());
    return true;
}
