// Descriptions and bits of device-independent bitmaps, and pictures from lines of signs.
#pragma once

#include "platform/gdi/gdi.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

using CLines = std::vector<std::string>;
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
    DWORD Colour(std::size_t n) const
    {
        DWORD quad = 0;
        std::memcpy(&quad, m_bytes.data() + sizeof(BITMAPINFOHEADER) + n * sizeof quad,
                    sizeof quad);
        return quad;
    }
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

inline void SetSigns(HDC hDC, const CLines& lines)
{
    const auto colour = [](char c)
    {
        return c == 'r' ? 0x0000FFu : c == 'g' ? 0x00FF00u : c == 'b' ? 0xFF0000u : 0u;
    };
    for (std::size_t y = 0; y < lines.size(); ++y)
    {
        for (std::size_t x = 0; x < lines[y].size(); ++x)
        {
            SetPixel(hDC, static_cast<int>(x), static_cast<int>(y),
                     lines[y][x] == '.' ? 0xFFFFFF : colour(lines[y][x]));
        }
    }
}
