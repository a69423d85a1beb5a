// Bitmaps: making, describing, single pixels.
#include "platform/gdi/linux/bitmap.h"

#include "platform/base/system.h"
#include "platform/gdi/linux/device_context.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <vector>

CPicture::CPicture(int nWidth, int nHeight, int nBits, CPixelsPtr pPixels)
    : m_nWidth(nWidth), m_nHeight(nHeight), m_nBits(nBits), m_pPixels(std::move(pPixels))
{
}

std::unique_ptr<CPicture> CPicture::Create(int nWidth, int nHeight, int nBits)
{
    if (nWidth < 1 || nHeight < 1 || nWidth > MAX_SIDE || nHeight > MAX_SIDE ||
        std::int64_t{ nWidth } * nHeight > MAX_PIXELS || !IsPixelDepth(nBits))
        return nullptr;
    const std::size_t nPixels =
        static_cast<std::size_t>(nWidth) * static_cast<std::size_t>(nHeight);
    // Zero pages of the system: what is never drawn on costs nothing.
    CPixelsPtr pPixels(static_cast<CPixel*>(std::calloc(nPixels, sizeof(CPixel))));
    if (!pPixels)
        return nullptr;
    return std::unique_ptr<CPicture>(new (std::nothrow)
                                         CPicture(nWidth, nHeight, nBits, std::move(pPixels)));
}

CSurfacePtr CPicture::Window(const RECT& box)
{
    CSurfacePtr pSurface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(Row(box.top) + box.left), CAIRO_FORMAT_RGB24,
        box.right - box.left, box.bottom - box.top, m_nWidth * static_cast<int>(sizeof(CPixel))));
    if (cairo_surface_status(pSurface.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    return pSurface;
}

void CPicture::ReadRow(int x, int y, std::span<CPixel> pixels) const
{
    const CPixel* pFrom = Row(y) + x;
    std::transform(pFrom, pFrom + pixels.size(), pixels.begin(),
                   [this](CPixel pixel) { return NearestPixel(pixel, m_nBits); });
}

CBitmapObject* CBitmapObject::Create(std::unique_ptr<CPicture> pPicture)
{
    CBitmapObject* pBitmap = Take(OBJ_BITMAP);
    pBitmap->m_pPicture = std::move(pPicture);
    return pBitmap;
}

void CBitmapObject::Recycle()
{
    m_pPicture.reset();
    CRecycled::Recycle();
}

int CBitmapObject::Describe(int cb, void* pBuffer) const
{
    const CPicture& picture = Picture();
    BITMAP bitmap{};
    bitmap.bmWidth = picture.Width();
    bitmap.bmHeight = picture.Height();
    bitmap.bmWidthBytes =
        static_cast<LONG>(RowBytes(static_cast<unsigned>(picture.Width()), picture.Bits(), 2));
    bitmap.bmPlanes = 1;
    bitmap.bmBitsPixel = static_cast<WORD>(picture.Bits());
    return DescribeBytes(&bitmap, sizeof bitmap, cb, pBuffer);
}

CPicture* SelectedPicture(const CDeviceContext& dc)
{
    return dc.Bitmap() ? &static_cast<CBitmapObject*>(dc.Bitmap())->Picture() : nullptr;
}

CHandleObject& DefaultBitmap()
{
    // Never freed: device contexts may let go of it when the process ends.
    static CBitmapObject* const s_pBitmap = []
    {
        std::unique_ptr<CPicture> pPicture = CPicture::Create(1, 1, 1);
        if (!pPicture)
            throw std::bad_alloc();
        CBitmapObject* pBitmap = CBitmapObject::Create(std::move(pPicture));
        pBitmap->MakePermanent(CHandleObject::NOT_STOCK);
        return pBitmap;
    }();
    return *s_pBitmap;
}

namespace
{

HBITMAP Fail(int nError)
{
    SetLastError(static_cast<DWORD>(nError));
    return nullptr;
}

// Initial content: rows from the top down, filled up to 16 bits.
void FillFrom(CPicture& picture, const void* pBits)
{
    const auto* pRow = static_cast<const BYTE*>(pBits);
    const auto nWidth = static_cast<std::size_t>(picture.Width());
    for (int y = 0; y < picture.Height(); ++y)
    {
        UnpackRow(pRow, picture.Bits(), { picture.Row(y), nWidth });
        pRow += RowBytes(nWidth, picture.Bits(), 2);
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
    std::unique_ptr<CPicture> pPicture = CPicture::Create(nWidth, nHeight, nBits);
    if (!pPicture)
        return Fail(ENOMEM);
    if (pBits)
        FillFrom(*pPicture, pBits);
    return static_cast<HBITMAP>(CBitmapObject::Create(std::move(pPicture))->Handle());
}

HBITMAP CreateCompatibleBitmap(HDC hDC, int nWidth, int nHeight)
{
    if (!hDC)
        return Fail(EINVAL);
    const CPicture* pSelected = SelectedPicture(*hDC);
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
