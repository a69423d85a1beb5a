// Descriptions and bits of device-independent bitmaps.
#pragma once

#include "platform/gdi/memory_picture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using CBytes = std::vector<BYTE>;

// Header, colour table and nothing behind: a write too far is a fault that the checks see.
struct CInfo
{
    CInfo(int nWidth, int nHeight, WORD nBits, DWORD nCompression = BI_RGB)
        : m_bytes(sizeof(BITMAPINFOHEADER) + TableBytes(nBits, nCompression))
    {
        Header().biSize = sizeof(BITMAPINFOHEADER);
        Header().biWidth = nWidth;
        Header().biHeight = nHeight;
        Header().biPlanes = 1;
        Header().biBitCount = nBits;
        Header().biCompression = nCompression;
    }
    static std::size_t TableBytes(WORD nBits, DWORD nCompression)
    {
        if (nCompression == BI_BITFIELDS)
            return 12;
        return nBits >= 1 && nBits <= 8 ? sizeof(RGBQUAD) << nBits : 0;
    }
    BITMAPINFO* Get() { return reinterpret_cast<BITMAPINFO*>(m_bytes.data()); }
    BITMAPINFOHEADER& Header() { return Get()->bmiHeader; }
    std::vector<BYTE> m_bytes;
};

inline CBytes ReadBits(HDC hDC, HBITMAP hBitmap, CInfo& info)
{
    EXPECT_NE(GetDIBits(hDC, hBitmap, 0, 1, nullptr, info.Get(), DIB_RGB_COLORS), 0);
    CBytes bits(info.Header().biSizeImage, 0xEE);
    const int nHeight = std::abs(info.Header().biHeight);
    EXPECT_EQ(GetDIBits(hDC, hBitmap, 0, static_cast<UINT>(nHeight), bits.data(), info.Get(),
                        DIB_RGB_COLORS),
              nHeight);
    return bits;
}

using CSpoilHeader = void (*)(BITMAPINFOHEADER& header);

// Asks for all lines of a picture of 2 by 2 by a header that was changed; the answer of GetDIBits.
inline int AskDib(CMemoryPicture& picture, CSpoilHeader spoil)
{
    CInfo info(2, 2, 32);
    spoil(info.Header());
    CBytes bits(64);
    return GetDIBits(picture, picture.Bitmap(), 0, 2, bits.data(), info.Get(), DIB_RGB_COLORS);
}
