// Drawing on what cairo shows: the rules that bitmaps and a host's context have in common. They
// turn the calls into boxes, lines and glyphs in device pixels.
#pragma once

#include "platform/gdi/linux/bitmaps/stretch.h"
#include "platform/gdi/linux/cairo/glyph_run.h"
#include "platform/gdi/linux/context/device_box.h"
#include "platform/gdi/linux/context/draw_target.h"
#include "platform/gdi/native_gdi.h"

#include <optional>

// A pen on the device.
struct CStroke
{
    int m_nWidth;  // pixels, at least 1
    COLORREF m_colour;
};

// A hatch is fixed to the device: lines of one pixel that rise to the right.
constexpr bool IsHatchPixel(int x, int y)
{
    return ((x + y) & (HATCH_STEP - 1)) == HATCH_STEP - 1;
}

// What is to be drawn in a box: one colour, or a pattern.
struct CFill
{
    COLORREF m_colour = 0;
    bool m_bHatched = false;            // HS_BDIAGONAL, see IsHatchPixel
    std::optional<COLORREF> m_between;  // behind the hatch; none: what was there
};

class CCairoTarget : public CDrawTarget
{
public:
    bool PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight) final;
    bool ExtTextOut(CDeviceContext& dc, const CTextRun& run) final;
    bool LineTo(CDeviceContext& dc, POINT from, POINT to) final;
    bool Rectangle(CDeviceContext& dc, const RECT& rect) final;
    bool StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                    const RECT& from) final;

protected:
    // Device pixels within DEVICE_LIMIT. Boxes are normalised and not empty. The state's clip is
    // yet to be applied. False if nothing could be drawn.
    virtual bool FillBox(const CDrawState& state, const RECT& box, const CFill& fill) = 0;
    // The last point is not drawn, and is not the first.
    virtual bool DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke) = 0;
    // The edge within the box, which is at least two pixels wide and high.
    virtual bool FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke) = 0;
    virtual bool ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run) = 0;
    virtual bool PutImage(const CDrawState& state, const CImageTransfer& transfer) = 0;

private:
    bool FillWithBrush(const CDrawState& state, const CRect& box);
};

// Sets the colour that the next fill or stroke has.
void SetSource(cairo_t* pCairo, COLORREF colour);
