// The C functions for drawing objects: creation, selection, description, deletion.
#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/context/screen.h"

#include <algorithm>

namespace
{

template <class H>
H HandleOf(CHandleObject* pObject)
{
    return static_cast<H>(pObject ? pObject->Handle() : nullptr);
}
template <class H>
H TypedHandle(CHandleObject* pObject)
{
    return reinterpret_cast<H>(HandleOf<HGDIOBJ>(pObject));
}

}  // namespace

HFONT CreateFontIndirectA(const LOGFONTA* pFont)
{
    return pFont ? TypedHandle<HFONT>(CFontObject::Create(*pFont)) : nullptr;
}

HPEN CreatePen(int nStyle, int nWidth, COLORREF colour)
{
    if (nStyle == PS_NULL)
        return TypedHandle<HPEN>(StockObject(NULL_PEN));
    return TypedHandle<HPEN>(CPenObject::Create({ PS_SOLID, { std::max(nWidth, 0), 0 }, colour }));
}

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return TypedHandle<HBRUSH>(CBrushObject::Create({ BS_SOLID, colour, 0 }));
}

HBRUSH CreateHatchBrush(int nHatch, COLORREF colour)
{
    if (nHatch != HS_BDIAGONAL)
        return nullptr;
    return TypedHandle<HBRUSH>(CBrushObject::Create({ BS_HATCHED, colour, HS_BDIAGONAL }));
}

HPALETTE SelectPalette(HDC hDC, HPALETTE hPalette, BOOL)
{
    return hDC && ObjectFromHandle<CPaletteObject>(hPalette, OBJ_PAL) ? hPalette : nullptr;
}

// No entry of a true-colour device ever changes.
UINT RealizePalette(HDC hDC)
{
    return hDC ? 0 : GDI_ERROR;
}

HGDIOBJ GetStockObject(int nIndex)
{
    return HandleOf<HGDIOBJ>(StockObject(nIndex));
}

HGDIOBJ SelectObject(HDC hDC, HGDIOBJ hObject)
{
    CHandleObject* pObject = ObjectFromHandle(hObject);
    return hDC && pObject ? HandleOf<HGDIOBJ>(hDC->Select(*pObject)) : nullptr;
}

BOOL DeleteObject(HGDIOBJ hObject)
{
    CHandleObject* pObject = ObjectFromHandle(hObject);
    if (!pObject)
        return FALSE;
    CObjectListener::TellDeleted(*pObject);
    pObject->Delete();
    return TRUE;
}

HGDIOBJ GetCurrentObject(HDC hDC, UINT nType)
{
    if (!hDC)
        return nullptr;
    switch (nType)
    {
        case OBJ_FONT:
            return HandleOf<HGDIOBJ>(hDC->State().m_pFont);
        case OBJ_PEN:
            return HandleOf<HGDIOBJ>(hDC->State().m_pPen);
        case OBJ_BRUSH:
            return HandleOf<HGDIOBJ>(hDC->State().m_pBrush);
        default:
            return nullptr;
    }
}

UINT GetObjectType(HGDIOBJ hObject)
{
    CHandleObject* pObject = ObjectFromHandle(hObject);
    return pObject ? pObject->Type() : 0;
}

int GetObjectA(HGDIOBJ hObject, int cbBuffer, LPVOID pBuffer)
{
    CHandleObject* pObject = ObjectFromHandle(hObject);
    return pObject ? pObject->Describe(cbBuffer, pBuffer) : 0;
}

COLORREF GetSysColor(int nIndex)
{
    return SystemColour(nIndex);
}

HBRUSH GetSysColorBrush(int nIndex)
{
    return TypedHandle<HBRUSH>(SystemBrush(nIndex));
}
