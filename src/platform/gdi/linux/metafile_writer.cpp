// Calls become records. Every byte of a record is set: two recordings of the same calls are equal.
#include "platform/gdi/linux/metafile_writer.h"

#include "platform/base/code_page.h"
#include "platform/gdi/linux/font_cache.h"
#include "platform/gdi/linux/pixel_rows.h"
#include "platform/gdi/linux/rounding.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace
{

constexpr std::size_t RoundUp4(std::size_t nBytes)
{
    return (nBytes + 3) & ~std::size_t{ 3 };
}

// All fields zero but the head. A longer record sets its size itself.
template <class T>
T MakeRecord(DWORD nType)
{
    T record{};
    DWORD anHead[] = { nType, sizeof(T) };
    std::memcpy(&record, anHead, sizeof anHead);
    return record;
}

// First and last pixel of a stretch from a to b; none for an empty one. One that goes backwards
// lies one pixel on, as it is drawn.
struct CPixelSpan
{
    LONG m_nFirst;
    LONG m_nLast;

    CPixelSpan(LONG a, LONG b)
        : m_nFirst(b < a ? SaturateToInt(std::int64_t{ b } + 1) : a),
          m_nLast(b < a ? a : SaturateToInt(std::int64_t{ b } - 1))
    {
    }
};

RECTL PixelBounds(const CMapping& mapping, const RECT& rect)
{
    POINT a = mapping.ToDevice({ rect.left, rect.top });
    POINT b = mapping.ToDevice({ rect.right, rect.bottom });
    CPixelSpan x(a.x, b.x), y(a.y, b.y);
    return { x.m_nFirst, y.m_nFirst, x.m_nLast, y.m_nLast };
}

RECTL Union(const RECTL& a, const RECTL& b)
{
    return { std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
             std::max(a.bottom, b.bottom) };
}

// What a line of the selected pen covers beside its points.
RECTL WidenByPen(const CDeviceContext& dc, const RECTL& rect)
{
    const std::int64_t nBeside =
        dc.Mapping().ToDeviceWidth(dc.State().m_pPen->LogPen().lopnWidth.x) / 2;
    return { SaturateToInt(rect.left - nBeside), SaturateToInt(rect.top - nBeside),
             SaturateToInt(rect.right + nBeside), SaturateToInt(rect.bottom + nBeside) };
}

LOGFONTW WideFont(const LOGFONTA& font)
{
    LOGFONTW wide{};
    static_assert(offsetof(LOGFONTA, lfFaceName) == offsetof(LOGFONTW, lfFaceName));
    std::memcpy(static_cast<void*>(&wide), &font, offsetof(LOGFONTA, lfFaceName));
    for (int i = 0; i < LF_FACESIZE - 1 && font.lfFaceName[i] != '\0'; ++i)
        wide.lfFaceName[i] = static_cast<char16_t>(
            Windows1252ToUnicode(static_cast<unsigned char>(font.lfFaceName[i])));
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
            strWide +=
                static_cast<char16_t>(Windows1252ToUnicode(static_cast<unsigned char>(*pszList)));
        strWide += u'\0';
    }
    strWide += u'\0';
    return strWide;
}

// Hundredths of a millimetre in a logical unit. Divided in single precision, multiplied in double:
// the last bit of the field depends on it.
float UnitSize(int nMillimetres, int nPixels, int nWindow, int nViewport)
{
    float fPixel = static_cast<float>(nMillimetres) / static_cast<float>(nPixels);
    float fUnit = static_cast<float>(nWindow) / static_cast<float>(nViewport);
    return static_cast<float>(100.0 * fPixel / fUnit);
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

CMetafileWriter::~CMetafileWriter()
{
    if (m_pBits)
        m_pBits->Release();
}

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

template <class T>
bool CMetafileWriter::Write(const T& record)
{
    BYTE* pPlace = WriteLong(sizeof(T));
    if (pPlace)
        std::memcpy(pPlace, &record, sizeof(T));
    return pPlace != nullptr;
}

void CMetafileWriter::WriteValue(DWORD nType, DWORD nValue)
{
    auto record = MakeRecord<EMRVALUE>(nType);
    record.nValue = nValue;
    Write(record);
}

void CMetafileWriter::WritePair(DWORD nType, LONG x, LONG y)
{
    auto record = MakeRecord<EMRPAIR>(nType);
    record.x = x;
    record.y = y;
    Write(record);
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
    return std::exchange(m_pBits, nullptr);
}

void CMetafileWriter::GrowBounds(const RECTL& bounds)
{
    if (bounds.left > bounds.right || bounds.top > bounds.bottom)
        return;
    m_bounds = m_bounds.left > m_bounds.right ? bounds : Union(m_bounds, bounds);
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
            record.lopnStyle = pen.lopnStyle;
            record.lopnWidth = pen.lopnWidth;
            record.lopnColor = pen.lopnColor;
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

void CMetafileWriter::TextColorSet(CDeviceContext&, COLORREF colour)
{
    WriteValue(EMR_SETTEXTCOLOR, colour);
}

void CMetafileWriter::BkColorSet(CDeviceContext&, COLORREF colour)
{
    WriteValue(EMR_SETBKCOLOR, colour);
}

void CMetafileWriter::BkModeSet(CDeviceContext&, int nMode)
{
    WriteValue(EMR_SETBKMODE, static_cast<DWORD>(nMode));
}

void CMetafileWriter::TextAlignSet(CDeviceContext&, UINT nAlign)
{
    WriteValue(EMR_SETTEXTALIGN, nAlign);
}

void CMetafileWriter::Rop2Set(CDeviceContext&, int nMode)
{
    WriteValue(EMR_SETROP2, static_cast<DWORD>(nMode));
}

void CMetafileWriter::StretchBltModeSet(CDeviceContext&, int nMode)
{
    WriteValue(EMR_SETSTRETCHBLTMODE, static_cast<DWORD>(nMode));
}

void CMetafileWriter::MapModeSet(CDeviceContext&, int nMode)
{
    WriteValue(EMR_SETMAPMODE, static_cast<DWORD>(nMode));
}

void CMetafileWriter::WindowOrgSet(CDeviceContext&, POINT point)
{
    WritePair(EMR_SETWINDOWORGEX, point.x, point.y);
}

void CMetafileWriter::WindowExtSet(CDeviceContext&, SIZE size)
{
    WritePair(EMR_SETWINDOWEXTEX, size.cx, size.cy);
}

void CMetafileWriter::ViewportOrgSet(CDeviceContext&, POINT point)
{
    WritePair(EMR_SETVIEWPORTORGEX, point.x, point.y);
}

void CMetafileWriter::ViewportExtSet(CDeviceContext&, SIZE size)
{
    WritePair(EMR_SETVIEWPORTEXTEX, size.cx, size.cy);
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

void CMetafileWriter::MovedTo(CDeviceContext&, POINT point)
{
    WritePair(EMR_MOVETOEX, point.x, point.y);
}

bool CMetafileWriter::LineTo(CDeviceContext& dc, POINT from, POINT to)
{
    POINT a = dc.Mapping().ToDevice(from), b = dc.Mapping().ToDevice(to);
    GrowBounds(WidenByPen(dc, Union({ a.x, a.y, a.x, a.y }, { b.x, b.y, b.x, b.y })));
    WritePair(EMR_LINETO, to.x, to.y);
    return !m_bFailed;
}

// The record counts the last column and row in.
bool CMetafileWriter::Rectangle(CDeviceContext& dc, const RECT& rect)
{
    if (rect.left == rect.right || rect.top == rect.bottom)
        return true;
    auto record = MakeRecord<EMRRECT>(EMR_RECTANGLE);
    record.rect = { std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
                    std::max(rect.left, rect.right) - 1, std::max(rect.top, rect.bottom) - 1 };
    POINT a = dc.Mapping().ToDevice({ record.rect.left, record.rect.top });
    POINT b = dc.Mapping().ToDevice({ record.rect.right, record.rect.bottom });
    GrowBounds(WidenByPen(dc, Union({ a.x, a.y, a.x, a.y }, { b.x, b.y, b.x, b.y })));
    return Write(record);
}

bool CMetafileWriter::SetPixel(CDeviceContext& dc, POINT point, COLORREF colour)
{
    auto record = MakeRecord<EMRSETPIXELV>(EMR_SETPIXELV);
    record.ptlPixel = point;
    record.crColor = colour;
    POINT pixel = dc.Mapping().ToDevice(point);
    GrowBounds({ pixel.x, pixel.y, pixel.x, pixel.y });
    return Write(record);
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

namespace
{

EMRBITBLT MakeBlt(DWORD nType, const CDeviceContext& dc, const RECT& to, DWORD nRop)
{
    auto record = MakeRecord<EMRBITBLT>(nType);
    record.rclBounds = PixelBounds(dc.Mapping(), to);
    record.xDest = to.left;
    record.yDest = to.top;
    record.cxDest = WrapSubtract(to.right, to.left);
    record.cyDest = WrapSubtract(to.bottom, to.top);
    record.dwRop = nRop;
    record.xformSrc.eM11 = 1;
    record.xformSrc.eM22 = 1;
    return record;
}

// Description and sizes of the bitmap of a memory device context, in the form of a file.
struct CSourceDib
{
    HBITMAP m_hBitmap = nullptr;
    BITMAPINFOHEADER m_header{};
    std::size_t m_nInfo = 0;  // bytes of the header and its colours
    std::size_t m_nBits = 0;

    // False if it is no memory device context.
    bool Describe(CDeviceContext& source)
    {
        BITMAP bitmap{};
        if (!source.Bitmap() || !source.Bitmap()->Describe(sizeof bitmap, &bitmap))
            return false;
        m_hBitmap = reinterpret_cast<HBITMAP>(source.Bitmap()->Handle());
        const int nDepth = bitmap.bmPlanes * bitmap.bmBitsPixel;
        m_header.biSize = sizeof m_header;
        m_header.biWidth = bitmap.bmWidth;
        m_header.biHeight = bitmap.bmHeight;
        m_header.biPlanes = 1;
        m_header.biBitCount = static_cast<WORD>(nDepth);
        m_header.biCompression = BI_RGB;
        m_nInfo =
            sizeof m_header + (nDepth <= 8 ? (std::size_t{ 1 } << nDepth) * sizeof(RGBQUAD) : 0);
        m_nBits = RowBytes(static_cast<std::uint64_t>(bitmap.bmWidth), nDepth, 4) *
                  static_cast<std::uint64_t>(bitmap.bmHeight);
        m_header.biSizeImage = static_cast<DWORD>(m_nBits);
        return m_nBits < CMetafileBits::SIZE_LIMIT;
    }

    bool CopyTo(CDeviceContext& source, BYTE* pInfo, BYTE* pBits) const
    {
        std::memcpy(pInfo, &m_header, sizeof m_header);
        return GetDIBits(&source, m_hBitmap, 0, static_cast<UINT>(m_header.biHeight), pBits,
                         reinterpret_cast<BITMAPINFO*>(pInfo), DIB_RGB_COLORS) != 0;
    }
};

}  // namespace

bool CMetafileWriter::PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight, DWORD nRop)
{
    RECT to{ x, y, SaturateToInt(std::int64_t{ x } + nWidth),
             SaturateToInt(std::int64_t{ y } + nHeight) };
    EMRBITBLT record = MakeBlt(EMR_BITBLT, dc, to, nRop);
    record.cxDest = nWidth;
    record.cyDest = nHeight;
    GrowBounds(record.rclBounds);
    return Write(record);
}

// The whole bitmap goes into the record, and the part in its pixels: few readers know the
// transformation of a source.
bool CMetafileWriter::StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                                 const RECT& from, DWORD nRop)
{
    CSourceDib dib;
    if (!dib.Describe(source))
        return false;
    const std::size_t nSize = sizeof(EMRSTRETCHBLT) + dib.m_nInfo + dib.m_nBits;
    BYTE* pPlace = WriteLong(nSize);
    if (!pPlace)
        return false;
    std::memset(pPlace, 0, nSize);

    POINT a = source.Mapping().ToDevice({ from.left, from.top });
    POINT b = source.Mapping().ToDevice({ from.right, from.bottom });
    EMRSTRETCHBLT record{ MakeBlt(EMR_STRETCHBLT, dc, to, nRop), WrapSubtract(b.x, a.x),
                          WrapSubtract(b.y, a.y) };
    record.blt.emr.nSize = static_cast<DWORD>(nSize);
    record.blt.xSrc = a.x;
    record.blt.ySrc = a.y;
    record.blt.crBkColorSrc = source.State().m_crBk;
    record.blt.iUsageSrc = DIB_RGB_COLORS;
    record.blt.offBmiSrc = sizeof record;
    record.blt.cbBmiSrc = static_cast<DWORD>(dib.m_nInfo);
    record.blt.offBitsSrc = static_cast<DWORD>(sizeof record + dib.m_nInfo);
    record.blt.cbBitsSrc = static_cast<DWORD>(dib.m_nBits);
    std::memcpy(pPlace, &record, sizeof record);
    if (!dib.CopyTo(source, pPlace + record.blt.offBmiSrc, pPlace + record.blt.offBitsSrc))
    {
        m_pBits->Shorten(m_pBits->Size() - nSize);
        --m_nRecords;
        return false;
    }
    GrowBounds(record.blt.rclBounds);
    return true;
}

RECTL CMetafileWriter::TextBounds(const CDeviceContext& dc, const CTextRun& run) const
{
    if (run.m_text.empty())
        return { 0, 0, 1, 1 };  // what the platform's own recorder counts for a fill alone
    const CRealizedFont& font = dc.Font();
    POINT origin = dc.TextOrigin(run);
    std::int64_t nTop = std::int64_t{ origin.y } - font.Ascent();
    std::int64_t nEnd = std::int64_t{ origin.x } + dc.TextWidth(run) + 1;
    RECTL bounds{ origin.x, SaturateToInt(nTop), SaturateToInt(nEnd),
                  SaturateToInt(nTop + font.Height()) };
    if (run.m_nOptions & ETO_OPAQUE)
        bounds = Union(bounds, PixelBounds(dc.Mapping(), *run.m_pRect));
    return bounds;
}

bool CMetafileWriter::ExtTextOut(CDeviceContext& dc, const CTextRun& run)
{
    const std::size_t nChars = run.m_text.size();
    // Without text there are four bytes all the same: readers exist that read one character.
    const std::size_t nText = nChars == 0 ? 4 : RoundUp4(nChars * sizeof(char16_t));
    const std::size_t nSize = sizeof(EMREXTTEXTOUTW) + nText + nChars * sizeof(INT);
    BYTE* pPlace = WriteLong(nSize);
    if (!pPlace)
        return false;

    auto record = MakeRecord<EMREXTTEXTOUTW>(EMR_EXTTEXTOUTW);
    record.emr.nSize = static_cast<DWORD>(nSize);
    record.rclBounds = TextBounds(dc, run);
    record.iGraphicsMode = GM_COMPATIBLE;
    const CDeviceInfo& device = dc.Device();
    SIZE window = dc.Mapping().WindowExt(), viewport = dc.Mapping().ViewportExt();
    record.exScale = UnitSize(device.m_nWidthMm, device.m_nWidth, window.cx, viewport.cx);
    record.eyScale = UnitSize(device.m_nHeightMm, device.m_nHeight, window.cy, viewport.cy);
    record.ptlReference = run.m_ptReference;
    record.nChars = static_cast<DWORD>(nChars);
    record.offString = sizeof record;
    record.fOptions = run.m_nOptions;
    record.rcl = run.m_pRect ? *run.m_pRect : RECT{ 0, 0, -1, -1 };
    record.offDx = static_cast<DWORD>(sizeof record + nText);
    std::memcpy(pPlace, &record, sizeof record);
    GrowBounds(record.rclBounds);

    BYTE* pText = pPlace + sizeof record;
    std::memset(pText + nText - 4, 0, 4);
    const CRealizedFont& font = dc.Font();
    for (std::size_t i = 0; i < nChars; ++i)
    {
        char16_t unit = font.Unicode(run.m_text[i]);
        std::memcpy(pText + i * sizeof unit, &unit, sizeof unit);
    }
    dc.LogicalAdvances(run, { reinterpret_cast<INT*>(pText + nText), nChars });
    return true;
}
