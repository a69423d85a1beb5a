// Packing and unpacking. A row of one bit a pixel begins in the top bit of its first byte.
#include "platform/gdi/linux/bitmaps/pixel_rows.h"

#include <algorithm>
#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "pixels are copied as they lie");

void PackRow(std::span<const CPixel> pixels, int nBits, BYTE* pRow)
{
    if (nBits == 1)
        std::fill_n(pRow, RowBytes(pixels.size(), 1, 1), BYTE{ 0 });
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        const CPixel nearest = NearestPixel(pixels[i], nBits);
        if (nBits != 1)
            std::memcpy(pRow + i * sizeof nearest, &nearest, sizeof nearest);
        else if (nearest != 0)
            pRow[i / 8] |= static_cast<BYTE>(0x80 >> i % 8);
    }
}

void UnpackRow(const BYTE* pRow, int nBits, std::span<CPixel> pixels)
{
    if (nBits != 1)
        std::memcpy(pixels.data(), pRow, pixels.size_bytes());
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        pixels[i] = nBits != 1                      ? pixels[i] & PIXEL_COLOUR
                    : (pRow[i / 8] & 0x80 >> i % 8) ? PIXEL_COLOUR
                                                    : 0;
    }
}
