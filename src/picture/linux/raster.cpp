// Rasters drawn by cairo.
#include "picture/raster.h"

#include "picture/linux/cairo_drawing.h"
#include "platform/gdi/linux/bitmaps/cairo_handles.h"

namespace
{
// From colours that are multiplied by their opacity.
void Divide(CRaster& raster)
{
    for (std::uint32_t& nPixel : raster.pixels)
    {
        const std::uint32_t nOpacity = nPixel >> 24;
        if (nOpacity == 0 || nOpacity == 0xFF)
            continue;
        std::uint32_t nDivided = nOpacity << 24;
        for (const int nShift : { 16, 8, 0 })
            nDivided |= ((nPixel >> nShift & 0xFF) * 0xFF + nOpacity / 2) / nOpacity << nShift;
        nPixel = nDivided;
    }
}
}  // namespace

void DrawOnRaster(CRaster& raster, const CDrawing& drawing, const CPlacement& placement,
                  bool bTransparent)
{
    const CSurfacePtr pSurface(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(raster.pixels.data()),
        bTransparent ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24, raster.size.cx, raster.size.cy,
        raster.size.cx * static_cast<int>(sizeof raster.pixels[0])));
    const CCairoPtr pCairo(cairo_create(pSurface.get()));
    PaintMarks(pCairo.get(), drawing, placement);
    PaintLines(pCairo.get(), drawing, placement);
    EnterTextSpace(pCairo.get(), placement);
    const std::vector<CScaledFontPtr> fonts = ScaledFonts(pCairo.get(), drawing, CHinting::shades);
    for (const CDrawnText& text : drawing.texts)
    {
        const std::vector<cairo_glyph_t> glyphs = PrepareText(pCairo.get(), drawing, text, fonts);
        cairo_show_glyphs(pCairo.get(), glyphs.data(), static_cast<int>(glyphs.size()));
    }
    if (const cairo_status_t nStatus = cairo_status(pCairo.get()); nStatus != CAIRO_STATUS_SUCCESS)
        throw CPictureFailure{ cairo_status_to_string(nStatus), nStatus == CAIRO_STATUS_NO_MEMORY };
    cairo_surface_flush(pSurface.get());
    if (bTransparent)
    {
        Divide(raster);
    }
    else
    {
        for (std::uint32_t& nPixel : raster.pixels)
            nPixel |= 0xFF000000;  // anything, in cairo's pixels
    }
}
