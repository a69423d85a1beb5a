// Logical units and device pixels.
#pragma once

#include "platform/gdi/gdi.h"

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

    // MM_TEXT or MM_ANISOTROPIC; false, and nothing changed, for any other.
    bool SetMode(int nMode);
    void SetWindowOrg(POINT point);
    void SetViewportOrg(POINT point);
    // Extents are fixed in MM_TEXT. In MM_ANISOTROPIC they are free, and 0 is refused.
    bool SetWindowExt(SIZE size);
    bool SetViewportExt(SIZE size);

    POINT ToDevice(POINT point) const;
    POINT ToLogical(POINT point) const;
    // A length on the device as a positive logical length.
    int ToLogicalWidth(int nPixels) const;
    int ToLogicalHeight(int nPixels) const;
    // A logical length in pixels, rounded; the direction of the axis plays no part.
    int ToDeviceWidth(int nUnits) const;
    // Height or width of a font: cut, the vertical factor for both.
    int ToDeviceFontLength(int nUnits) const;

private:
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
