// Pictures in memory, and the object behind HBITMAP.
#include "platform/gdi/linux/bitmaps/bitmap.h"

#include "platform/gdi/linux/context/device_context.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <vector>

CPixelImage::CPixelImage(int nWidth, int nHeight, int nBits, CPixelsPtr pPixels)
    : m_nWidth(nWidth), m_nHeight(nHeight), m_nBits(nBits), m_pPixels(std::move(pPixels))
{
}

std::unique_ptr<CPixelImage> CPixelImage::Create(int nWidth, int nHeight, int nBits)
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
    return std::unique_ptr<CPixelImage>(
        new (std::nothrow) CPixelImage(nWidth, nHeight, nBits, std::move(pPixels)));
}

CSurfacePtr CPixelImage::Window(const RECT& box)
{
    CSurfacePtr pSurface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(Row(box.top) + box.left), CAIRO_FORMAT_RGB24,
        box.right - box.left, box.bottom - box.top, m_nWidth * static_cast<int>(sizeof(CPixel))));
    if (cairo_surface_status(pSurface.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    return pSurface;
}

void CPixelImage::ReadRow(int x, int y, std::span<CPixel> pixels) const
{
    const CPixel* pFrom = Row(y) + x;
    std::transform(pFrom, pFrom + pixels.size(), pixels.begin(),
                   [this](CPixel pixel) { return NearestPixel(pixel, m_nBits); });
}

CBitmapObject* CBitmapObject::Create(std::unique_ptr<CPixelImage> pImage)
{
    CBitmapObject* pBitmap = Take(OBJ_BITMAP);
    pBitmap->m_pImage = std::move(pImage);
    return pBitmap;
}

void CBitmapObject::Recycle()
{
    m_pImage.reset();
    CRecycled::Recycle();
}

int CBitmapObject::Describe(int cb, void* pBuffer) const
{
    const CPixelImage& image = Image();
    BITMAP bitmap{};
    bitmap.bmWidth = image.Width();
    bitmap.bmHeight = image.Height();
    bitmap.bmWidthBytes =
        static_cast<LONG>(RowBytes(static_cast<unsigned>(image.Width()), image.Bits(), 2));
    bitmap.bmPlanes = 1;
    bitmap.bmBitsPixel = static_cast<WORD>(image.Bits());
    return DescribeBytes(&bitmap, sizeof bitmap, cb, pBuffer);
}

CPixelImage* SelectedImage(const CDeviceContext& dc)
{
    return dc.Bitmap() ? &static_cast<CBitmapObject*>(dc.Bitmap())->Image() : nullptr;
}

CHandleObject& DefaultBitmap()
{
    // Never freed: device contexts may let go of it when the process ends.
    static CBitmapObject* const s_pBitmap = []
    {
        std::unique_ptr<CPixelImage> pImage = CPixelImage::Create(1, 1, 1);
        if (!pImage)
            throw std::bad_alloc();
        CBitmapObject* pBitmap = CBitmapObject::Create(std::move(pImage));
        pBitmap->MakePermanent(CHandleObject::NOT_STOCK);
        return pBitmap;
    }();
    return *s_pBitmap;
}
