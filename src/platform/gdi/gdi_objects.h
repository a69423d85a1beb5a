// Wrappers of drawing objects: fonts, pens, brushes, bitmaps, palettes.
//
//   CFont font;
//   font.CreatePointFontIndirect(&lf, pDC);  // tenths of a point
//   CFont* pOldFont = pDC->SelectObject(&font);
//   ...
//   pDC->SelectObject(pOldFont);
//
// - An object that holds a handle deletes it in its destructor; Detach takes it out.
// - FromHandle gives the object that holds the handle, or a temporary one that owns nothing. A
//   temporary is to be used at once: its memory serves again after a few dozen others.
#pragma once

#include "platform/base/object.h"
#include "platform/gdi/gdi.h"

class CDC;
template <class T>
class CHandleMap;

class CGdiObject : public CObject
{
    DECLARE_DYNAMIC(CGdiObject)

public:
    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    // False, and nothing taken, for a null handle. From now on this object owns the handle.
    BOOL Attach(HGDIOBJ hObject);
    HGDIOBJ Detach();
    // False if there was none.
    BOOL DeleteObject();

    static CGdiObject* FromHandle(HGDIOBJ hObject);

    HGDIOBJ m_hObject = nullptr;

protected:
    friend class CHandleMap<CGdiObject>;
    HGDIOBJ MapKey() const { return m_hObject; }
    CGdiObject* m_pNextInMap = nullptr;
    bool m_bTemporary = false;  // made by FromHandle: owns nothing
};

class CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)

public:
    // Logical units of the device context that it is selected into.
    BOOL CreateFontIndirect(const LOGFONTA* pLogFont);
    // lfHeight in tenths of a point, its sign is dropped; converted by the resolution and the
    // mapping of the device context, or of the screen for null. lfWidth stays in logical units.
    BOOL CreatePointFontIndirect(const LOGFONTA* pLogFont, CDC* pDC = nullptr);
    // What CreatePointFontIndirect hands to CreateFontIndirect.
    static LOGFONTA PointFont(const LOGFONTA& lf, HDC hDC);
    int GetLogFont(LOGFONTA* pLogFont) const;

    operator HFONT() const { return static_cast<HFONT>(GetSafeHandle()); }
    static CFont* FromHandle(HFONT hFont);
};

class CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen() = default;
    CPen(int nStyle, int nWidth, COLORREF colour);
    BOOL CreatePen(int nStyle, int nWidth, COLORREF colour);
    int GetLogPen(LOGPEN* pLogPen) const;

    operator HPEN() const { return static_cast<HPEN>(GetSafeHandle()); }
    static CPen* FromHandle(HPEN hPen);
};

class CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    explicit CBrush(COLORREF colour);
    CBrush(int nHatch, COLORREF colour);
    BOOL CreateSolidBrush(COLORREF colour);
    BOOL CreateHatchBrush(int nHatch, COLORREF colour);

    operator HBRUSH() const { return static_cast<HBRUSH>(GetSafeHandle()); }
    static CBrush* FromHandle(HBRUSH hBrush);
};

class CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    // pBits may be null: the content is then undefined.
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void* pBits);
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    int GetBitmap(BITMAP* pBitmap) const;

    operator HBITMAP() const { return static_cast<HBITMAP>(GetSafeHandle()); }
    static CBitmap* FromHandle(HBITMAP hBitmap);
};

class CPalette : public CGdiObject
{
    DECLARE_DYNAMIC(CPalette)

public:
    operator HPALETTE() const { return static_cast<HPALETTE>(GetSafeHandle()); }
    static CPalette* FromHandle(HPALETTE hPalette);
};
