// The class behind HDC: drawing state, mapping, and the target that draws.
#pragma once

#include "platform/gdi/linux/context/draw_target.h"
#include "platform/gdi/linux/context/mapping.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

class CRealizedFont;

// What GetDeviceCaps tells.
struct CDeviceInfo
{
    int m_nWidth;  // pixels
    int m_nHeight;
    int m_nWidthMm;
    int m_nHeightMm;
    int m_nDpiX;
    int m_nDpiY;
    int m_nBitsPixel;
};

// The virtual screen, which stands where there is no display.
const CDeviceInfo& ScreenDevice();

// What SaveDC keeps.
struct CDrawState
{
    CFontObject* m_pFont = nullptr;  // never null once the context is made
    CPenObject* m_pPen = nullptr;
    CBrushObject* m_pBrush = nullptr;
    COLORREF m_crText = 0x000000;
    COLORREF m_crBk = 0xFFFFFF;
    int m_nBkMode = OPAQUE;
    UINT m_nTextAlign = TA_LEFT | TA_TOP;
    POINT m_ptCurrent{ 0, 0 };  // logical
    CMapping m_mapping;
    std::optional<RECT> m_clip;  // device pixels; none: everything
};

class HDC__
{
public:
    // nType: OBJ_DC, OBJ_MEMDC or OBJ_ENHMETADC. pTarget is owned; null measures only.
    HDC__(UINT nType, const CDeviceInfo& device, std::unique_ptr<CDrawTarget> pTarget);
    ~HDC__();
    HDC__(const HDC__&) = delete;
    HDC__& operator=(const HDC__&) = delete;

    UINT Type() const { return m_nType; }
    const CDeviceInfo& Device() const { return m_device; }
    CDrawTarget* Target() const { return m_pTarget.get(); }
    const CDrawState& State() const { return m_state; }
    const CMapping& Mapping() const { return m_state.m_mapping; }
    CDrawState& ChangeState() { return m_state; }
    // The bitmap of a memory device context; null in others.
    CHandleObject* Bitmap() const { return m_pBitmap; }

    // The font that is selected, at the size that the mapping gives it. Valid until the next
    // call of a drawing function.
    const CRealizedFont& Font() const;
    // Runs change on the mapping: fonts have another size afterwards.
    template <class F>
    auto ChangeMapping(F change)
    {
        m_pRealized = nullptr;
        return change(m_state.m_mapping);
    }

    // The old object, or null if it cannot be selected here; tells the target.
    CHandleObject* Select(CHandleObject& object);
    int Save();
    bool Restore(int nSaved);
    // Back to the state of a new one; for device contexts that are used again.
    void Reset();

    // Advance of each byte in logical units as a record holds them: the caller's, or the extent
    // of each character by itself. out is as long as the text.
    void LogicalAdvances(const CTextRun& run, std::span<INT> out) const;
    // Pixel of the left end of the base line, alignment taken into account.
    POINT TextOrigin(const CTextRun& run) const;
    // Width of the whole text in pixels.
    int TextWidth(const CTextRun& run) const;

private:
    CHandleObject* SelectBitmap(CHandleObject& bitmap);
    void HoldObjects(const CDrawState& state);
    void ReleaseObjects(const CDrawState& state);

    UINT m_nType;
    CDeviceInfo m_device;
    std::unique_ptr<CDrawTarget> m_pTarget;
    CHandleObject* m_pBitmap = nullptr;  // not owned, counted
    CDrawState m_state;
    std::vector<CDrawState> m_saved;
    mutable const CRealizedFont* m_pRealized = nullptr;
    mutable unsigned m_nFontGeneration = 0;
};
