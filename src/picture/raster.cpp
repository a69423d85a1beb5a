// A raster is larger than the drawing at first, and cut to its ink; boxes are blended over it.
#include "picture/raster.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace
{
// Fitting to pixels moves edges beyond their outlines by less than this.
constexpr int s_nSlack = 2;
constexpr int s_nMostPixels = 1 << 27;  // half a gigabyte

CRaster BlankRaster(const CSize& size, const CPictureOptions& options)
{
    if (static_cast<long long>(size.cx) * size.cy > s_nMostPixels)
    {
        throw CPictureFailure{ "the picture would have " + std::to_string(size.cx) + " by " +
                               std::to_string(size.cy) + " pixels, more than " +
                               std::to_string(s_nMostPixels) };
    }
    const COLORREF back = BackgroundOf(options);
    CRaster raster;
    raster.size = size;
    raster.nBlank = options.bTransparent
                        ? 0
                        : 0xFF000000U | static_cast<std::uint32_t>(GetRValue(back)) << 16 |
                              static_cast<std::uint32_t>(GetGValue(back)) << 8 | GetBValue(back);
    try
    {
        raster.pixels.assign(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy),
                             raster.nBlank);
    }
    catch (const std::bad_alloc&)
    {
        throw CPictureFailure{ "there is no memory for a picture of " + std::to_string(size.cx) +
                                   " by " + std::to_string(size.cy) + " pixels",
                               true };
    }
    return raster;
}

bool IsBlank(const CRaster& raster, int nLeft, int nTop, int nRight, int nBottom)
{
    for (int y = nTop; y < nBottom; ++y)
    {
        const std::uint32_t* pRow = raster.Row(y);
        if (!std::all_of(pRow + nLeft, pRow + nRight,
                         [&](std::uint32_t nPixel) { return nPixel == raster.nBlank; }))
            return false;
    }
    return true;
}

// How much of the slack on one side is not needed for ink, or to keep it off the margin;
// isBlankFor tells whether so many of the outer rows or columns are blank.
template <class IsBlankFor>
int Spare(int nMargin, IsBlankFor isBlankFor)
{
    int nSpare = s_nSlack;
    while (nSpare > 0 && !isBlankFor(nSpare + nMargin))
        --nSpare;
    return nSpare;
}

CRaster Part(const CRaster& whole, int nLeft, int nTop, const CSize& size)
{
    CRaster part;
    part.size = size;
    part.nBlank = whole.nBlank;
    part.pixels.reserve(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy));
    for (int y = nTop; y < nTop + size.cy; ++y)
    {
        const std::uint32_t* pRow = whole.Row(y) + nLeft;
        part.pixels.insert(part.pixels.end(), pRow, pRow + size.cx);
    }
    return part;
}

// How much of a pixel lies between two sides.
double Covered(int nPixel, double fFrom, double fTo)
{
    return std::min(nPixel + 1.0, fTo) - std::max<double>(nPixel, fFrom);
}

int FirstPixel(double fFrom)
{
    return static_cast<int>(std::max(std::floor(fFrom), 0.0));
}

int EndPixel(double fTo, int nEnd)
{
    return static_cast<int>(std::min<double>(std::ceil(fTo), nEnd));
}

}  // namespace

void BlendPixel(std::uint32_t& nPixel, double fOpacity, const CBoxColour& colour)
{
    const double fBelow = (nPixel >> 24) / 255.0 * (1 - fOpacity);
    const double fSum = fOpacity + fBelow;
    if (fSum <= 0)
        return;
    const auto mix = [&](int nShift, double f)
    {
        const double fOld = nPixel >> nShift & 0xFF;
        const double fNew = (f * 255 * fOpacity + fOld * fBelow) / fSum;
        return static_cast<std::uint32_t>(std::lround(fNew)) << nShift;
    };
    nPixel = static_cast<std::uint32_t>(std::lround(fSum * 255)) << 24 | mix(16, colour.fRed) |
             mix(8, colour.fGreen) | mix(0, colour.fBlue);
}

void BlendRect(CRaster& raster, double fLeft, double fTop, double fRight, double fBottom,
               const CBoxColour& colour)
{
    for (int y = FirstPixel(fTop); y < EndPixel(fBottom, raster.size.cy); ++y)
    {
        for (int x = FirstPixel(fLeft); x < EndPixel(fRight, raster.size.cx); ++x)
        {
            const double fPart = Covered(x, fLeft, fRight) * Covered(y, fTop, fBottom);
            BlendPixel(raster.Row(y)[x], colour.fOpacity * fPart, colour);
        }
    }
}

CRaster MakeRaster(const CDrawing& drawing, CPlacement& placement, const CPictureOptions& options)
{
    const int nSlack = options.bExact ? 0 : s_nSlack;
    placement.Grow(nSlack, nSlack, nSlack, nSlack);
    placement.CheckSides(LARGEST_SIDE);
    CRaster raster = BlankRaster(placement.Size(), options);
    DrawOnRaster(raster, drawing, placement, options.bTransparent);
    if (nSlack == 0)
        return raster;
    const int n = options.nMargin;
    const int cx = raster.size.cx;
    const int cy = raster.size.cy;
    const int nTop = Spare(n, [&](int k) { return IsBlank(raster, 0, 0, cx, k); });
    const int nLeft = Spare(n, [&](int k) { return IsBlank(raster, 0, 0, k, cy); });
    const int nBottom = Spare(n, [&](int k) { return IsBlank(raster, 0, cy - k, cx, cy); });
    const int nRight = Spare(n, [&](int k) { return IsBlank(raster, cx - k, 0, cx, cy); });
    placement.Grow(-nLeft, -nTop, -nRight, -nBottom);
    return Part(raster, nLeft, nTop, placement.Size());
}

void BlendBoxes(CRaster& raster, const CPlacement& placement, const std::vector<CNodeBox>& boxes)
{
    DrawBoxes(boxes,
              [&](double l, double t, double r, double b, const CBoxColour& colour) {
                  BlendRect(raster, placement.X(l), placement.Y(t), placement.X(r), placement.Y(b),
                            colour);
              });
}
