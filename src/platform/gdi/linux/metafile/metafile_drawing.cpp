// The drawing verbs of a recording. Bounds are pixels of the reference device, last ones inside.
#include "platform/base/geometry.h"
#include "platform/base/rounding.h"
#include "platform/gdi/linux/context/device_box.h"
#include "platform/gdi/linux/fonts/font_cache.h"
#include "platform/gdi/linux/metafile/metafile_writer.h"

#include <algorithm>
#include <cstring>

namespace
{

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

// The smallest bounds around both. Edges count in, so that a single pixel has no width and
// CRect::UnionRect would leave it out.
RECTL UnionBounds(const RECTL& a, const RECTL& b)
{
    return { std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
             std::max(a.bottom, b.bottom) };
}

RECTL PixelBounds(const CMapping& mapping, const RECT& rect)
{
    POINT a = mapping.ToDevice({ rect.left, rect.top });
    POINT b = mapping.ToDevice({ rect.right, rect.bottom });
    CPixelSpan x(a.x, b.x), y(a.y, b.y);
    return { x.m_nFirst, y.m_nFirst, x.m_nLast, y.m_nLast };
}

// What a line of the selected pen covers beside its points.
RECTL WidenByPen(const CDeviceContext& dc, const RECTL& rect)
{
    const std::int64_t nBeside =
        dc.Mapping().ToDeviceWidth(dc.State().m_pPen->LogPen().lopnWidth.x) / 2;
    return { SaturateToInt(rect.left - nBeside), SaturateToInt(rect.top - nBeside),
             SaturateToInt(rect.right + nBeside), SaturateToInt(rect.bottom + nBeside) };
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

// An empty area counts as well: its corners, right and bottom inside, are in the other order.
void CMetafileWriter::GrowBounds(const RECTL& bounds)
{
    const RECTL ordered = Normalized(bounds);
    m_bounds = m_bounds.left > m_bounds.right ? ordered : UnionBounds(m_bounds, ordered);
}

bool CMetafileWriter::LineTo(CDeviceContext& dc, POINT from, POINT to)
{
    POINT a = dc.Mapping().ToDevice(from), b = dc.Mapping().ToDevice(to);
    GrowBounds(WidenByPen(dc, Normalized(CRect(a, b))));
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
    GrowBounds(WidenByPen(dc, Normalized(CRect(a, b))));
    return Write(record);
}

namespace
{

EMRBITBLT MakeBlt(DWORD nType, const CDeviceContext& dc, const RECT& to, DWORD nRop)
{
    auto record = MakeRecord<EMRBITBLT>(nType);
    record.rclBounds = PixelBounds(dc.Mapping(), to);
    record.xDest = to.left;
    record.yDest = to.top;
    record.cxDest = WrapSub(to.right, to.left);
    record.cyDest = WrapSub(to.bottom, to.top);
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
        if (!source.Bitmap())
            return false;
        m_hBitmap = reinterpret_cast<HBITMAP>(source.Bitmap()->Handle());
        m_header.biSize = sizeof m_header;
        GetDIBits(&source, m_hBitmap, 0, 0, nullptr, reinterpret_cast<BITMAPINFO*>(&m_header),
                  DIB_RGB_COLORS);
        const std::size_t nColours = m_header.biBitCount == 1 ? 2 : 0;
        m_nInfo = sizeof m_header + nColours * sizeof(RGBQUAD);
        m_nBits = m_header.biSizeImage;
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

bool CMetafileWriter::PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight)
{
    RECT to{ x, y, SaturateToInt(std::int64_t{ x } + nWidth),
             SaturateToInt(std::int64_t{ y } + nHeight) };
    EMRBITBLT record = MakeBlt(EMR_BITBLT, dc, to, PATCOPY);
    record.cxDest = nWidth;
    record.cyDest = nHeight;
    GrowBounds(record.rclBounds);
    return Write(record);
}

// The whole bitmap goes into the record, and the part in its pixels: few readers know the
// transformation of a source.
bool CMetafileWriter::StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                                 const RECT& from)
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
    EMRSTRETCHBLT record{ MakeBlt(EMR_STRETCHBLT, dc, to, SRCCOPY), WrapSub(b.x, a.x),
                          WrapSub(b.y, a.y) };
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
    POINT origin = dc.TextOrigin(run);  // on the base line
    std::int64_t nTop = std::int64_t{ origin.y } - font.Ascent();
    std::int64_t nEnd = std::int64_t{ origin.x } + dc.TextWidth(run) + 1;
    RECTL bounds{ origin.x, SaturateToInt(nTop), SaturateToInt(nEnd),
                  SaturateToInt(nTop + font.Height() + 1) };
    if (run.m_nOptions & ETO_OPAQUE)
        bounds = UnionBounds(bounds, PixelBounds(dc.Mapping(), *run.m_pRect));
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
    record.emrtext.ptlReference = run.m_ptReference;
    record.emrtext.nChars = static_cast<DWORD>(nChars);
    record.emrtext.offString = sizeof record;
    record.emrtext.fOptions = run.m_nOptions;
    record.emrtext.rcl = run.m_pRect ? *run.m_pRect : RECT{ 0, 0, -1, -1 };
    record.emrtext.offDx = static_cast<DWORD>(sizeof record + nText);
    std::memcpy(pPlace, &record, sizeof record);
    GrowBounds(record.rclBounds);

    BYTE* pText = pPlace + sizeof record;
    std::memset(pText + nText - 4, 0, 4);
    if (nChars == 0)
        return true;  // a fill needs no font file
    const CRealizedFont& font = dc.Font();
    const BYTE nCharSet = dc.State().m_pFont->LogFont().lfCharSet;
    for (std::size_t i = 0; i < nChars; ++i)
    {
        char16_t unit = font.Unicode(run.m_text[i], nCharSet);
        std::memcpy(pText + i * sizeof unit, &unit, sizeof unit);
    }
    dc.LogicalAdvances(run, { reinterpret_cast<INT*>(pText + nText), nChars });
    return true;
}
