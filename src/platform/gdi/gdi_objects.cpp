// Calls of the system on the handles, and the wrappers of handles that others made.
#include "platform/gdi/gdi_objects.h"

#include "platform/base/system.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/handle_map.h"
#include "platform/gdi/native_gdi.h"

#include <algorithm>
#include <cstdint>
#include <limits>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CPalette, CGdiObject)

using CGdiObjectMap = CHandleMap<CGdiObject>;

CGdiObject::~CGdiObject()
{
    if (!m_bTemporary)
        DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    ASSERT(!m_hObject);
    if (!hObject)
        return FALSE;
    m_hObject = hObject;
    CGdiObjectMap::Insert(this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    if (m_hObject)
        CGdiObjectMap::Remove(this);
    HGDIOBJ hObject = m_hObject;
    m_hObject = nullptr;
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    return m_hObject && ::DeleteObject(Detach());
}

namespace
{

template <class T>
T* WrapperOf(HGDIOBJ hObject)
{
    if (!hObject)
        return nullptr;
    CGdiObject* pObject = CGdiObjectMap::Find(hObject);
    if (pObject && pObject->IsKindOf(T::GetThisClass()))
        return static_cast<T*>(pObject);
    return CGdiObjectMap::MakeTemporary<T>(hObject, static_cast<HGDIOBJ T::*>(&T::m_hObject));
}

}  // namespace

CGdiObject* CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return WrapperOf<CGdiObject>(hObject);
}
CFont* CFont::FromHandle(HFONT hFont)
{
    return WrapperOf<CFont>(hFont);
}
CPen* CPen::FromHandle(HPEN hPen)
{
    return WrapperOf<CPen>(hPen);
}
CBrush* CBrush::FromHandle(HBRUSH hBrush)
{
    return WrapperOf<CBrush>(hBrush);
}
CBitmap* CBitmap::FromHandle(HBITMAP hBitmap)
{
    return WrapperOf<CBitmap>(hBitmap);
}
CPalette* CPalette::FromHandle(HPALETTE hPalette)
{
    return WrapperOf<CPalette>(hPalette);
}

BOOL CFont::CreateFontIndirect(const LOGFONTA* pLogFont)
{
    return Attach(CreateFaceFont(pLogFont));
}

LOGFONTA CFont::PointFont(const LOGFONTA& lf, HDC hDC)
{
    LOGFONTA font = lf;
    // The distance of two points: origins play no part, and the axis may point up.
    POINT aPoints[] = {
        { 0, ::MulDiv(::GetDeviceCaps(hDC, LOGPIXELSY), font.lfHeight, 720) },
        { 0, 0 },
    };
    ::DPtoLP(hDC, aPoints, 2);
    std::int64_t nHeight = std::int64_t{ aPoints[0].y } - aPoints[1].y;
    nHeight =
        std::min<std::int64_t>(nHeight < 0 ? -nHeight : nHeight, std::numeric_limits<LONG>::max());
    font.lfHeight = static_cast<LONG>(-nHeight);
    return font;
}

BOOL CFont::CreatePointFontIndirect(const LOGFONTA* pLogFont, CDC* pDC)
{
    HDC hDC = pDC ? pDC->m_hAttribDC : ::GetDC(nullptr);
    const LOGFONTA font = PointFont(*pLogFont, hDC);
    if (!pDC)
        ::ReleaseDC(nullptr, hDC);
    return CreateFontIndirect(&font);
}

int CFont::GetLogFont(LOGFONTA* pLogFont) const
{
    return ::GetObjectA(m_hObject, sizeof *pLogFont, pLogFont);
}

CPen::CPen(int nStyle, int nWidth, COLORREF colour)
{
    CreatePen(nStyle, nWidth, colour);
}

BOOL CPen::CreatePen(int nStyle, int nWidth, COLORREF colour)
{
    return Attach(::CreatePen(nStyle, nWidth, colour));
}

int CPen::GetLogPen(LOGPEN* pLogPen) const
{
    return ::GetObjectA(m_hObject, sizeof *pLogPen, pLogPen);
}

CBrush::CBrush(COLORREF colour)
{
    CreateSolidBrush(colour);
}

CBrush::CBrush(int nHatch, COLORREF colour)
{
    CreateHatchBrush(nHatch, colour);
}

BOOL CBrush::CreateSolidBrush(COLORREF colour)
{
    return Attach(::CreateSolidBrush(colour));
}

BOOL CBrush::CreateHatchBrush(int nHatch, COLORREF colour)
{
    return Attach(::CreateHatchBrush(nHatch, colour));
}

BOOL CBitmap::CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* pBits)
{
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitCount, pBits));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

int CBitmap::GetBitmap(BITMAP* pBitmap) const
{
    return ::GetObjectA(m_hObject, sizeof *pBitmap, pBitmap);
}
