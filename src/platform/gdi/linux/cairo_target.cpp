// From calls in logical units to boxes, lines and glyphs in device pixels.
#include "platform/gdi/linux/cairo_target.h"

namespace
{

RECT ToDeviceCorners(const CMapping& mapping, const RECT& rect)
{
    const POINT a = mapping.ToDevice({ rect.left, rect.top });
    const POINT b = mapping.ToDevice({ rect.right, rect.bottom });
    return LimitBox({ a.x, a.y, b.x, b.y });
}

POINT LimitPoint(POINT point)
{
    return { std::clamp(point.x, -DEVICE_LIMIT, DEVICE_LIMIT),
             std::clamp(point.y, -DEVICE_LIMIT, DEVICE_LIMIT) };
}

// None for a pen that does not draw.
std::optional<CStroke> DeviceStroke(const CDrawState& state)
{
    const LOGPEN& pen = state.m_pPen->LogPen();
    if (pen.lopnStyle == PS_NULL)
        return std::nullopt;
    const int nWidth = std::clamp(state.m_mapping.ToDeviceWidth(pen.lopnWidth.x), 1, DEVICE_LIMIT);
    return CStroke{ nWidth, static_cast<int>(pen.lopnStyle), pen.lopnColor };
}

RECT Inset(const RECT& box, int n)
{
    return { box.left + n, box.top + n, box.right - n, box.bottom - n };
}

}  // namespace

CHatchRows HatchRows(int nHatch)
{
    static constexpr BYTE s_aRows[][8] = {
        { 0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00 },  // HS_HORIZONTAL
        { 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08 },  // HS_VERTICAL
        { 0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01 },  // HS_FDIAGONAL
        { 0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80 },  // HS_BDIAGONAL
        { 0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08 },  // HS_CROSS
        { 0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81 },  // HS_DIAGCROSS
    };
    return CHatchRows(s_aRows[std::clamp(nHatch, 0, 5)]);
}

std::span<const int> DashPattern(int nStyle)
{
    static constexpr int s_anDash[] = { 18, 6 };
    static constexpr int s_anDot[] = { 3, 3 };
    static constexpr int s_anDashDot[] = { 9, 6, 3, 6 };
    static constexpr int s_anDashDotDot[] = { 9, 3, 3, 3, 3, 3 };
    switch (nStyle)
    {
        case PS_DASH:
            return s_anDash;
        case PS_DOT:
            return s_anDot;
        case PS_DASHDOT:
            return s_anDashDot;
        case PS_DASHDOTDOT:
            return s_anDashDotDot;
        default:
            return {};
    }
}

bool SetSource(cairo_t* pCairo, COLORREF colour, CRasterOp op)
{
    cairo_operator_t nOperator = CAIRO_OPERATOR_OVER;
    switch (op)
    {
        case OP_COPY:
            break;
        case OP_COPY_INVERTED:
            colour = ~colour;
            break;
        case OP_BLACK:
            colour = 0x000000;
            break;
        case OP_WHITE:
            colour = 0xFFFFFF;
            break;
        case OP_NOT:
            colour = 0xFFFFFF;
            [[fallthrough]];
        case OP_XOR:
            nOperator = CAIRO_OPERATOR_DIFFERENCE;
            break;
        case OP_AND:
            nOperator = CAIRO_OPERATOR_MULTIPLY;
            break;
        case OP_OR:
            nOperator = CAIRO_OPERATOR_SCREEN;
            break;
        default:
            return false;
    }
    cairo_set_operator(pCairo, nOperator);
    cairo_set_source_rgb(pCairo, GetRValue(colour) / 255.0, GetGValue(colour) / 255.0,
                         GetBValue(colour) / 255.0);
    return true;
}

bool CCairoTarget::FillWithBrush(const CDrawState& state, const RECT& box, CRasterOp op)
{
    const LOGBRUSH& brush = state.m_pBrush->LogBrush();
    if (brush.lbStyle == BS_NULL || IsEmptyBox(box) || op == OP_NOP)
        return true;
    CFill fill{ brush.lbColor, std::nullopt, std::nullopt };
    if (brush.lbStyle == BS_HATCHED)
    {
        fill.m_hatch = static_cast<int>(brush.lbHatch);
        if (state.m_nBkMode == OPAQUE)
            fill.m_between = state.m_crBk;
    }
    return FillBox(state, box, fill, op);
}

bool CCairoTarget::PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight, DWORD nRop)
{
    const std::optional<CRasterOp> op = PatternOp(nRop);
    if (!op)
        return false;
    const RECT rect{ x, y, SaturateToInt(std::int64_t{ x } + nWidth),
                     SaturateToInt(std::int64_t{ y } + nHeight) };
    const RECT box = ShiftInverted(ToDeviceCorners(dc.Mapping(), rect));
    if (UsesNew(*op))
        return FillWithBrush(dc.State(), box, *op);
    return IsEmptyBox(box) || *op == OP_NOP || FillBox(dc.State(), box, {}, *op);
}

bool CCairoTarget::ExtTextOut(CDeviceContext& dc, const CTextRun& run)
{
    const CDrawState& state = dc.State();
    std::optional<RECT> rect;
    if (run.m_pRect)
        rect = SwapInverted(ToDeviceCorners(dc.Mapping(), *run.m_pRect));
    bool bDone = true;
    if (rect && (run.m_nOptions & ETO_OPAQUE) && !IsEmptyBox(*rect))
        bDone = FillBox(state, *rect, { state.m_crBk, {}, {} }, OP_COPY);
    if (run.m_text.empty())
        return bDone;

    const CRealizedFont& font = dc.Font();
    CGlyphRun glyphs{ font, run.m_text, LimitPoint(dc.TextOrigin(run)), run.m_pDx, {} };
    if (run.m_nOptions & ETO_CLIPPED)
        glyphs.m_clip = rect;
    if (state.m_nBkMode == OPAQUE)
    {
        const auto [x, y] = glyphs.m_origin;
        RECT cell{ x, y - font.Ascent(), SaturateToInt(std::int64_t{ x } + dc.TextWidth(run)),
                   y + font.Descent() };
        cell = SwapInverted(LimitBox(cell));
        if (glyphs.m_clip)
            cell = IntersectBoxes(cell, *glyphs.m_clip);
        if (!IsEmptyBox(cell))
            bDone = FillBox(state, cell, { state.m_crBk, {}, {} }, OP_COPY) && bDone;
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
    const CRasterOp op = OpFromRop2(state.m_nRop2);
    RECT box = SwapInverted(ToDeviceCorners(dc.Mapping(), rect));
    const std::optional<CStroke> stroke = DeviceStroke(state);
    if (!stroke)  // without an edge the figure is one pixel smaller
        return FillWithBrush(state, { box.left, box.top, box.right - 1, box.bottom - 1 }, op);
    if (stroke->m_nStyle == PS_INSIDEFRAME)
        box = Inset(box, stroke->m_nWidth / 2);
    if (IsEmptyBox(box))
        return true;
    if (stroke->m_nWidth <= 1 && (box.right - box.left == 1 || box.bottom - box.top == 1))
        return FillBox(state, box, { stroke->m_colour, {}, {} }, op);  // all of it is edge
    const bool bFilled = FillWithBrush(state, Inset(box, 1), op);
    return FrameBox(state, box, *stroke) && bFilled;
}

bool CCairoTarget::StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                              const RECT& from, DWORD nRop)
{
    const std::optional<CRasterOp> op = SourceOp(nRop);
    CPicture* pSource = SelectedPicture(source);
    if (!op || !pSource)
        return false;
    const RECT toCorners = ToDeviceCorners(dc.Mapping(), to);
    const RECT fromCorners = ToDeviceCorners(source.Mapping(), from);
    const CPictureTransfer transfer{
        *pSource,
        ShiftInverted(fromCorners),
        ShiftInverted(toCorners),
        (toCorners.left > toCorners.right) != (fromCorners.left > fromCorners.right),
        (toCorners.top > toCorners.bottom) != (fromCorners.top > fromCorners.bottom),
        dc.State().m_nStretchBltMode,
        *op,
        dc.State().m_crText,
        dc.State().m_crBk,
        source.State().m_crBk,
    };
    if (IsEmptyBox(transfer.m_from) || IsEmptyBox(transfer.m_to) || *op == OP_NOP)
        return true;
    return PutPicture(dc.State(), transfer);
}
