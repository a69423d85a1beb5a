// Device-independent bitmaps: bitmaps as packed rows with a header and a table of colours.
#include "platform/base/system.h"
#include "platform/gdi/linux/bitmap.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

namespace
{

// The three masks behind the header of a BI_BITFIELDS bitmap: red, green, blue.
constexpr DWORD s_aMasks16[] = { 0x7C00, 0x03E0, 0x001F };
constexpr DWORD s_aMasks32[] = { 0xFF0000, 0x00FF00, 0x0000FF };

// What a caller asks for, once it is known to make sense.
struct CDibFormat
{
    int m_nWidth;
    int m_nHeight;  // without sign
    int m_nBits;
    bool m_bTopDown;
    std::size_t m_nRowBytes;
};

int Fail(int nError)
{
    SetLastError(static_cast<DWORD>(nError));
    return 0;
}

// The headers that came later are longer and begin with the same fields.
bool IsHeaderSize(DWORD nSize)
{
    return nSize == 40 || nSize == 52 || nSize == 56 || nSize == 108 || nSize == 124;
}

std::optional<CDibFormat> CheckFormat(const BITMAPINFOHEADER& header)
{
    const int nBits = header.biBitCount;
    const bool bMasks = header.biCompression == BI_BITFIELDS && (nBits == 16 || nBits == 32);
    if (!IsHeaderSize(header.biSize) || header.biPlanes != 1 || !IsPixelDepth(nBits) ||
        (header.biCompression != BI_RGB && !bMasks) || header.biWidth <= 0 ||
        header.biHeight == 0 || header.biHeight == std::numeric_limits<LONG>::min())
        return std::nullopt;
    const int nHeight = std::abs(header.biHeight);
    const std::uint64_t nRowBytes = RowBytes(static_cast<unsigned>(header.biWidth), nBits, 4);
    if (nRowBytes * static_cast<unsigned>(nHeight) > std::numeric_limits<LONG>::max())
        return std::nullopt;
    return CDibFormat{ header.biWidth, nHeight, nBits, header.biHeight < 0,
                       static_cast<std::size_t>(nRowBytes) };
}

BYTE* BehindHeader(BITMAPINFO& info)
{
    return reinterpret_cast<BYTE*>(&info) + info.bmiHeader.biSize;
}

// Colours, or for DIB_PAL_COLORS their 16-bit numbers; masks if they were asked for.
void WriteTable(BITMAPINFO& info, UINT nUsage)
{
    BYTE* p = BehindHeader(info);
    if (info.bmiHeader.biCompression == BI_BITFIELDS)
    {
        // The longer headers have fields of their own for masks, at the same place.
        p = reinterpret_cast<BYTE*>(&info) + sizeof(BITMAPINFOHEADER);
        std::memcpy(p, info.bmiHeader.biBitCount == 16 ? s_aMasks16 : s_aMasks32,
                    sizeof s_aMasks16);
        return;
    }
    WORD nNumber = 0;
    for (const CPixel pixel : DepthColours(info.bmiHeader.biBitCount))
    {
        if (nUsage == DIB_PAL_COLORS)
        {
            std::memcpy(p, &nNumber, sizeof nNumber);
            p += sizeof nNumber;
            ++nNumber;
            continue;
        }
        const RGBQUAD quad{ static_cast<BYTE>(pixel), static_cast<BYTE>(pixel >> 8),
                            static_cast<BYTE>(pixel >> 16), 0 };
        std::memcpy(p, &quad, sizeof quad);
        p += sizeof quad;
    }
}

// The table of a bitmap that a caller hands over; short of the depth's colours if he says so.
std::vector<CPixel> ReadTable(const BITMAPINFO& info, UINT nUsage)
{
    const std::span<const CPixel> colours = DepthColours(info.bmiHeader.biBitCount);
    if (nUsage == DIB_PAL_COLORS || colours.empty())
        return { colours.begin(), colours.end() };
    std::size_t nColours = colours.size();
    if (info.bmiHeader.biClrUsed > 0)
        nColours = std::min<std::size_t>(nColours, info.bmiHeader.biClrUsed);
    std::vector<CPixel> table(nColours);
    const BYTE* p = BehindHeader(const_cast<BITMAPINFO&>(info));
    for (CPixel& pixel : table)
    {
        pixel = CPixel{ p[2] } << 16 | CPixel{ p[1] } << 8 | p[0];
        p += sizeof(RGBQUAD);
    }
    return table;
}

// With no depth in the header: what the bitmap is.
int TellFormat(const CPicture& picture, BITMAPINFOHEADER& header)
{
    header.biWidth = picture.Width();
    header.biHeight = picture.Height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(picture.Bits());
    header.biCompression = BI_RGB;
    header.biSizeImage =
        static_cast<DWORD>(RowBytes(static_cast<unsigned>(picture.Width()), picture.Bits(), 4) *
                           static_cast<unsigned>(picture.Height()));
    header.biXPelsPerMeter = header.biYPelsPerMeter = 0;
    header.biClrUsed = header.biClrImportant = 0;
    return 1;
}

// The lines of a call: they count from the bottom, whatever the order in memory. f(line, row of the
// bitmap, bytes).
template <class F>
int WalkLines(const CDibFormat& format, UINT nStart, UINT nLines, int nBitmapHeight, BYTE* pBits,
              F f)
{
    const auto nHeight = static_cast<UINT>(std::min(format.m_nHeight, nBitmapHeight));
    if (nStart >= nHeight)
        return 0;
    const UINT nCount = std::min(nLines, nHeight - nStart);
    for (UINT n = 0; n < nCount; ++n)
    {
        const std::size_t nPlace = format.m_bTopDown ? nCount - 1 - n : n;
        f(nBitmapHeight - 1 - static_cast<int>(nStart + n), pBits + nPlace * format.m_nRowBytes);
    }
    return static_cast<int>(nCount);
}

}  // namespace

int GetDIBits(HDC hDC, HBITMAP hBitmap, UINT nStart, UINT nLines, LPVOID pBits, BITMAPINFO* pInfo,
              UINT nUsage)
{
    const CBitmapObject* pBitmap = BitmapFromHandle(hBitmap);
    if (!hDC || !pBitmap || !pInfo)
        return Fail(EINVAL);
    BITMAPINFOHEADER& header = pInfo->bmiHeader;
    if (header.biBitCount == 0 && !pBits && IsHeaderSize(header.biSize))
        return TellFormat(pBitmap->Picture(), header);
    CPicture& picture = pBitmap->Picture();
    const std::optional<CDibFormat> format = CheckFormat(header);
    if (!format)
        return Fail(EINVAL);

    header.biSizeImage =
        static_cast<DWORD>(format->m_nRowBytes * static_cast<unsigned>(format->m_nHeight));
    header.biClrUsed = header.biClrImportant = 0;
    WriteTable(*pInfo, nUsage);
    if (!pBits)
        return format->m_nHeight;
    std::vector<CPixel> pixels(static_cast<std::size_t>(format->m_nWidth));
    const auto nShared = static_cast<std::size_t>(std::min(format->m_nWidth, picture.Width()));
    return WalkLines(*format, nStart, nLines, picture.Height(), static_cast<BYTE*>(pBits),
                     [&](int y, BYTE* pRow)
                     {
                         picture.ReadRow(0, y, std::span(pixels).first(nShared));
                         std::fill_n(pRow, format->m_nRowBytes, BYTE{ 0 });
                         PackRow(pixels, format->m_nBits, pRow);
                     });
}

int SetDIBits(HDC, HBITMAP hBitmap, UINT nStart, UINT nLines, const void* pBits,
              const BITMAPINFO* pInfo, UINT nUsage)
{
    const CBitmapObject* pBitmap = BitmapFromHandle(hBitmap);
    if (!pBitmap || !pInfo || !pBits)
        return Fail(EINVAL);
    CPicture& picture = pBitmap->Picture();
    const std::optional<CDibFormat> format = CheckFormat(pInfo->bmiHeader);
    if (!format)
        return Fail(EINVAL);
    const std::vector<CPixel> table = ReadTable(*pInfo, nUsage);
    const auto nShared = static_cast<std::size_t>(std::min(format->m_nWidth, picture.Width()));
    return WalkLines(*format, nStart, nLines, picture.Height(),
                     const_cast<BYTE*>(static_cast<const BYTE*>(pBits)),
                     [&](int y, const BYTE* pRow) {
                         UnpackRow(pRow, format->m_nBits, table, { picture.Row(y), nShared });
                     });
}
