// BMP files of 32 bits a pixel.
#include <cmath>

#include "picture/raster.h"
#include "platform/gdi/gdi.h"

namespace
{
constexpr WORD s_nBitmapType = 0x4D42;  // "BM"
constexpr DWORD s_nBitFields = 3;
constexpr size_t s_nMasksAndSpace = 68;  // the rest of a header of the fourth version
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
    BITMAPINFOHEADER header = {};
    header.biSize =
        static_cast<DWORD>(sizeof header + (options.bTransparent ? s_nMasksAndSpace : 0));
    header.biWidth = size.cx;
    header.biHeight = size.cy;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = options.bTransparent ? s_nBitFields : 0;
    header.biSizeImage = static_cast<DWORD>(raster.pixels.size() * sizeof raster.pixels[0]);
    header.biXPelsPerMeter = header.biYPelsPerMeter =
        static_cast<LONG>(std::lround(options.nDpi / 0.0254));
    BITMAPFILEHEADER fileHeader = {};
    fileHeader.bfType = s_nBitmapType;
    fileHeader.bfOffBits = static_cast<DWORD>(sizeof fileHeader + header.biSize);
    fileHeader.bfSize = fileHeader.bfOffBits + header.biSizeImage;

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
