// Drawing on a host's cairo context: device pixels are its user units.
#include "platform/gdi/linux/cairo/host_target.h"

#include "platform/gdi/linux/bitmaps/stretch.h"
#include "platform/gdi/linux/cairo/cairo_fonts.h"

#include <cmath>
#include <new>

namespace
{

using CPathPtr = std::unique_ptr<cairo_path_t, CFreeBy<cairo_path_destroy>>;

// One call on the host's context: state and path are put back at its end.
class CHostScope
{
public:
    CHostScope(cairo_t* pCairo, const std::optional<RECT>& clip) : m_pCairo(pCairo)
    {
        if (cairo_has_current_point(pCairo))
            m_pPath.reset(cairo_copy_path(pCairo));
        cairo_save(pCairo);
        cairo_new_path(pCairo);
        cairo_set_antialias(pCairo, CAIRO_ANTIALIAS_DEFAULT);
        cairo_set_operator(pCairo, CAIRO_OPERATOR_OVER);
        if (clip)
            Clip(*clip);
    }
    ~CHostScope()
    {
        cairo_restore(m_pCairo);
        cairo_new_path(m_pCairo);
        if (m_pPath)
            cairo_append_path(m_pCairo, m_pPath.get());
    }
    CHostScope(const CHostScope&) = delete;
    CHostScope& operator=(const CHostScope&) = delete;

    void AddBox(const RECT& box)
    {
        cairo_rectangle(m_pCairo, box.left, box.top, box.right - box.left, box.bottom - box.top);
    }
    // Also when the matrix is no whole number of pixels: edges of boxes that touch leave no seam.
    void Clip(const RECT& box)
    {
        cairo_set_antialias(m_pCairo, CAIRO_ANTIALIAS_NONE);
        AddBox(box);
        cairo_clip(m_pCairo);
        cairo_set_antialias(m_pCairo, CAIRO_ANTIALIAS_DEFAULT);
    }
    void FillBox(const RECT& box)
    {
        cairo_set_antialias(m_pCairo, CAIRO_ANTIALIAS_NONE);
        AddBox(box);
        cairo_fill(m_pCairo);
        cairo_set_antialias(m_pCairo, CAIRO_ANTIALIAS_DEFAULT);
    }

private:
    cairo_t* m_pCairo;  // not owned
    CPathPtr m_pPath;
};

class CHostTarget final : public CCairoTarget
{
public:
    explicit CHostTarget(cairo_t* pCairo)
        : m_pCairo(cairo_reference(pCairo)), m_bVector(IsVectorContext(pCairo))
    {
    }

protected:
    bool FillBox(const CDrawState& state, const RECT& box, const CFill& fill) override;
    bool DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke) override;
    bool FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke) override;
    bool ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run) override;
    bool PutImage(const CDrawState& state, const CImageTransfer& transfer) override;

private:
    bool IsUsable() const { return cairo_status(m_pCairo.get()) == CAIRO_STATUS_SUCCESS; }
    bool HasPixelUnits() const;
    void SetStroke(const CStroke& stroke);
    void FillHatchLines(const RECT& box);
    void FillHatchPixels();

    CCairoPtr m_pCairo;
    bool m_bVector;
};

bool CHostTarget::FillBox(const CDrawState& state, const RECT& box, const CFill& fill)
{
    if (!IsUsable())
        return false;
    CHostScope scope(m_pCairo.get(), state.m_clip);
    if (fill.m_between)
    {
        SetSource(m_pCairo.get(), *fill.m_between);
        scope.FillBox(box);
    }
    SetSource(m_pCairo.get(), fill.m_colour);
    if (!fill.m_bHatched)
    {
        scope.FillBox(box);
    }
    else
    {
        scope.Clip(box);
        if (m_bVector || !HasPixelUnits())
            FillHatchLines(box);
        else
            FillHatchPixels();
    }
    return IsUsable();
}

// True while units are pixels, so that a pattern of pixels looks as on a bitmap.
bool CHostTarget::HasPixelUnits() const
{
    cairo_matrix_t matrix;
    cairo_get_matrix(m_pCairo.get(), &matrix);
    return matrix.xx == 1 && matrix.yy == 1 && matrix.xy == 0 && matrix.yx == 0 &&
           matrix.x0 == std::floor(matrix.x0) && matrix.y0 == std::floor(matrix.y0);
}

// The middles of the lines that the pixels of a pattern would make: x + y is a multiple of the
// step. A vector format would keep a pattern as an image.
void CHostTarget::FillHatchLines(const RECT& box)
{
    cairo_t* pCairo = m_pCairo.get();
    double fLeft = 0, fTop = 0, fRight = 0, fBottom = 0;  // what can be seen of it
    cairo_clip_extents(pCairo, &fLeft, &fTop, &fRight, &fBottom);
    fLeft = std::max<double>(fLeft, box.left);
    fTop = std::max<double>(fTop, box.top);
    fRight = std::min<double>(fRight, box.right);
    fBottom = std::min<double>(fBottom, box.bottom);
    if (fLeft >= fRight || fTop >= fBottom)
        return;
    const double fLast = fRight + fBottom;
    for (double d = std::floor((fLeft + fTop) / HATCH_STEP) * HATCH_STEP; d <= fLast;
         d += HATCH_STEP)
    {
        cairo_move_to(pCairo, d - fTop, fTop);
        cairo_line_to(pCairo, d - fBottom, fBottom);
    }
    cairo_set_line_width(pCairo, 1);
    cairo_set_dash(pCairo, nullptr, 0, 0);
    cairo_set_line_cap(pCairo, CAIRO_LINE_CAP_BUTT);
    cairo_stroke(pCairo);
}

void CHostTarget::FillHatchPixels()
{
    // A mask of one byte a pixel, through which the colour that is set is painted.
    const CSurfacePtr pSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, HATCH_STEP, HATCH_STEP));
    unsigned char* pData = cairo_image_surface_get_data(pSurface.get());
    if (!pData)
        return;
    const int nStride = cairo_image_surface_get_stride(pSurface.get());
    for (int y = 0; y < HATCH_STEP; ++y)
    {
        for (int x = 0; x < HATCH_STEP; ++x)
            pData[y * nStride + x] = IsHatchPixel(x, y) ? 0xFF : 0;
    }
    cairo_surface_mark_dirty(pSurface.get());
    const CPatternPtr pPattern(cairo_pattern_create_for_surface(pSurface.get()));
    cairo_pattern_set_extend(pPattern.get(), CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pPattern.get(), CAIRO_FILTER_NEAREST);
    cairo_mask(m_pCairo.get(), pPattern.get());
}

void CHostTarget::SetStroke(const CStroke& stroke)
{
    const bool bWide = stroke.m_nWidth > 1;
    cairo_t* pCairo = m_pCairo.get();
    SetSource(pCairo, stroke.m_colour);
    cairo_set_line_width(pCairo, stroke.m_nWidth);
    cairo_set_line_cap(pCairo, bWide ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(pCairo, bWide ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
    cairo_set_dash(pCairo, nullptr, 0, 0);
}

bool CHostTarget::DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke)
{
    if (!IsUsable())
        return false;
    cairo_t* pCairo = m_pCairo.get();
    const CHostScope scope(pCairo, state.m_clip);
    SetStroke(stroke);
    // Middles of pixels: a line of width 1 covers them whole.
    double x1 = from.x + 0.5, y1 = from.y + 0.5, x2 = to.x + 0.5, y2 = to.y + 0.5;
    if (stroke.m_nWidth == 1 && (from.x == to.x || from.y == to.y))
    {
        // Whole pixels: the first one from its outer edge on, the last one not at all.
        (from.y == to.y ? x1 : y1) += (from.x < to.x || from.y < to.y) ? -0.5 : 0.5;
        (from.y == to.y ? x2 : y2) += (from.x < to.x || from.y < to.y) ? -0.5 : 0.5;
    }
    cairo_move_to(pCairo, x1, y1);
    cairo_line_to(pCairo, x2, y2);
    cairo_stroke(pCairo);
    return IsUsable();
}

bool CHostTarget::FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke)
{
    if (!IsUsable())
        return false;
    cairo_t* pCairo = m_pCairo.get();
    const CHostScope scope(pCairo, state.m_clip);
    SetStroke(stroke);
    cairo_rectangle(pCairo, box.left + 0.5, box.top + 0.5, box.right - box.left - 1,
                    box.bottom - box.top - 1);
    cairo_stroke(pCairo);
    return IsUsable();
}

bool CHostTarget::ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run)
{
    if (!IsUsable())
        return false;
    cairo_t* pCairo = m_pCairo.get();
    cairo_matrix_t matrix;
    cairo_get_matrix(pCairo, &matrix);
    // A font that cannot be had must not spoil the host's context.
    const CScaledFontPtr pFont =
        MakeScaledFont(run.m_font, m_bVector ? CHinting::outlines : CHinting::shades, matrix);
    if (!pFont)
        return false;
    CHostScope scope(pCairo, dc.State().m_clip);
    if (run.m_clip)
        scope.Clip(*run.m_clip);
    SetSource(pCairo, dc.State().m_crText);
    cairo_set_scaled_font(pCairo, pFont.get());
    DrawGlyphs(pCairo, dc, run, {}, false);
    return IsUsable();
}

bool CHostTarget::PutImage(const CDrawState& state, const CImageTransfer& transfer)
{
    const CPixelImage& source = transfer.m_source;
    const RECT& from = transfer.m_from;
    const RECT& to = transfer.m_to;
    const CRect part = IntersectBoxes(from, { 0, 0, source.Width(), source.Height() });
    if (!IsUsable())
        return false;
    if (part.IsRectEmpty())
        return true;
    constexpr int nBits = 32;
    const auto pImage = CPixelImage::Create(part.right - part.left, part.bottom - part.top, nBits);
    if (!pImage)
        return false;
    for (int y = 0; y < pImage->Height(); ++y)
    {
        const std::span<CPixel> row(pImage->Row(y), static_cast<std::size_t>(pImage->Width()));
        ReadForDestination(transfer, nBits, part.left, part.top + y, row);
    }

    const CSurfacePtr pSurface = pImage->Window({ 0, 0, pImage->Width(), pImage->Height() });
    if (!pSurface)
        return false;
    cairo_t* pCairo = m_pCairo.get();
    CHostScope scope(pCairo, state.m_clip);
    scope.Clip(to);
    const double fScaleX = static_cast<double>(to.right - to.left) / (from.right - from.left);
    const double fScaleY = static_cast<double>(to.bottom - to.top) / (from.bottom - from.top);
    cairo_translate(pCairo, transfer.m_bMirrorX ? to.right : to.left,
                    transfer.m_bMirrorY ? to.bottom : to.top);
    cairo_scale(pCairo, transfer.m_bMirrorX ? -fScaleX : fScaleX,
                transfer.m_bMirrorY ? -fScaleY : fScaleY);
    cairo_set_source_surface(pCairo, pSurface.get(), part.left - from.left, part.top - from.top);
    // Enlarged pixels stay squares, as on a bitmap; shrunk ones are averaged, since a host's target
    // cannot be read back to keep the dark ones.
    cairo_pattern_set_filter(cairo_get_source(pCairo),
                             fScaleX < 1 || fScaleY < 1 ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
    cairo_set_antialias(pCairo, CAIRO_ANTIALIAS_NONE);
    cairo_rectangle(pCairo, part.left - from.left, part.top - from.top, pImage->Width(),
                    pImage->Height());
    cairo_fill(pCairo);
    return IsUsable();
}

}  // namespace

bool IsVectorContext(cairo_t* pCairo)
{
    switch (cairo_surface_get_type(cairo_get_target(pCairo)))
    {
        case CAIRO_SURFACE_TYPE_PDF:
        case CAIRO_SURFACE_TYPE_PS:
        case CAIRO_SURFACE_TYPE_SVG:
        case CAIRO_SURFACE_TYPE_SCRIPT:
        case CAIRO_SURFACE_TYPE_RECORDING:
            return true;
        default:
            return false;
    }
}

std::unique_ptr<CDrawTarget> MakeHostTarget(cairo_t* pCairo)
{
    return std::unique_ptr<CDrawTarget>(new (std::nothrow) CHostTarget(pCairo));
}
