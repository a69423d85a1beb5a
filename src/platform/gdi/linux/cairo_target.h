// Drawing on what cairo shows: the rules that bitmaps and a host's context have in common. They
// turn the calls into boxes, lines and glyphs in device pixels.
#pragma once

#include "platform/gdi/linux/bitmap.h"
#include "platform/gdi/linux/draw_target.h"
#include "platform/gdi/linux/glyph_run.h"
#include "platform/gdi/linux/raster_op.h"

// A pen on the device.
struct CStroke
{
    int m_nWidth;  // pixels, at least 1
    int m_nStyle;  // PS_ without PS_NULL
    COLORREF m_colour;
};

// Pixels drawn and left out in turn, from a line's first pixel on; none for a line without gaps.
std::span<const int> DashPattern(int nStyle);

// Eight rows of an 8 by 8 pattern, the left pixel in the top bit; repeated from the device's
// origin.
using CHatchRows = std::span<const BYTE, 8>;
CHatchRows HatchRows(int nHatch);

// What is to be drawn in a box: one colour, or a pattern.
struct CFill
{
    COLORREF m_colour = 0;
    std::optional<int> m_hatch;         // HS_
    std::optional<COLORREF> m_between;  // behind the pattern; none: what was there
};

// A part of a bitmap that goes to a box, perhaps larger, smaller or mirrored. Its colours are what
// they become on the destination.
struct CPictureTransfer
{
    CPicture& m_source;
    RECT m_from;  // device pixels of the source, normalised; may reach beyond the bitmap
    RECT m_to;
    bool m_bMirrorX;
    bool m_bMirrorY;
    int m_nStretchMode;
    CRasterOp m_op;
    // Sources of one bit: what their black and white become on other depths. The opposite way, what
    // counts as white.
    COLORREF m_crText;
    COLORREF m_crBk;
    COLORREF m_crSourceBk;
};

class CCairoTarget : public CDrawTarget
{
public:
    bool PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight, DWORD nRop) final;
    bool ExtTextOut(CDeviceContext& dc, const CTextRun& run) final;
    bool LineTo(CDeviceContext& dc, POINT from, POINT to) final;
    bool Rectangle(CDeviceContext& dc, const RECT& rect) final;
    bool StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source, const RECT& from,
                    DWORD nRop) final;

protected:
    // Device pixels within DEVICE_LIMIT. Boxes are normalised and not empty. The state's clip is
    // yet to be applied. False if nothing could be drawn.
    virtual bool FillBox(const CDrawState& state, const RECT& box, const CFill& fill,
                         CRasterOp op) = 0;
    // The last point is not drawn, and is not the first.
    virtual bool DrawLine(const CDrawState& state, POINT from, POINT to, const CStroke& stroke) = 0;
    // The edge within the box, which is at least two pixels wide and high.
    virtual bool FrameBox(const CDrawState& state, const RECT& box, const CStroke& stroke) = 0;
    virtual bool ShowGlyphs(const CDeviceContext& dc, const CGlyphRun& run) = 0;
    virtual bool PutPicture(const CDrawState& state, const CPictureTransfer& transfer) = 0;

private:
    bool FillWithBrush(const CDrawState& state, const RECT& box, CRasterOp op);
};

// Sets colour and operator so that a fill does the same, or nearly: two of cairo's blend modes
// stand in for functions of bits. False for what it has nothing for, and for what changes nothing.
bool SetSource(cairo_t* pCairo, COLORREF colour, CRasterOp op);
