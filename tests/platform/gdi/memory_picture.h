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
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = m_nWidth;
        info.bmiHeader.biHeight = -m_nHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        std::vector<COLORREF> colours(static_cast<std::size_t>(m_nWidth * m_nHeight));
        GetDIBits(m_hDC, m_hBitmap, 0, static_cast<UINT>(m_nHeight), colours.data(), &info,
                  DIB_RGB_COLORS);
        for (COLORREF& colour : colours)
            colour = RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
        return colours;
    }

    // A line for each row: '.' white, '#' black, 'r' 'g' 'b' pure colours, '?' any other.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines(static_cast<std::size_t>(m_nHeight));
        std::size_t n = 0;
        for (const COLORREF colour : Colours())
            lines[n++ / static_cast<std::size_t>(m_nWidth)] += Sign(colour);
        return lines;
    }

    // What holds everything that is not white.
    CRect Inked() const
    {
        CRect box(m_nWidth, m_nHeight, 0, 0);
        int n = 0;
        for (const COLORREF colour : Colours())
        {
            const CRect pixel(CPoint(n % m_nWidth, n / m_nWidth), CSize(1, 1));
            if (colour != 0xFFFFFF)
            {
                box = { std::min(box.left, pixel.left), std::min(box.top, pixel.top),
                        std::max(box.right, pixel.right), std::max(box.bottom, pixel.bottom) };
            }
            ++n;
        }
        return box;
    }

    static char Sign(COLORREF colour)
    {
        switch (colour)
        {
            case 0xFFFFFF:
                return '.';
            case 0x000000:
                return '#';
            case 0x0000FF:
                return 'r';
            case 0x00FF00:
                return 'g';
            case 0xFF0000:
                return 'b';
            default:
                return '?';
        }
    }

private:
    int m_nWidth;
    int m_nHeight;
    HDC m_hDC;
    HBITMAP m_hBitmap;
    HBITMAP m_hOld;
};

// Selects an object of its own and deletes it at the end.
class CUseObject
{
public:
    CUseObject(HDC hDC, HGDIOBJ hObject)
        : m_hDC(hDC), m_hObject(hObject), m_hOld(SelectObject(hDC, hObject))
    {
    }
    ~CUseObject()
    {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hObject);
    }
    CUseObject(const CUseObject&) = delete;
    CUseObject& operator=(const CUseObject&) = delete;

private:
    HDC m_hDC;
    HGDIOBJ m_hObject;
    HGDIOBJ m_hOld;
};
