// Pictures from bitmap to bitmap, stretched, shrunk or mirrored.
#pragma once

#include "platform/base/geometry.h"
#include "platform/gdi/linux/bitmaps/bitmap.h"

// A part of a bitmap that goes to a box, perhaps larger, smaller or mirrored. Its colours are what
// they become on the destination.
struct CImageTransfer
{
    CPixelImage& m_source;
    CRect m_from;  // device pixels of the source, normalised; may reach beyond the bitmap
    CRect m_to;
    bool m_bMirrorX;
    bool m_bMirrorY;
    // Sources of one bit: what their black and white become on other depths. The opposite way, what
    // counts as white.
    COLORREF m_crText;
    COLORREF m_crBk;
    COLORREF m_crSourceBk;
};

// Reads pixels of the transfer's source, from (x, y) on, in the colours that they have on a
// destination of that depth. The place has to lie inside.
void ReadForDestination(const CImageTransfer& transfer, int nBits, int x, int y,
                        std::span<CPixel> pixels);

// Draws within the clip, which lies inside the destination. Pixels that have no source are left
// alone. False when memory is short.
bool StretchImage(const CImageTransfer& transfer, CPixelImage& destination, const RECT& clip);
