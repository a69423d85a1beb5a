// What BMP files begin with.
#pragma once

#include "platform/gdi/gdi.h"

inline BITMAPINFOHEADER MakeBitmapHeader(int nWidth, int nHeight, int nBitCount, DWORD nCompression)
{
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = nWidth;
    header.biHeight = nHeight;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(nBitCount);
    header.biCompression = nCompression;
    return header;
}

// In front of nBytes, of which the first nHead are the header and its colours or masks.
inline BITMAPFILEHEADER MakeBmpFileHeader(DWORD nHead, DWORD nBytes)
{
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;  // "BM"
    header.bfOffBits = static_cast<DWORD>(sizeof header) + nHead;
    header.bfSize = static_cast<DWORD>(sizeof header) + nBytes;
    return header;
}
