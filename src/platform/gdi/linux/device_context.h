// The class behind HDC: drawing state, mapping, and the target that draws.
#pragma once

#include "platform/gdi/linux/draw_target.h"

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

// Logical units to device pixels and back. The factors are single floats, and the places where
// they are rounded are part of the result: ties go one way or the other by the last bit.
class CMapping
{
public:
    int Mode() const { return m_nMode; }
    POINT WindowOrg() const { return m_ptWindow; }
    POINT ViewportOrg() const { return m_ptViewport; }
    SIZE WindowExt() const { return m_sizeWindow; }
    SIZE ViewportExt() const { return m_sizeViewport; }

    // False, and nothing changed, for a mode that does not exist.
    bool SetMode(int nMode, const CDeviceInfo& device);
    void SetWindowOrg(POINT point);
    void SetViewportOrg(POINT point);
    // Extents are fixed but in the two free modes, where 0 is refused.
    bool SetWindowExt(SIZE size, const CDeviceInfo& device);
    bool SetViewportExt(SIZE size, const CDeviceInfo& device);

    POINT ToDevice(POINT point) const;
    POINT ToLogical(POINT point) const;
    // A length on the device as a positive logical length.
    int ToLogicalWidth(int nPixels) const;
    int ToLogicalHeight(int nPixels) const;
    // A logical length in pixels, rounded; the direction of the axis plays no part.
    int ToDeviceWidth(int nUnits) const;
    int ToDeviceHeight(int nUnits) const;
    // Height and width of a font: cut, the vertical factor for both.
    LOGFONTA ToDeviceFont(const LOGFONTA& font) const;
    int ToDeviceFontLength(int nUnits) const;
    bool IsIdentityScale() const { return m_bIdentityScale; }

private:
    bool HasFreeExtents() const { return m_nMode == MM_ISOTROPIC || m_nMode == MM_ANISOTROPIC; }
    void FixAspect(const CDeviceInfo& device);
    void Update();

    int m_nMode = MM_TEXT;
    POINT m_ptWindow{ 0, 0 };
    POINT m_ptViewport{ 0, 0 };
    SIZE m_sizeWindow{ 1, 1 };
    SIZE m_sizeViewport{ 1, 1 };
    float m_fScaleX = 1, m_fScaleY = 1, m_fShiftX = 0, m_fShiftY = 0;  // to device
    float m_fInverseX = 1, m_fInverseY = 1, m_fInverseShiftX = 0, m_fInverseShiftY = 0;  // back
    bool m_bIdentityScale = true;
    bool m_bIdentity = true;  // no shift either
};

// What SaveDC keeps.
struct CDrawState
{
    CFontObject* m_pFont = nullptr;  // never null once the context is made
    CPenObject* m_pPen = nullptr;
    CBrushObject* m_pBrush = nullptr;
    CHandleObject* m_pPalette = nullptr;
    COLORREF m_crText = 0x000000;
    COLORREF m_crBk = 0xFFFFFF;
    int m_nBkMode = OPAQUE;
    UINT m_nTextAlign = TA_LEFT | TA_TOP;
    int m_nRop2 = R2_COPYPEN;
    int m_nStretchBltMode = BLACKONWHITE;
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
    // Its description in device units.
    LOGFONTA DeviceFont() const;
    // Runs change on the mapping: fonts have another size afterwards.
    template <class F>
    auto ChangeMapping(F change)
    {
        m_pRealized = nullptr;
        return change(m_state.m_mapping);
    }

    // The old object, or null if it cannot be selected here; tells the target.
    CHandleObject* Select(CHandleObject& object);
    CHandleObject* SelectPalette(CPaletteObject& palette);
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
