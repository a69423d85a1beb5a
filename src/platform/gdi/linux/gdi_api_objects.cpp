// The C functions for drawing objects: creation, selection, description, deletion.
#include "platform/gdi/linux/device_context.h"
#include "platform/gdi/linux/screen.h"

#include <cstring>
#include <vector>

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
    LOGPEN pen{ static_cast<UINT>(nStyle), { nWidth, 0 }, colour };
    return CreatePenIndirect(&pen);
}

HPEN CreatePenIndirect(const LOGPEN* pPen)
{
    if (!pPen)
        return nullptr;
    if (pPen->lopnStyle == PS_NULL)
        return TypedHandle<HPEN>(StockObject(NULL_PEN));
    LOGPEN pen = *pPen;
    if (pen.lopnStyle > PS_INSIDEFRAME)
        pen.lopnStyle = PS_SOLID;
    pen.lopnWidth = { pen.lopnWidth.x < 0 ? 0 : pen.lopnWidth.x, 0 };
    return TypedHandle<HPEN>(CPenObject::Create(pen));
}

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return TypedHandle<HBRUSH>(CBrushObject::Create({ BS_SOLID, colour, 0 }));
}

HBRUSH CreateHatchBrush(int nHatch, COLORREF colour)
{
    LOGBRUSH brush{ BS_HATCHED, colour, static_cast<UINT_PTR>(nHatch) };
    return CreateBrushIndirect(&brush);
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* pBrush)
{
    bool bKnown = pBrush && (pBrush->lbStyle == BS_SOLID || pBrush->lbStyle == BS_NULL ||
                             (pBrush->lbStyle == BS_HATCHED && pBrush->lbHatch <= HS_DIAGCROSS));
    return bKnown ? TypedHandle<HBRUSH>(CBrushObject::Create(*pBrush)) : nullptr;
}

HPALETTE CreatePalette(const LOGPALETTE* pPalette)
{
    if (!pPalette || pPalette->palNumEntries == 0)
        return nullptr;
    // The entries reach beyond the declared end of the array.
    std::vector<PALETTEENTRY> entries(pPalette->palNumEntries);
    const char* pBytes = reinterpret_cast<const char*>(pPalette);
    std::memcpy(entries.data(), pBytes + offsetof(LOGPALETTE, palPalEntry),
                entries.size() * sizeof(PALETTEENTRY));
    return TypedHandle<HPALETTE>(new CPaletteObject(std::move(entries)));
}

HPALETTE SelectPalette(HDC hDC, HPALETTE hPalette, BOOL)
{
    auto pPalette = ObjectFromHandle<CPaletteObject>(hPalette, OBJ_PAL);
    return hDC && pPalette ? TypedHandle<HPALETTE>(hDC->SelectPalette(*pPalette)) : nullptr;
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
        case OBJ_PAL:
            return HandleOf<HGDIOBJ>(hDC->State().m_pPalette);
        case OBJ_BITMAP:
            return HandleOf<HGDIOBJ>(hDC->Bitmap());
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
