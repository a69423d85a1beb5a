// Pictures to draw formulas on, and where they are inked.
#pragma once

#include <algorithm>
#include <vector>

#include "platform/gdi/dc.h"

// What holds all points that are inked.
template <class IsInked>
CRect InkedPart(int cx, int cy, IsInked isInked)
{
    CRect inked(cx, cy, 0, 0);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
        {
            if (isInked(x, y))
            {
                inked =
                    CRect(std::min<int>(inked.left, x), std::min<int>(inked.top, y),
                          std::max<int>(inked.right, x + 1), std::max<int>(inked.bottom, y + 1));
            }
        }
    }
    return inked;
}

// A memory device context with a white bitmap.
class CCanvas
{
public:
    CCanvas(int cx, int cy) : m_rect(0, 0, cx, cy)
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_bitmap.CreateBitmap(cx, cy, 1, 32, nullptr);
        m_pOld = m_dc.SelectObject(&m_bitmap);
        m_dc.FillSolidRect(&m_rect, 0xFFFFFF);
    }
    ~CCanvas() { m_dc.SelectObject(m_pOld); }
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;

    // Where something other than white is.
    CRect Inked() const
    {
        return InkedPart(m_rect.right, m_rect.bottom,
                         [&](int x, int y) { return m_dc.GetPixel(x, y) != 0xFFFFFF; });
    }

    std::vector<COLORREF> Pixels() const
    {
        std::vector<COLORREF> pixels;
        for (int y = 0; y < m_rect.bottom; ++y)
        {
            for (int x = 0; x < m_rect.right; ++x)
                pixels.push_back(m_dc.GetPixel(x, y));
        }
        return pixels;
    }

    CDC m_dc;

private:
    CRect m_rect;
    CBitmap m_bitmap;
    CBitmap* m_pOld;
};
