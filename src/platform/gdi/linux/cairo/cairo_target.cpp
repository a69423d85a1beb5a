// From calls in logical units to boxes, lines and glyphs in device pixels.
#include "platform/gdi/linux/cairo/cairo_target.h"

namespace
{

CRect ToDeviceCorners(const CMapping& mapping, const RECT& rect)
{
    const POINT a = mapping.ToDevice({ rect.left, rect.top });
    const POINT b = mapping.ToDevice({ rect.right, rect.bottom });
    return LimitBox({ a.x, a.y, b.x, b.y });
}

// None for a pen that does not draw.
std::optional<CStroke> DeviceStroke(const CDrawState& state)
{
    const LOGPEN& pen = state.m_pPen->LogPen();
    if (pen.lopnStyle == PS_NULL)
        return std::nullopt;
    const int nWidth = std::clamp(state.m_mapping.ToDeviceWidth(pen.lopnWidth.x), 1, DEVICE_LIMIT);
    return CStroke{ nWidth, pen.lopnColor };
}

}  // namespace

void SetSource(cairo_t* pCairo, COLORREF colour)
{
    cairo_set_source_rgb(pCairo, GetRValue(colour) / 255.0, GetGValue(colour) / 255.0,
                         GetBValue(colour) / 255.0);
}

bool CCairoTarget::FillWithBrush(const CDrawState& state, const CRect& box)
{
    const LOGBRUSH& brush = state.m_pBrush->LogBrush();
    if (brush.lbStyle == BS_NULL || box.IsRectEmpty())
        return true;
    CFill fill{ brush.lbColor, brush.lbStyle == BS_HATCHED, std::nullopt };
    if (fill.m_bHatched && state.m_nBkMode == OPAQUE)
        fill.m_between = state.m_crBk;
    return FillBox(state, box, fill);
}

bool CCairoTarget::PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight)
{
    const RECT rect{ x, y, SaturateToInt(std::int64_t{ x } + nWidth),
                     SaturateToInt(std::int64_t{ y } + nHeight) };
    return FillWithBrush(dc.State(), ShiftInverted(ToDeviceCorners(dc.Mapping(), rect)));
}

bool CCairoTarget::ExtTextOut(CDeviceContext& dc, const CTextRun& run)
{
    const CDrawState& state = dc.State();
    std::optional<CRect> rect;
    if (run.m_pRect)
        rect = Normalized(ToDeviceCorners(dc.Mapping(), *run.m_pRect));
    bool bDone = true;
    if (rect && (run.m_nOptions & ETO_OPAQUE) && !rect->IsRectEmpty())
        bDone = FillBox(state, *rect, { state.m_crBk, false, {} });
    if (run.m_text.empty())
        return bDone;

    const CRealizedFont& font = dc.Font();
    CGlyphRun glyphs{ font, run.m_text, LimitPoint(dc.TextOrigin(run)), run.m_pDx, {} };
    if (run.m_nOptions & ETO_CLIPPED)
        glyphs.m_clip = rect;
    if (state.m_nBkMode == OPAQUE)
    {
        const auto [x, y] = glyphs.m_origin;
        CRect cell{ x, y - font.Ascent(), SaturateToInt(std::int64_t{ x } + dc.TextWidth(run)),
                    y + font.Descent() };
        cell = Normalized(LimitBox(cell));
        if (glyphs.m_clip)
            cell = IntersectBoxes(cell, *glyphs.m_clip);
        if (!cell.IsRectEmpty())
            bDone = FillBox(state, cell, { state.m_crBk, false, {} }) && bDone;
    }
    return ShowGlyphs(dc, glyphs) && bDone;
}

bool CCairoTarget::LineTo(CDeviceContext& dc, POINT from, POINT to)
{
    const std::optional<CStroke> stroke = DeviceStroke(dc.State());
    from = LimitPoint(dc.Mapping().ToDevice(from));
    to = LimitPoint(dc.Mapping().ToDevice(to));
    if (!stroke || (from.x == to.x && from.y == to.y))
        return true;
    return DrawLine(dc.State(), from, to, *stroke);
}

bool CCairoTarget::Rectangle(CDeviceContext& dc, const RECT& rect)
{
    const CDrawState& state = dc.State();
    const CRect box = Normalized(ToDeviceCorners(dc.Mapping(), rect));
    const std::optional<CStroke> stroke = DeviceStroke(state);
    if (!stroke)  // without an edge the figure is one pixel smaller
        return FillWithBrush(state, { box.left, box.top, box.right - 1, box.bottom - 1 });
    if (box.IsRectEmpty())
        return true;
    if (stroke->m_nWidth <= 1 && (box.right - box.left == 1 || box.bottom - box.top == 1))
        return FillBox(state, box, { stroke->m_colour, false, {} });  // all of it is edge
    const RECT inside{ box.left + 1, box.top + 1, box.right - 1, box.bottom - 1 };
    const bool bFilled = FillWithBrush(state, inside);
    return FrameBox(state, box, *stroke) && bFilled;
}

bool CCairoTarget::StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                              const RECT& from)
{
    CPixelImage* pSource = SelectedImage(source);
    if (!pSource)
        return false;
    const CRect toCorners = ToDeviceCorners(dc.Mapping(), to);
    const CRect fromCorners = ToDeviceCorners(source.Mapping(), from);
    const CImageTransfer transfer{
        *pSource,
        ShiftInverted(fromCorners),
        ShiftInverted(toCorners),
        (toCorners.left > toCorners.right) != (fromCorners.left > fromCorners.right),
        (toCorners.top > toCorners.bottom) != (fromCorners.top > fromCorners.bottom),
        dc.State().m_crText,
        dc.State().m_crBk,
        source.State().m_crBk,
    };
    if (transfer.m_from.IsRectEmpty() || transfer.m_to.IsRectEmpty())
        return true;
    return PutImage(dc.State(), transfer);
}
