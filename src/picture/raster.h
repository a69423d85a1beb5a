// A picture of pixels.
#pragma once

#include <cstdint>
#include <vector>

#include "picture/node_boxes.h"
#include "picture/placement.h"

constexpr int LARGEST_SIDE = 32767;  // pixels of an image that both systems can draw on

// Blue, green, red and opacity from the low byte on, not multiplied; rows without gaps, from the
// top down.
struct CRaster
{
    CSize size;
    std::vector<std::uint32_t> pixels;

    std::uint32_t* Row(int y)
    {
        return &pixels[static_cast<size_t>(y) * static_cast<size_t>(size.cx)];
    }
    const std::uint32_t* Row(int y) const { return const_cast<CRaster*>(this)->Row(y); }

    // What every pixel is where nothing is drawn.
    std::uint32_t nBlank = 0;
};

// The system's own drawing of the signs: with edges in grey, fitted to the pixels. The canvas has
// the placement's size. Throws CPictureFailure.
void DrawOnRaster(CRaster& raster, const CDrawing& drawing, const CPlacement& placement,
                  bool bTransparent);

// A picture with all its ink, for which the placement grows by what the system's drawing reaches
// beyond the outlines, unless the picture is to be exact. Throws CPictureFailure.
CRaster MakeRaster(const CDrawing& drawing, CPlacement& placement, const CPictureOptions& options);

// A colour, as far as it covers, over a pixel that may be clear.
void BlendPixel(std::uint32_t& nPixel, double fOpacity, const CBoxColour& colour);
// The same for a rectangle with sides anywhere between the pixels.
void BlendRect(CRaster& raster, double fLeft, double fTop, double fRight, double fBottom,
               const CBoxColour& colour);

// Draws the boxes over it.
void BlendBoxes(CRaster& raster, const CPlacement& placement, const std::vector<CNodeBox>& boxes);

std::string PngBytes(const CRaster& raster, const CPictureOptions& options);
std::string BmpBytes(const CRaster& raster, const CPictureOptions& options);
