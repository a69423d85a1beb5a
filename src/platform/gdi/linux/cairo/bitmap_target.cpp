// Drawing on memory bitmaps: shapes and glyphs pixel by pixel, wide lines and outlines by cairo.
#include "platform/gdi/linux/bitmaps/stretch.h"
#include "platform/gdi/linux/cairo/cairo_fonts.h"
#include "platform/gdi/linux/cairo/cairo_target.h"
#include "platform/gdi/linux/cairo/glyph_masks.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace
{

// The pixels of a line within bounds: f(x, y). On the longer axis each step is one pixel; the
// place on the other is rounded, halves to the smaller coordinate, so that both directions meet
// the same pixels.
template <class F>
void WalkLine(POINT from, POINT to, const RECT& bounds, F f)
{
    const bool bSteep = std::abs(to.y - from.y) > std::abs(to.x - from.x);
    const auto turn = [bSteep](LONG x, LONG y)
    {
        return bSteep ? POINT{ y, x } : POINT{ x, y };
    };
    const POINT a = turn(from.x, from.y);
    const POINT b = turn(to.x, to.y);
    const POINT low = turn(bounds.left, bounds.top);
    const POINT high = turn(bounds.right, bounds.bottom);
    const std::int64_t nSteps = std::abs(b.x - a.x);
    const std::int64_t nRise = std::abs(b.y - a.y);
    const int nForward = b.x > a.x ? 1 : -1;
    const int nSide = b.y > a.y ? 1 : -1;
    const std::int64_t nFirst = std::max<std::int64_t>(
        0, nForward > 0 ? std::int64_t{ low.x } - a.x : std::int64_t{ a.x } - high.x + 1);
    const std::int64_t nEnd = std::min<std::int64_t>(
        nSteps, nForward > 0 ? std::int64_t{ high.x } - a.x : std::int64_t{ a.x } - low.x + 1);
    for (std::int64_t n = nFirst; n < nEnd; ++n)
    {
        const std::int64_t nShift = (2 * nRise * n + nSteps - (nSide > 0 ? 1 : 0)) / (2 * nSteps);
        const LONG nMinor = a.y + nSide * static_cast<LONG>(nShift);
        if (nMinor < low.y || nMinor >= high.y)
            continue;
        const POINT pixel = turn(a.x + nForward * static_cast<LONG>(n), nMinor);
        f(pixel.x, pixel.y);
    }
}

// Cairo's coordinates have 24 bits before the point, and it adds some of them up.
constexpr int s_nCairoLimit = 1 << 22;

// For leaving out what cannot be seen before it is drawn: no glyph of a sound font reaches further
// from its pen than this many times the em square.
constexpr double s_fGlyphReach = 3;

class CBitmapTarget final : public CCairoTarget
{
public:
    explicit CBitmapTarget(CPixelImage& image) : m_image(image) {}

    bool SetPixel(CDeviceContext& dc, POINT point, COLORREF colour) override;
    COLORREF GetPixel(CDeviceContext& dc, POINT point) override;

protected:
    bool FillBox(const CDrawState& state, const RECT& box, const CFill& fill) override;
    bool DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke) override;
    bool FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke) override;
    bool ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run) override;
    bool PutImage(const CDrawState& state, const CImageTransfer& transfer) override;

private:
    CRect Clip(const CDrawState& state) const;
    void FillSolid(const RECT& box, CPixel pixel);
    template <class F>
    bool StrokeWide(const CDrawState& state, const CStroke& stroke, F makePath);
    void PutMask(const CGlyphMask& mask, POINT pen, const RECT& clip, CPixel colour);
    bool ShowOutlines(const CDeviceContext& dc, const CGlyphRun& run, const RECT& clip,
                      const CPenBounds& bounds);
    template <class F>
    bool DrawByCairo(const RECT& clip, F draw);

    CPixelImage& m_image;
};

CRect CBitmapTarget::Clip(const CDrawState& state) const
{
    const CRect all{ 0, 0, m_image.Width(), m_image.Height() };
    return state.m_clip ? IntersectBoxes(all, *state.m_clip) : all;
}

void CBitmapTarget::FillSolid(const RECT& box, CPixel pixel)
{
    CPixel* pRow = m_image.Row(box.top) + box.left;
    for (int y = box.top; y < box.bottom; ++y, pRow += m_image.Width())
        std::fill_n(pRow, box.right - box.left, pixel);
}

bool CBitmapTarget::FillBox(const CDrawState& state, const RECT& box, const CFill& fill)
{
    const CRect clipped = IntersectBoxes(box, Clip(state));
    if (clipped.IsRectEmpty())
        return true;
    const CPixel pixel = PixelFromColour(fill.m_colour);
    if (!fill.m_bHatched)
    {
        FillSolid(clipped, pixel);
        return true;
    }
    if (fill.m_between)
        FillSolid(clipped, PixelFromColour(*fill.m_between));
    for (int y = clipped.top; y < clipped.bottom; ++y)
    {
        for (int x = clipped.left; x < clipped.right; ++x)
        {
            if (IsHatchPixel(x, y))
                m_image.Row(y)[x] = pixel;
        }
    }
    return true;
}

bool CBitmapTarget::DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke)
{
    if (stroke.m_nWidth > 1)
    {
        const POINT a = LimitPoint(from, s_nCairoLimit);
        const POINT b = LimitPoint(to, s_nCairoLimit);
        return StrokeWide(state, stroke,
                          [&](cairo_t* pCairo)
                          {
                              cairo_move_to(pCairo, a.x + 0.5, a.y + 0.5);
                              cairo_line_to(pCairo, b.x + 0.5, b.y + 0.5);
                          });
    }
    const CRect bounds = Clip(state);
    if (bounds.IsRectEmpty())
        return true;
    const CPixel pixel = PixelFromColour(stroke.m_colour);
    WalkLine(from, to, bounds, [&](int x, int y) { m_image.Row(y)[x] = pixel; });
    return true;
}

bool CBitmapTarget::FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke)
{
    if (stroke.m_nWidth > 1)
    {
        const POINT a = LimitPoint({ box.left, box.top }, s_nCairoLimit);
        const POINT b = LimitPoint({ box.right - 1, box.bottom - 1 }, s_nCairoLimit);
        return StrokeWide(state, stroke,
                          [&](cairo_t* pCairo)
                          { cairo_rectangle(pCairo, a.x + 0.5, a.y + 0.5, b.x - a.x, b.y - a.y); });
    }
    // Round once, each corner the first pixel of one side: none is drawn twice.
    const POINT aCorners[] = { { box.left, box.top },
                               { box.right - 1, box.top },
                               { box.right - 1, box.bottom - 1 },
                               { box.left, box.bottom - 1 } };
    for (std::size_t i = 0; i < 4; ++i)
        DrawLine(state, aCorners[i], aCorners[(i + 1) % 4], stroke);
    return true;
}

// Gives the picture to cairo in pieces that are not too large for it: f(context) draws in device
// pixels, and leaves the state as it likes.
template <class F>
bool CBitmapTarget::DrawByCairo(const RECT& clip, F draw)
{
    constexpr int nStep = CPixelImage::MAX_SURFACE_SIDE;
    for (int y = clip.top; y < clip.bottom; y += nStep)
    {
        for (int x = clip.left; x < clip.right; x += nStep)
        {
            const RECT window{ x, y, std::min(clip.right, x + nStep),
                               std::min(clip.bottom, y + nStep) };
            const CSurfacePtr pSurface = m_image.Window(window);
            if (!pSurface)
                return false;
            const CCairoPtr pCairo(cairo_create(pSurface.get()));
            cairo_translate(pCairo.get(), -x, -y);
            draw(pCairo.get());
            if (cairo_status(pCairo.get()) != CAIRO_STATUS_SUCCESS)
                return false;
            cairo_surface_flush(pSurface.get());
        }
    }
    return true;
}

template <class F>
bool CBitmapTarget::StrokeWide(const CDrawState& state, const CStroke& stroke, F makePath)
{
    return DrawByCairo(Clip(state),
                       [&](cairo_t* pCairo)
                       {
                           cairo_set_antialias(pCairo, CAIRO_ANTIALIAS_NONE);
                           cairo_set_line_width(pCairo, std::min(stroke.m_nWidth, s_nCairoLimit));
                           cairo_set_line_cap(pCairo, CAIRO_LINE_CAP_ROUND);
                           cairo_set_line_join(pCairo, CAIRO_LINE_JOIN_ROUND);
                           SetSource(pCairo, stroke.m_colour);
                           makePath(pCairo);
                           cairo_stroke(pCairo);
                       });
}

bool CBitmapTarget::ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run)
{
    const double fHeight = run.m_font.Ppem();
    const double fWidth = fHeight * std::max(1.0, run.m_font.WidthRatio());
    CRect clip = Clip(dc.State());
    if (run.m_clip)
        clip = IntersectBoxes(clip, *run.m_clip);
    if (clip.IsRectEmpty() || run.m_origin.y - s_fGlyphReach * fHeight > clip.bottom ||
        run.m_origin.y + s_fGlyphReach * fHeight < clip.top)
        return true;
    const auto nReach = static_cast<std::int64_t>(std::min(s_fGlyphReach * fWidth, 1e9));
    const CPenBounds bounds{ clip.left - nReach, clip.right + nReach };
    if (std::max(fWidth, fHeight) > MASK_SIZE_LIMIT)
        return ShowOutlines(dc, run, clip, bounds);

    CFontMasks* pMasks =
        FindFontMasks(run.m_font, m_image.Bits() == 1 ? CHinting::twoColours : CHinting::shades);
    if (!pMasks)
        return false;
    const CPixel colour = PixelFromColour(dc.State().m_crText);
    WalkGlyphs(
        dc, run, bounds,
        [&](BYTE byte, std::int64_t x) {
            PutMask(pMasks->Mask(byte), { static_cast<LONG>(x), run.m_origin.y }, clip, colour);
        });
    return true;
}

void CBitmapTarget::PutMask(const CGlyphMask& mask, POINT pen, const RECT& clip, CPixel colour)
{
    const RECT box{ mask.m_box.left + pen.x, mask.m_box.top + pen.y, mask.m_box.right + pen.x,
                    mask.m_box.bottom + pen.y };
    const CRect seen = IntersectBoxes(box, clip);
    if (seen.IsRectEmpty())
        return;
    const std::ptrdiff_t nMaskWidth = box.right - box.left;
    const auto nWidth = static_cast<std::size_t>(seen.right - seen.left);
    const BYTE* pCoverage =
        mask.m_coverage.data() + (seen.top - box.top) * nMaskWidth + (seen.left - box.left);
    CPixel* pRow = m_image.Row(seen.top) + seen.left;
    for (int y = seen.top; y < seen.bottom; ++y, pRow += m_image.Width(), pCoverage += nMaskWidth)
        BlendRow({ pRow, nWidth }, pCoverage, colour);
}

bool CBitmapTarget::ShowOutlines(const CDeviceContext& dc, const CGlyphRun& run, const RECT& clip,
                                 const CPenBounds& bounds)
{
    cairo_matrix_t identity;
    cairo_matrix_init_identity(&identity);
    const CScaledFontPtr pFont = MakeScaledFont(run.m_font, CHinting::outlines, identity);
    if (!pFont)
        return false;
    return DrawByCairo(clip,
                       [&](cairo_t* pCairo)
                       {
                           if (m_image.Bits() == 1)
                               cairo_set_antialias(pCairo, CAIRO_ANTIALIAS_NONE);
                           cairo_set_scaled_font(pCairo, pFont.get());
                           SetSource(pCairo, dc.State().m_crText);
                           DrawGlyphs(pCairo, dc, run, bounds, true);
                       });
}

bool CBitmapTarget::SetPixel(CDeviceContext& dc, POINT point, COLORREF colour)
{
    const POINT pixel = dc.Mapping().ToDevice(point);
    if (!Clip(dc.State()).PtInRect(pixel))
        return false;
    m_image.Row(pixel.y)[pixel.x] = PixelFromColour(colour);
    return true;
}

COLORREF CBitmapTarget::GetPixel(CDeviceContext& dc, POINT point)
{
    const POINT pixel = dc.Mapping().ToDevice(point);
    if (!Clip(dc.State()).PtInRect(pixel))
        return CLR_INVALID;
    return ColourFromPixel(m_image.ReadPixel(pixel.x, pixel.y));
}

bool CBitmapTarget::PutImage(const CDrawState& state, const CImageTransfer& transfer)
{
    return StretchImage(transfer, m_image, Clip(state));
}

}  // namespace

std::unique_ptr<CDrawTarget> MakeBitmapTarget(CHandleObject& bitmap)
{
    return std::unique_ptr<CDrawTarget>(
        new (std::nothrow) CBitmapTarget(static_cast<CBitmapObject&>(bitmap).Image()));
}
