// The C functions for bitmaps: making, single pixels, block transfers.
#include "platform/base/rounding.h"
#include "platform/base/system.h"
#include "platform/gdi/linux/bitmaps/bitmap.h"
#include "platform/gdi/linux/context/device_context.h"

#include <cerrno>

namespace
{

HBITMAP Fail(int nError)
{
    SetLastError(static_cast<DWORD>(nError));
    return nullptr;
}

// Initial content: rows from the top down, filled up to 16 bits.
void FillFrom(CPixelImage& image, const void* pBits)
{
    const auto* pRow = static_cast<const BYTE*>(pBits);
    const auto nWidth = static_cast<std::size_t>(image.Width());
    for (int y = 0; y < image.Height(); ++y)
    {
        UnpackRow(pRow, image.Bits(), { image.Row(y), nWidth });
        pRow += RowBytes(nWidth, image.Bits(), 2);
    }
}

}  // namespace

HBITMAP CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* pBits)
{
    int nBits = nPlanes == 1 && nBitCount <= 32 ? static_cast<int>(nBitCount) : 0;
    if (nWidth == 0 || nHeight == 0)
    {
        nWidth = nHeight = nBits = 1;
        pBits = nullptr;
    }
    if (nWidth < 0 || nHeight < 0 || !IsPixelDepth(nBits))
        return Fail(EINVAL);
    std::unique_ptr<CPixelImage> pImage = CPixelImage::Create(nWidth, nHeight, nBits);
    if (!pImage)
        return Fail(ENOMEM);
    if (pBits)
        FillFrom(*pImage, pBits);
    return static_cast<HBITMAP>(CBitmapObject::Create(std::move(pImage))->Handle());
}

HBITMAP CreateCompatibleBitmap(HDC hDC, int nWidth, int nHeight)
{
    if (!hDC)
        return Fail(EINVAL);
    const CPixelImage* pSelected = SelectedImage(*hDC);
    const int nBits = pSelected ? pSelected->Bits() : hDC->Device().m_nBitsPixel;
    return CreateBitmap(nWidth, nHeight, 1, static_cast<UINT>(nBits), nullptr);
}

COLORREF GetPixel(HDC hDC, int x, int y)
{
    return hDC && hDC->Target() ? hDC->Target()->GetPixel(*hDC, { x, y }) : CLR_INVALID;
}

COLORREF SetPixel(HDC hDC, int x, int y, COLORREF colour)
{
    if (!hDC || !hDC->Target() || !hDC->Target()->SetPixel(*hDC, { x, y }, colour))
        return CLR_INVALID;
    const COLORREF now = hDC->Target()->GetPixel(*hDC, { x, y });
    return now != CLR_INVALID ? now : colour;  // what cannot be read has every colour
}

BOOL BitBlt(HDC hDC, int x, int y, int nWidth, int nHeight, HDC hSource, int xSource, int ySource,
            DWORD nRop)
{
    return StretchBlt(hDC, x, y, nWidth, nHeight, hSource, xSource, ySource, nWidth, nHeight, nRop);
}

BOOL StretchBlt(HDC hDC, int x, int y, int nWidth, int nHeight, HDC hSource, int xSource,
                int ySource, int nSourceWidth, int nSourceHeight, DWORD nRop)
{
    if (!hDC || !hSource || nRop != SRCCOPY)
        return FALSE;
    const auto rect = [](int nLeft, int nTop, int cx, int cy)
    {
        return RECT{ nLeft, nTop, SaturateToInt(std::int64_t{ nLeft } + cx),
                     SaturateToInt(std::int64_t{ nTop } + cy) };
    };
    CDrawTarget* pTarget = hDC->Target();
    return !pTarget || pTarget->StretchBlt(*hDC, rect(x, y, nWidth, nHeight), *hSource,
                                           rect(xSource, ySource, nSourceWidth, nSourceHeight));
}
