// BMP files of 32 bits a pixel.
#include <cmath>

#include "picture/raster.h"
#include "service/bmp_head.h"

namespace
{
constexpr DWORD s_nMasksAndSpace = 68;  // the rest of a header of the fourth version
constexpr std::uint32_t s_anMasks[] = { 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000,
                                        0x73524742 };  // the last one: the common colour space

void AppendStruct(std::string& strBytes, const void* pData, size_t nSize)
{
    strBytes.append(static_cast<const char*>(pData), nSize);
}
}  // namespace

// Only a header of the fourth version says that the fourth byte is opacity.
std::string BmpBytes(const CRaster& raster, const CPictureOptions& options)
{
    const CSize& size = raster.size;
    BITMAPINFOHEADER header =
        MakeBitmapHeader(size.cx, size.cy, 32, options.bTransparent ? BI_BITFIELDS : BI_RGB);
    if (options.bTransparent)
        header.biSize += s_nMasksAndSpace;
    header.biSizeImage = static_cast<DWORD>(raster.pixels.size() * sizeof raster.pixels[0]);
    header.biXPelsPerMeter = header.biYPelsPerMeter =
        static_cast<LONG>(std::lround(options.nDpi / 0.0254));
    const BITMAPFILEHEADER fileHeader =
        MakeBmpFileHeader(header.biSize, header.biSize + header.biSizeImage);

    std::string strBytes;
    strBytes.reserve(fileHeader.bfSize);
    AppendStruct(strBytes, &fileHeader, sizeof fileHeader);
    AppendStruct(strBytes, &header, sizeof header);
    if (options.bTransparent)
    {
        AppendStruct(strBytes, s_anMasks, sizeof s_anMasks);
        strBytes.resize(fileHeader.bfOffBits, '\0');
    }
    for (int y = size.cy - 1; y >= 0; --y)  // from the bottom up
    {
        const std::uint32_t* pRow = raster.Row(y);
        for (int x = 0; x < size.cx; ++x)
        {
            // Not told to be anything, the fourth byte is zero.
            const std::uint32_t nPixel = options.bTransparent ? pRow[x] : pRow[x] & 0xFFFFFF;
            AppendStruct(strBytes, &nPixel, sizeof nPixel);
        }
    }
    return strBytes;
}
