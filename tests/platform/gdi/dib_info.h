// Descriptions and bits of device-independent bitmaps.
#pragma once

#include "platform/gdi/memory_picture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using CBytes = std::vector<BYTE>;

// Header, colour table and nothing behind: a write too far is a fault that the checks see.
struct CInfo
{
    CInfo(int nWidth, int nHeight, WORD nBits)
        : m_bytes(sizeof(BITMAPINFOHEADER) + (nBits == 1 ? 2 * sizeof(RGBQUAD) : 0))
    {
        Header() = { sizeof(BITMAPINFOHEADER), nWidth, nHeight, 1, nBits, BI_RGB, 0, 0, 0, 0, 0 };
    }
    BITMAPINFO* Get() { return reinterpret_cast<BITMAPINFO*>(m_bytes.data()); }
    BITMAPINFOHEADER& Header() { return Get()->bmiHeader; }
    std::vector<BYTE> m_bytes;
};

using CSpoilHeader = void (*)(BITMAPINFOHEADER& header);

// Asks for all lines of a picture of 2 by 2 by a header that was changed; the answer of GetDIBits.
inline int AskDib(CMemoryPicture& picture, CSpoilHeader spoil)
{
    CInfo info(2, 2, 32);
    spoil(info.Header());
    CBytes bits(64);
    return GetDIBits(picture, picture.Bitmap(), 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS);
}
