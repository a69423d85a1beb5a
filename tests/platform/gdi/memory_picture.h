// A bitmap in a memory device context, and what is on it as lines of signs.
#pragma once

#include "platform/base/geometry.h"
#include "platform/gdi/gdi.h"

#include <algorithm>
#include <string>
#include <vector>

// Fills with one colour.
inline void Fill(HDC hDC, RECT rect, COLORREF colour)
{
    const HBRUSH hBrush = CreateSolidBrush(colour);
    FillRect(hDC, &rect, hBrush);
    DeleteObject(hBrush);
}

// Signs of colours, for pictures in lines.
inline const std::string SIGNS = ".#rgb";
inline constexpr COLORREF SIGN_COLOURS[] = { 0xFFFFFF, 0x000000, 0x0000FF, 0x00FF00, 0xFF0000 };

using CLines = std::vector<std::string>;

class CMemoryPicture
{
public:
    CMemoryPicture(int nWidth, int nHeight, UINT nBits = 32)
        : m_nWidth(nWidth),
          m_nHeight(nHeight),
          m_hDC(CreateCompatibleDC(nullptr)),
          m_hBitmap(CreateBitmap(nWidth, nHeight, 1, nBits, nullptr)),
          m_hOld(static_cast<HBITMAP>(SelectObject(m_hDC, m_hBitmap)))
    {
        Clear();
    }
    ~CMemoryPicture()
    {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hDC);
    }
    CMemoryPicture(const CMemoryPicture&) = delete;
    CMemoryPicture& operator=(const CMemoryPicture&) = delete;

    // White everywhere, whatever mapping is set.
    void Clear()
    {
        const int nSaved = SaveDC(m_hDC);
        SetMapMode(m_hDC, MM_TEXT);
        Fill(m_hDC, { 0, 0, m_nWidth, m_nHeight }, 0xFFFFFF);
        RestoreDC(m_hDC, nSaved);
    }

    operator HDC() const { return m_hDC; }
    HBITMAP Bitmap() const { return m_hBitmap; }
    int Width() const { return m_nWidth; }
    int Height() const { return m_nHeight; }

    // Colours in rows from the top, whatever mapping and clip are set.
    std::vector<COLORREF> Colours() const
    {
        BITMAPINFO info{
            { sizeof info.bmiHeader, m_nWidth, -m_nHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0 }, {}
        };
        std::vector<COLORREF> colours(static_cast<std::size_t>(m_nWidth * m_nHeight));
        GetDIBits(m_hDC, m_hBitmap, 0, static_cast<UINT>(m_nHeight), colours.data(), &info,
                  DIB_RGB_COLORS);
        for (COLORREF& colour : colours)
            colour = RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
        return colours;
    }

    // A line of signs for each row; '?' is any other colour.
    CLines Lines() const { return LinesOf(Colours(), m_nWidth); }
    static CLines LinesOf(const std::vector<COLORREF>& colours, int nWidth)
    {
        CLines lines;
        for (std::size_t n = 0; n < colours.size(); ++n)
        {
            if (n % static_cast<std::size_t>(nWidth) == 0)
                lines.emplace_back();
            lines.back() += Sign(colours[n]);
        }
        return lines;
    }

    // What holds everything that is not white.
    CRect Inked() const
    {
        CRect box;
        int n = 0;
        for (const COLORREF colour : Colours())
        {
            if (colour != 0xFFFFFF)
                box |= CRect(CPoint(n % m_nWidth, n / m_nWidth), CSize(1, 1));
            ++n;
        }
        return box;
    }

    static char Sign(COLORREF colour)
    {
        const COLORREF* pFound = std::ranges::find(SIGN_COLOURS, colour);
        return pFound != std::end(SIGN_COLOURS) ? SIGNS[pFound - SIGN_COLOURS] : '?';
    }

private:
    int m_nWidth;
    int m_nHeight;
    HDC m_hDC;
    HBITMAP m_hBitmap;
    HBITMAP m_hOld;
};

// Puts lines of signs into the upper left of a bitmap.
inline void SetSigns(HDC hDC, const CLines& lines)
{
    for (std::size_t y = 0; y < lines.size(); ++y)
    {
        for (std::size_t x = 0; x < lines[y].size(); ++x)
            SetPixel(hDC, static_cast<int>(x), static_cast<int>(y),
                     SIGN_COLOURS[SIGNS.find(lines[y][x])]);
    }
}
