// Mapping modes: extents and origins become factors and shifts of single precision.
#include "platform/gdi/linux/device_context.h"
#include "platform/gdi/linux/rounding.h"

#include <cmath>

namespace
{

// Logical units in a number of inches or millimetres, for modes that have a fixed unit and a y
// axis that points up.
struct CFixedMode
{
    int m_nMode;
    int m_nUnits;   // this many logical units ...
    int m_nTenths;  // ... are as long as this many tenths of a millimetre
};

constexpr CFixedMode s_aFixedModes[] = {
    { MM_LOMETRIC, 1, 1 },        //
    { MM_HIMETRIC, 10, 1 },       //
    { MM_LOENGLISH, 100, 254 },   //
    { MM_HIENGLISH, 1000, 254 },  //
    { MM_TWIPS, 1440, 254 },      //
    { MM_ISOTROPIC, 1, 1 },       // starts like MM_LOMETRIC
};

int UnitsInMm(const CFixedMode& mode, int nMm)
{
    return SaturateToInt(std::llround(nMm * 10.0 * mode.m_nUnits / mode.m_nTenths));
}

}  // namespace

bool CMapping::SetMode(int nMode, const CDeviceInfo& device)
{
    if (nMode < MM_TEXT || nMode > MM_ANISOTROPIC)
        return false;
    if (nMode == m_nMode && HasFreeExtents())
        return true;
    m_nMode = nMode;
    if (nMode == MM_TEXT)
    {
        m_sizeWindow = { 1, 1 };
        m_sizeViewport = { 1, 1 };
    }
    for (const CFixedMode& mode : s_aFixedModes)
    {
        if (mode.m_nMode != nMode)
            continue;
        m_sizeWindow = { UnitsInMm(mode, device.m_nWidthMm), UnitsInMm(mode, device.m_nHeightMm) };
        m_sizeViewport = { device.m_nWidth, -device.m_nHeight };
    }
    if (nMode == MM_ISOTROPIC)
        FixAspect(device);
    Update();
    return true;
}

void CMapping::SetWindowOrg(POINT point)
{
    m_ptWindow = point;
    Update();
}

void CMapping::SetViewportOrg(POINT point)
{
    m_ptViewport = point;
    Update();
}

bool CMapping::SetWindowExt(SIZE size, const CDeviceInfo& device)
{
    if (!HasFreeExtents())
        return true;
    if (size.cx == 0 || size.cy == 0)
        return false;
    m_sizeWindow = size;
    if (m_nMode == MM_ISOTROPIC)
        FixAspect(device);
    Update();
    return true;
}

bool CMapping::SetViewportExt(SIZE size, const CDeviceInfo& device)
{
    if (!HasFreeExtents())
        return true;
    if (size.cx == 0 || size.cy == 0)
        return false;
    m_sizeViewport = size;
    if (m_nMode == MM_ISOTROPIC)
        FixAspect(device);
    Update();
    return true;
}

namespace
{

// Shrinks an extent by a factor, but never to nothing.
LONG Shrink(LONG nExtent, double fFactor)
{
    LONG nShrunk = RoundToInt(nExtent * fFactor);
    return nShrunk != 0 ? nShrunk : (nExtent < 0 ? -1 : 1);
}

}  // namespace

// Makes a unit as long on both axes by shrinking one of the viewport's extents.
void CMapping::FixAspect(const CDeviceInfo& device)
{
    double fUnitX = std::fabs(static_cast<double>(m_sizeViewport.cx) * device.m_nWidthMm /
                              (static_cast<double>(device.m_nWidth) * m_sizeWindow.cx));
    double fUnitY = std::fabs(static_cast<double>(m_sizeViewport.cy) * device.m_nHeightMm /
                              (static_cast<double>(device.m_nHeight) * m_sizeWindow.cy));
    if (fUnitX > fUnitY)
        m_sizeViewport.cx = Shrink(m_sizeViewport.cx, fUnitY / fUnitX);
    else
        m_sizeViewport.cy = Shrink(m_sizeViewport.cy, fUnitX / fUnitY);
}

void CMapping::Update()
{
    double fScaleX = static_cast<double>(m_sizeViewport.cx) / m_sizeWindow.cx;
    double fScaleY = static_cast<double>(m_sizeViewport.cy) / m_sizeWindow.cy;
    m_fScaleX = static_cast<float>(fScaleX);
    m_fScaleY = static_cast<float>(fScaleY);
    m_fShiftX = static_cast<float>(m_ptViewport.x - fScaleX * m_ptWindow.x);
    m_fShiftY = static_cast<float>(m_ptViewport.y - fScaleY * m_ptWindow.y);

    // The inverse goes by the determinant, in single precision; that is where its last bit is from.
    float fDeterminant = m_fScaleX * m_fScaleY;
    if (std::isnormal(fDeterminant))
    {
        m_fInverseX = static_cast<float>(m_fScaleY / static_cast<double>(fDeterminant));
        m_fInverseY = static_cast<float>(m_fScaleX / static_cast<double>(fDeterminant));
    }
    else  // extents so far apart that the product has no bits left
    {
        m_fInverseX = static_cast<float>(1 / fScaleX);
        m_fInverseY = static_cast<float>(1 / fScaleY);
    }
    m_fInverseShiftX = -m_fShiftX * m_fInverseX;
    m_fInverseShiftY = -m_fShiftY * m_fInverseY;
    m_bIdentityScale = m_fScaleX == 1 && m_fScaleY == 1;
    m_bIdentity = m_bIdentityScale && m_fShiftX == 0 && m_fShiftY == 0;
}

POINT CMapping::ToDevice(POINT point) const
{
    if (m_bIdentity)
        return point;
    return { RoundToInt(point.x * static_cast<double>(m_fScaleX) + m_fShiftX),
             RoundToInt(point.y * static_cast<double>(m_fScaleY) + m_fShiftY) };
}

POINT CMapping::ToLogical(POINT point) const
{
    if (m_bIdentity)
        return point;
    return { RoundToInt(point.x * static_cast<double>(m_fInverseX) + m_fInverseShiftX),
             RoundToInt(point.y * static_cast<double>(m_fInverseY) + m_fInverseShiftY) };
}

namespace
{

int ScaleLength(int nLength, float fFactor)
{
    return RoundToInt(std::fabs(nLength * static_cast<double>(fFactor)));
}

}  // namespace

int CMapping::ToLogicalWidth(int nPixels) const
{
    return m_bIdentityScale ? nPixels : ScaleLength(nPixels, m_fInverseX);
}

int CMapping::ToLogicalHeight(int nPixels) const
{
    return m_bIdentityScale ? nPixels : ScaleLength(nPixels, m_fInverseY);
}

int CMapping::ToDeviceWidth(int nUnits) const
{
    return RoundToInt(nUnits * std::fabs(static_cast<double>(m_fScaleX)));
}

int CMapping::ToDeviceHeight(int nUnits) const
{
    return RoundToInt(nUnits * std::fabs(static_cast<double>(m_fScaleY)));
}

int CMapping::ToDeviceFontLength(int nUnits) const
{
    return m_bIdentityScale ? nUnits : CutToInt(nUnits * std::fabs(static_cast<double>(m_fScaleY)));
}

LOGFONTA CMapping::ToDeviceFont(const LOGFONTA& font) const
{
    LOGFONTA device = font;
    device.lfHeight = ToDeviceFontLength(font.lfHeight);
    device.lfWidth = ToDeviceFontLength(font.lfWidth);
    return device;
}
