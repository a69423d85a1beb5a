// Pictures in memory, and the object behind HBITMAP.
#pragma once

#include "platform/gdi/linux/bitmaps/cairo_handles.h"
#include "platform/gdi/linux/bitmaps/pixel_rows.h"
#include "platform/gdi/linux/context/draw_target.h"

#include <cstdlib>
#include <memory>
#include <span>

// A picture of 1 or 32 bits a pixel. It is drawn on in the 32-bit working form, whatever its depth;
// who reads gets the nearest colours that the depth can hold.
class CPixelImage
{
public:
    static constexpr int MAX_SIDE = 1 << 27;
    static constexpr std::int64_t MAX_PIXELS = std::int64_t{ 1 } << 28;  // a gigabyte
    static constexpr int MAX_SURFACE_SIDE = 32767;                       // cairo's own bound

    // All black. Null for a depth that does not exist, a size that is not positive or too large,
    // or when memory is short.
    static std::unique_ptr<CPixelImage> Create(int nWidth, int nHeight, int nBits);

    int Width() const { return m_nWidth; }
    int Height() const { return m_nHeight; }
    int Bits() const { return m_nBits; }

    // Row y from the top, in the working form.
    CPixel* Row(int y) { return m_pPixels.get() + static_cast<std::ptrdiff_t>(y) * m_nWidth; }
    const CPixel* Row(int y) const
    {
        return m_pPixels.get() + static_cast<std::ptrdiff_t>(y) * m_nWidth;
    }
    // A part of the picture for cairo, over the same pixels: to be used and given up before they
    // are touched again. Null for one that is too large, or when memory is short.
    CSurfacePtr Window(const RECT& box);

    // Colours as the depth holds them. The place has to lie inside.
    CPixel ReadPixel(int x, int y) const { return NearestPixel(Row(y)[x], m_nBits); }
    void ReadRow(int x, int y, std::span<CPixel> pixels) const;

private:
    using CPixelsPtr = std::unique_ptr<CPixel[], CFreeBy<std::free>>;

    CPixelImage(int nWidth, int nHeight, int nBits, CPixelsPtr pPixels);

    int m_nWidth;
    int m_nHeight;
    int m_nBits;
    CPixelsPtr m_pPixels;
};

class CBitmapObject final : public CRecycled<CBitmapObject>
{
public:
    CBitmapObject() : CRecycled(OBJ_BITMAP) {}
    static CBitmapObject* Create(std::unique_ptr<CPixelImage> pImage);
    CPixelImage& Image() const { return *m_pImage; }

    // A BITMAP; rows count as filled up to 16 bits.
    int Describe(int cb, void* pBuffer) const override;

protected:
    void Recycle() override;

private:
    std::unique_ptr<CPixelImage> m_pImage;  // null once it was deleted
};

// The picture that a memory device context draws on; null for other contexts.
CPixelImage* SelectedImage(const CDeviceContext& dc);

inline CBitmapObject* BitmapFromHandle(HBITMAP hBitmap)
{
    return ObjectFromHandle<CBitmapObject>(hBitmap, OBJ_BITMAP);
}
