#include "win32/image.h"

#include <algorithm>
#include <cmath>

#include "report.h"

namespace
{
// How much of a pixel lies between two sides.
double Covered(int nPixel, double fFrom, double fTo)
{
    return std::min(nPixel + 1.0, fTo) - std::max<double>(nPixel, fFrom);
}

int FirstPixel(double fFrom)
{
    return std::max(static_cast<int>(std::floor(fFrom)), 0);
}

int EndPixel(double fTo, int nEnd)
{
    return std::min(static_cast<int>(std::ceil(fTo)), nEnd);
}
}  // namespace

CImage::CImage(const CSize& size, const std::string& strPath) : m_size(size)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;  // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* pBits = nullptr;
    const HBITMAP hBitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    if (hBitmap == nullptr)
        throw CFailure{ "cannot draw " + strPath + ": no memory for the picture" };
    m_bitmap.Attach(hBitmap);
    m_pPixels = static_cast<unsigned char*>(pBits);
    m_dc.CreateCompatibleDC(nullptr);
    m_pOld = m_dc.SelectObject(&m_bitmap);
    m_dc.PatBlt(0, 0, size.cx, size.cy, WHITENESS);
}

CImage::~CImage()
{
    if (m_pOld != nullptr)
        m_dc.SelectObject(m_pOld);
}

void CImage::BlendPixel(int x, int y, double fOpacity, const CBoxColour& colour)
{
    unsigned char* p = m_pPixels + static_cast<size_t>(y) * Stride() + static_cast<size_t>(x) * 4;
    for (const double fPart : { colour.fBlue, colour.fGreen, colour.fRed })
    {
        *p = static_cast<unsigned char>(std::lround(*p + (fPart * 255 - *p) * fOpacity));
        ++p;
    }
}

void CImage::Blend(double fLeft, double fTop, double fRight, double fBottom,
                   const CBoxColour& colour)
{
    for (int y = FirstPixel(fTop); y < EndPixel(fBottom, m_size.cy); ++y)
    {
        for (int x = FirstPixel(fLeft); x < EndPixel(fRight, m_size.cx); ++x)
        {
            BlendPixel(x, y,
                       colour.fOpacity * Covered(x, fLeft, fRight) * Covered(y, fTop, fBottom),
                       colour);
        }
    }
}
