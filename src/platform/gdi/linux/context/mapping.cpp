// The mapping: extents and origins become factors and shifts of single precision.
#include "platform/gdi/linux/context/mapping.h"

#include "platform/base/rounding.h"

#include <cmath>

bool CMapping::SetMode(int nMode)
{
    if (nMode != MM_TEXT && nMode != MM_ANISOTROPIC)
        return false;
    m_nMode = nMode;
    if (nMode == MM_TEXT)
    {
        m_sizeWindow = { 1, 1 };
        m_sizeViewport = { 1, 1 };
    }
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

bool CMapping::SetWindowExt(SIZE size)
{
    if (m_nMode == MM_TEXT)
        return true;
    if (size.cx == 0 || size.cy == 0)
        return false;
    m_sizeWindow = size;
    Update();
    return true;
}

bool CMapping::SetViewportExt(SIZE size)
{
    if (m_nMode == MM_TEXT)
        return true;
    if (size.cx == 0 || size.cy == 0)
        return false;
    m_sizeViewport = size;
    Update();
    return true;
}

void CMapping::Update()
{
    // Factors are rounded to single precision, shifts only at the end: a product of rounded factors
    // would move far origins by a pixel.
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

// Cut where other lengths are rounded, and by the vertical factor for the width too, as GDI has it.
int CMapping::ToDeviceFontLength(int nUnits) const
{
    return m_bIdentityScale ? nUnits : CutToInt(nUnits * std::fabs(static_cast<double>(m_fScaleY)));
}
