// Rows of pixels in the depths that bitmaps have, to and from the 32-bit form in which cairo
// and this backend draw.
#pragma once

#include <cstddef>
#include <span>

#include "platform/base/types.h"

// One pixel of the working form: 0x00RRGGBB; the top byte means nothing.
using CPixel = std::uint32_t;
constexpr CPixel PIXEL_COLOUR = 0x00FFFFFF;

constexpr CPixel PixelFromColour(COLORREF colour)
{
    return CPixel{ GetRValue(colour) } << 16 | CPixel{ GetGValue(colour) } << 8 | GetBValue(colour);
}
constexpr COLORREF ColourFromPixel(CPixel pixel)
{
    return (pixel >> 16 & 0xFF) | (pixel & 0xFF00) | (pixel & 0xFF) << 16;
}

// True for the depths that a row can have: 1, 4, 8, 16, 24 and 32 bits a pixel.
bool IsPixelDepth(int nBits);

// The colours of a bitmap of 1, 4 or 8 bits, in order of their values: black and white, the
// sixteen of the VGA, a mix of 256 with the twenty system colours at its ends. None above.
std::span<const CPixel> DepthColours(int nBits);

// What is left of a colour in a bitmap of that depth: the nearest one that it can hold.
CPixel NearestPixel(CPixel pixel, int nBits);

// Bytes of a row of nWidth pixels, filled up to a multiple of nAlign bytes. 64 bits: no size
// that fits into an int overflows.
constexpr std::uint64_t RowBytes(std::uint64_t nWidth, int nBits, int nAlign)
{
    const std::uint64_t nUnit = static_cast<std::uint64_t>(nAlign) * 8;
    return (nWidth * static_cast<std::uint64_t>(nBits) + nUnit - 1) / nUnit *
           static_cast<std::uint64_t>(nAlign);
}

// Writes pixels as a row of that depth; what is left over in the last byte is zero. The row has
// to have RowBytes(pixels.size(), nBits, 1) bytes.
void PackRow(std::span<const CPixel> pixels, int nBits, BYTE* pRow);

// Reads pixels from a row of that depth. Up to 8 bits the colours come from the table; a value
// behind the table's end is black.
void UnpackRow(const BYTE* pRow, int nBits, std::span<const CPixel> colours,
               std::span<CPixel> pixels);
