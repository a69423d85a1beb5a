// Pictures from bitmap to bitmap, stretched, shrunk or mirrored.
#pragma once

#include "platform/gdi/linux/cairo_target.h"

// Reads pixels of the transfer's source, from (x, y) on, in the colours that they have on a
// destination of that depth. The place has to lie inside.
void ReadForDestination(const CPictureTransfer& transfer, int nBits, int x, int y,
                        std::span<CPixel> pixels);

// Draws within the clip, which lies inside the destination. Pixels that have no source are left
// alone. False when memory is short.
bool StretchPicture(const CPictureTransfer& transfer, CPicture& destination, const RECT& clip);
