// Making a device context over a host's cairo context.
#include "platform/gdi/cairo_dc.h"

#include "platform/gdi/linux/cairo/host_target.h"
#include "platform/gdi/linux/context/device_context.h"

#include <cmath>

IMPLEMENT_DYNAMIC(CCairoDC, CDC)

namespace
{

constexpr double s_fMmPerInch = 25.4;

// A surface without bounds (a recording) gets the size of the screen: its clip is as large as
// cairo's numbers.
CDeviceInfo DeviceOf(cairo_t* pCairo, int nDpiX, int nDpiY)
{
    CDeviceInfo device = ScreenDevice();
    double fLeft = 0, fTop = 0, fRight = 0, fBottom = 0;
    cairo_clip_extents(pCairo, &fLeft, &fTop, &fRight, &fBottom);
    constexpr double fBound = 1 << 22;
    if (fRight >= 1 && fRight < fBound && fBottom >= 1 && fBottom < fBound)
    {
        device.m_nWidth = static_cast<int>(std::ceil(fRight));
        device.m_nHeight = static_cast<int>(std::ceil(fBottom));
    }
    device.m_nDpiX = nDpiX;
    device.m_nDpiY = nDpiY;
    device.m_nWidthMm = static_cast<int>(std::lround(device.m_nWidth * s_fMmPerInch / nDpiX));
    device.m_nHeightMm = static_cast<int>(std::lround(device.m_nHeight * s_fMmPerInch / nDpiY));
    return device;
}

}  // namespace

CCairoDC::CCairoDC(cairo_t* pCairo, int nDpiX, int nDpiY)
{
    if (!pCairo)
        return;
    std::unique_ptr<CDrawTarget> pTarget = MakeHostTarget(pCairo);
    if (!pTarget)
        return;
    const CDeviceInfo& screen = ScreenDevice();
    const CDeviceInfo device =
        DeviceOf(pCairo, nDpiX > 0 ? nDpiX : screen.m_nDpiX, nDpiY > 0 ? nDpiY : screen.m_nDpiY);
    Attach(new CDeviceContext(OBJ_DC, device, std::move(pTarget)));
}
