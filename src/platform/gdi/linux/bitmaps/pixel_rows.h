// Rows of pixels in the depths that bitmaps have, to and from the 32-bit form in which cairo and
// this backend draw.
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

// The depths that a bitmap can have: black and white, or all colours.
constexpr bool IsPixelDepth(int nBits)
{
    return nBits == 1 || nBits == 32;
}

// What is left of a colour in a bitmap of that depth. Nearer to white than to black: the sum of the
// channels decides, and cannot tie.
constexpr CPixel NearestPixel(CPixel pixel, int nBits)
{
    if (nBits != 1)
        return pixel & PIXEL_COLOUR;
    return (pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF) > 382 ? PIXEL_COLOUR : 0;
}

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

// Reads pixels from a row of that depth.
void UnpackRow(const BYTE* pRow, int nBits, std::span<CPixel> pixels);
