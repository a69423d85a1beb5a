// What the writers of pictures have in common.
#pragma once

#include <string>

#include "picture.h"
#include "platform/base/geometry.h"

constexpr int s_nScreenDpi = 96;

// The formula's rectangle, in pixels of the screen; never empty, as no picture is.
CSize PictureSize(CFormulaOut& formula);

// The pixels of an image that is fScale times as large. Throws CFailure if that is too large to be
// drawn on.
CSize ImageSize(const CSize& size, double fScale, const std::string& strPath);

// A .bmp of 32 bits a pixel. The rows (blue, green, red, anything) go from the top down, nStride
// bytes apart.
std::string BmpBytes(const unsigned char* pPixels, size_t nStride, const CSize& size, int nDpi);

// The old file stays if that fails. Throws CFailure.
void WriteWhole(const std::string& strPath, const std::string& strBytes);
