// Device-independent bitmaps: bitmaps as packed rows with a header and a table of colours.
#include "platform/base/system.h"
#include "platform/gdi/linux/bitmaps/bitmap.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

namespace
{

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

std::optional<CDibFormat> CheckFormat(const BITMAPINFOHEADER& header)
{
    const int nBits = header.biBitCount;
    if (header.biSize != sizeof header || header.biPlanes != 1 || !IsPixelDepth(nBits) ||
        header.biCompression != BI_RGB || header.biWidth <= 0 || header.biHeight == 0 ||
        header.biHeight == std::numeric_limits<LONG>::min())
        return std::nullopt;
    const int nHeight = std::abs(header.biHeight);
    const std::uint64_t nRowBytes = RowBytes(static_cast<unsigned>(header.biWidth), nBits, 4);
    if (nRowBytes * static_cast<unsigned>(nHeight) > std::numeric_limits<LONG>::max())
        return std::nullopt;
    return CDibFormat{ header.biWidth, nHeight, nBits, header.biHeight < 0,
                       static_cast<std::size_t>(nRowBytes) };
}

// A bitmap of one bit a pixel tells its colours: black and white.
void WriteTable(BITMAPINFO& info)
{
    constexpr RGBQUAD aTwo[] = { { 0, 0, 0, 0 }, { 255, 255, 255, 0 } };
    if (info.bmiHeader.biBitCount == 1)
        std::memcpy(reinterpret_cast<BYTE*>(&info) + sizeof info.bmiHeader, aTwo, sizeof aTwo);
}

// With no depth in the header: what the bitmap is.
int TellFormat(const CPixelImage& image, BITMAPINFOHEADER& header)
{
    header.biWidth = image.Width();
    header.biHeight = image.Height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(image.Bits());
    header.biCompression = BI_RGB;
    header.biSizeImage =
        static_cast<DWORD>(RowBytes(static_cast<unsigned>(image.Width()), image.Bits(), 4) *
                           static_cast<unsigned>(image.Height()));
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
              UINT)
{
    const CBitmapObject* pBitmap = BitmapFromHandle(hBitmap);
    if (!hDC || !pBitmap || !pInfo)
        return Fail(EINVAL);
    BITMAPINFOHEADER& header = pInfo->bmiHeader;
    if (header.biBitCount == 0 && !pBits && header.biSize == sizeof header)
        return TellFormat(pBitmap->Image(), header);
    CPixelImage& image = pBitmap->Image();
    const std::optional<CDibFormat> format = CheckFormat(header);
    if (!format)
        return Fail(EINVAL);

    header.biSizeImage =
        static_cast<DWORD>(format->m_nRowBytes * static_cast<unsigned>(format->m_nHeight));
    header.biClrUsed = header.biClrImportant = 0;
    WriteTable(*pInfo);
    if (!pBits)
        return format->m_nHeight;
    std::vector<CPixel> pixels(static_cast<std::size_t>(format->m_nWidth));
    const auto nShared = static_cast<std::size_t>(std::min(format->m_nWidth, image.Width()));
    return WalkLines(*format, nStart, nLines, image.Height(), static_cast<BYTE*>(pBits),
                     [&](int y, BYTE* pRow)
                     {
                         image.ReadRow(0, y, std::span(pixels).first(nShared));
                         std::fill_n(pRow, format->m_nRowBytes, BYTE{ 0 });
                         PackRow(pixels, format->m_nBits, pRow);
                     });
}
