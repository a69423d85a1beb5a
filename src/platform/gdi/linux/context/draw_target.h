// Where a device context sends what is drawn on it: an image, or the records of a metafile.
// Calls arrive at the level at which they were made, in logical units.
#pragma once

#include "platform/gdi/linux/context/gdi_object.h"

#include <memory>
#include <span>

class HDC__;
using CDeviceContext = HDC__;

// One call of ExtTextOut. With no text it is the fill of the rectangle alone.
struct CTextRun
{
    POINT m_ptReference{};          // as given: what the text alignment refers to
    UINT m_nOptions = 0;            // ETO_OPAQUE, ETO_CLIPPED
    const RECT* m_pRect = nullptr;  // null when the call had none
    std::span<const BYTE> m_text;   // bytes; CRealizedFont tells their characters and glyphs
    const INT* m_pDx = nullptr;     // the caller's advances, one for each byte; null: the font's
};

// State stands in the device context, and is up to date when a call arrives: a target that draws at
// once overrides the verbs only; one that records overrides the rest, too. Every call that a
// caller makes is passed on, also one that sets what was set before.
class CDrawTarget
{
public:
    virtual ~CDrawTarget() = default;

    // Font, pen or brush was selected; it may be the one that was selected before.
    virtual void ObjectSelected(CDeviceContext&, const CHandleObject&) {}
    virtual void TextColorSet(CDeviceContext&, COLORREF) {}
    virtual void BkColorSet(CDeviceContext&, COLORREF) {}
    virtual void BkModeSet(CDeviceContext&, int) {}
    virtual void TextAlignSet(CDeviceContext&, UINT) {}
    virtual void MapModeSet(CDeviceContext&, int) {}
    virtual void WindowOrgSet(CDeviceContext&, POINT) {}
    virtual void WindowExtSet(CDeviceContext&, SIZE) {}
    virtual void ViewportOrgSet(CDeviceContext&, POINT) {}
    virtual void ViewportExtSet(CDeviceContext&, SIZE) {}
    virtual void StateSaved(CDeviceContext&) {}
    // nSaved as RestoreDC takes it: negative is relative.
    virtual void StateRestored(CDeviceContext&, int) {}
    virtual void ClipRectIntersected(CDeviceContext&, const RECT&) {}
    virtual void MovedTo(CDeviceContext&, POINT) {}

    // The selected brush over a rectangle; extents may be negative.
    virtual bool PatBlt(CDeviceContext& dc, int x, int y, int nWidth, int nHeight) = 0;
    virtual bool ExtTextOut(CDeviceContext& dc, const CTextRun& run) = 0;
    // Selected pen; the first point is drawn, the last is not.
    virtual bool LineTo(CDeviceContext& dc, POINT from, POINT to) = 0;
    // Selected pen and brush; not normalised.
    virtual bool Rectangle(CDeviceContext& dc, const RECT& rect) = 0;
    // Copies; the source may be the same device context.
    virtual bool StretchBlt(CDeviceContext& dc, const RECT& to, CDeviceContext& source,
                            const RECT& from) = 0;
    virtual bool SetPixel(CDeviceContext&, POINT, COLORREF) { return false; }
    // CLR_INVALID where nothing can be read.
    virtual COLORREF GetPixel(CDeviceContext&, POINT) { return CLR_INVALID; }
    // Only a metafile keeps comments.
    virtual bool Comment(CDeviceContext&, std::span<const BYTE>) { return false; }
};

// What draws on a memory bitmap (type OBJ_BITMAP). The bitmap outlives the target. Defined with
// the bitmaps (cairo_target.cpp); null if memory is short.
std::unique_ptr<CDrawTarget> MakeBitmapTarget(CHandleObject& bitmap);

// The bitmap of 1 by 1 with one bit that a new memory device context holds; one for all of them,
// permanent. Defined in bitmap.cpp.
CHandleObject& DefaultBitmap();
