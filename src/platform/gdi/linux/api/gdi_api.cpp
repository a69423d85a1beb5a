// The C functions for device contexts, their state and mapping, and for shapes. Each sets the state
// of the context, then tells the target.
#include "platform/base/geometry.h"
#include "platform/base/rounding.h"
#include "platform/gdi/linux/context/device_box.h"
#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/context/screen.h"

#include <utility>

namespace
{

template <class T>
void Put(T* pPlace, const T& value)
{
    if (pPlace)
        *pPlace = value;
}

// Sets one field of the state, and gives the value that it had.
template <class T>
T SetField(HDC hDC, T CDrawState::*pField, T value, void (CDrawTarget::*pTell)(CDeviceContext&, T))
{
    T old = std::exchange(hDC->ChangeState().*pField, value);
    if (CDrawTarget* pTarget = hDC->Target())
        (pTarget->*pTell)(*hDC, value);
    return old;
}

}  // namespace

HDC GetDC(HWND hWnd)
{
    return hWnd ? nullptr : GetScreenDC();
}

int ReleaseDC(HWND, HDC hDC)
{
    return hDC && ReleaseScreenDC(hDC) ? 1 : 0;
}

HDC CreateCompatibleDC(HDC hDC)
{
    return new CDeviceContext(OBJ_MEMDC, hDC ? hDC->Device() : ScreenDevice(), nullptr);
}

BOOL DeleteDC(HDC hDC)
{
    if (!hDC)
        return FALSE;
    if (!ReleaseScreenDC(hDC))
        delete hDC;
    return TRUE;
}

int SaveDC(HDC hDC)
{
    return hDC ? hDC->Save() : 0;
}

BOOL RestoreDC(HDC hDC, int nSaved)
{
    return hDC && hDC->Restore(nSaved);
}

int GetDeviceCaps(HDC hDC, int nIndex)
{
    if (!hDC)
        return 0;
    const CDeviceInfo& device = hDC->Device();
    switch (nIndex)
    {
        case HORZSIZE:
            return device.m_nWidthMm;
        case VERTSIZE:
            return device.m_nHeightMm;
        case HORZRES:
            return device.m_nWidth;
        case VERTRES:
            return device.m_nHeight;
        case BITSPIXEL:
            return device.m_nBitsPixel;
        case PLANES:
            return 1;
        case NUMCOLORS:
            return -1;  // without bound
        case LOGPIXELSX:
            return device.m_nDpiX;
        case LOGPIXELSY:
            return device.m_nDpiY;
        default:
            return 0;
    }
}

int SetMapMode(HDC hDC, int nMode)
{
    if (!hDC)
        return 0;
    int nOld = hDC->Mapping().Mode();
    if (!hDC->ChangeMapping([&](CMapping& map) { return map.SetMode(nMode); }))
        return 0;
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->MapModeSet(*hDC, nMode);
    return nOld;
}

BOOL SetWindowOrgEx(HDC hDC, int x, int y, POINT* pOld)
{
    if (!hDC)
        return FALSE;
    Put(pOld, hDC->Mapping().WindowOrg());
    hDC->ChangeMapping([&](CMapping& map) { map.SetWindowOrg({ x, y }); });
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->WindowOrgSet(*hDC, { x, y });
    return TRUE;
}

BOOL SetViewportOrgEx(HDC hDC, int x, int y, POINT* pOld)
{
    if (!hDC)
        return FALSE;
    Put(pOld, hDC->Mapping().ViewportOrg());
    hDC->ChangeMapping([&](CMapping& map) { map.SetViewportOrg({ x, y }); });
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->ViewportOrgSet(*hDC, { x, y });
    return TRUE;
}

BOOL SetWindowExtEx(HDC hDC, int cx, int cy, SIZE* pOld)
{
    if (!hDC)
        return FALSE;
    Put(pOld, hDC->Mapping().WindowExt());
    SIZE size{ cx, cy };
    if (!hDC->ChangeMapping([&](CMapping& map) { return map.SetWindowExt(size); }))
        return FALSE;
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->WindowExtSet(*hDC, size);
    return TRUE;
}

BOOL SetViewportExtEx(HDC hDC, int cx, int cy, SIZE* pOld)
{
    if (!hDC)
        return FALSE;
    Put(pOld, hDC->Mapping().ViewportExt());
    SIZE size{ cx, cy };
    if (!hDC->ChangeMapping([&](CMapping& map) { return map.SetViewportExt(size); }))
        return FALSE;
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->ViewportExtSet(*hDC, size);
    return TRUE;
}

BOOL LPtoDP(HDC hDC, POINT* pPoints, int nCount)
{
    if (!hDC || (!pPoints && nCount > 0))
        return FALSE;
    for (int i = 0; i < nCount; ++i)
        pPoints[i] = hDC->Mapping().ToDevice(pPoints[i]);
    return TRUE;
}

BOOL DPtoLP(HDC hDC, POINT* pPoints, int nCount)
{
    if (!hDC || (!pPoints && nCount > 0))
        return FALSE;
    for (int i = 0; i < nCount; ++i)
        pPoints[i] = hDC->Mapping().ToLogical(pPoints[i]);
    return TRUE;
}

int SetBkMode(HDC hDC, int nMode)
{
    if (!hDC || (nMode != TRANSPARENT && nMode != OPAQUE))
        return 0;
    return SetField(hDC, &CDrawState::m_nBkMode, nMode, &CDrawTarget::BkModeSet);
}

int GetBkMode(HDC hDC)
{
    return hDC ? hDC->State().m_nBkMode : 0;
}

COLORREF SetBkColor(HDC hDC, COLORREF colour)
{
    return hDC ? SetField(hDC, &CDrawState::m_crBk, colour, &CDrawTarget::BkColorSet) : CLR_INVALID;
}

COLORREF GetBkColor(HDC hDC)
{
    return hDC ? hDC->State().m_crBk : CLR_INVALID;
}

COLORREF SetTextColor(HDC hDC, COLORREF colour)
{
    return hDC ? SetField(hDC, &CDrawState::m_crText, colour, &CDrawTarget::TextColorSet)
               : CLR_INVALID;
}

COLORREF GetTextColor(HDC hDC)
{
    return hDC ? hDC->State().m_crText : CLR_INVALID;
}

UINT SetTextAlign(HDC hDC, UINT nAlign)
{
    return hDC && (nAlign == TA_TOP || nAlign == TA_BASELINE)
               ? SetField(hDC, &CDrawState::m_nTextAlign, nAlign, &CDrawTarget::TextAlignSet)
               : GDI_ERROR;
}

namespace
{

// Device pixels, left of right and top above bottom.
CRect ToDeviceRect(HDC hDC, const RECT& rect)
{
    POINT a = hDC->Mapping().ToDevice({ rect.left, rect.top });
    POINT b = hDC->Mapping().ToDevice({ rect.right, rect.bottom });
    return Normalized({ a.x, a.y, b.x, b.y });
}

int RegionKind(const CRect& rect)
{
    return rect.IsRectEmpty() ? NULLREGION : SIMPLEREGION;
}

}  // namespace

int IntersectClipRect(HDC hDC, int nLeft, int nTop, int nRight, int nBottom)
{
    if (!hDC)
        return ERROR_REGION;
    RECT rect{ nLeft, nTop, nRight, nBottom };
    CRect clip = ToDeviceRect(hDC, rect);
    auto& state = hDC->ChangeState();
    if (state.m_clip)
        clip = IntersectBoxes(clip, *state.m_clip);
    if (RegionKind(clip) == NULLREGION)
        clip.SetRectEmpty();
    state.m_clip = clip;
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->ClipRectIntersected(*hDC, rect);
    return RegionKind(clip);
}

int FillRect(HDC hDC, const RECT* pRect, HBRUSH hBrush)
{
    if (!hDC || !pRect)
        return 0;
    // A small number in the place of a handle is a system colour's, plus one.
    auto nNumber = reinterpret_cast<std::uintptr_t>(hBrush);
    if (nNumber >= 1 && nNumber <= COLOR_BTNHIGHLIGHT + 1)
        hBrush = GetSysColorBrush(static_cast<int>(nNumber) - 1);
    CBrushObject* pBrush = BrushFromHandle(hBrush);
    if (!pBrush)
        return 0;
    CBrushObject* pOld = hDC->State().m_pBrush;
    pOld->AddSelection();  // keeps it from its end if it was deleted while selected
    hDC->Select(*pBrush);
    CDrawTarget* pTarget = hDC->Target();
    const bool bDone = !pTarget || pTarget->PatBlt(*hDC, pRect->left, pRect->top,
                                                   WrapSub(pRect->right, pRect->left),
                                                   WrapSub(pRect->bottom, pRect->top));
    hDC->Select(*pOld);
    pOld->RemoveSelection();
    return bDone;
}

BOOL MoveToEx(HDC hDC, int x, int y, POINT* pOld)
{
    if (!hDC)
        return FALSE;
    Put(pOld, std::exchange(hDC->ChangeState().m_ptCurrent, POINT{ x, y }));
    if (CDrawTarget* pTarget = hDC->Target())
        pTarget->MovedTo(*hDC, { x, y });
    return TRUE;
}

BOOL LineTo(HDC hDC, int x, int y)
{
    if (!hDC)
        return FALSE;
    CDrawTarget* pTarget = hDC->Target();
    bool bDone = !pTarget || pTarget->LineTo(*hDC, hDC->State().m_ptCurrent, { x, y });
    hDC->ChangeState().m_ptCurrent = { x, y };
    return bDone;
}

BOOL Rectangle(HDC hDC, int nLeft, int nTop, int nRight, int nBottom)
{
    if (!hDC)
        return FALSE;
    CDrawTarget* pTarget = hDC->Target();
    return !pTarget || pTarget->Rectangle(*hDC, { nLeft, nTop, nRight, nBottom });
}
