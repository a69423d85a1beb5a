// Device contexts. Lengths and points are logical units of the context's mapping; a rectangle's
// right and bottom lie outside.
#pragma once

#include "platform/base/cstring.h"
#include "platform/base/geometry.h"
#include "platform/base/install_place.h"
#include "platform/gdi/gdi_objects.h"

class CWnd;

// Draws on m_hDC and asks m_hAttribDC for what can be asked. The two are one, but for a metafile
// that is given another context to ask (SetAttribDC).
class CDC : public CObject
{
    DECLARE_DYNAMIC(CDC)

public:
    CDC() = default;
    // Deletes what it holds.
    ~CDC() override;

    // The object that holds the handle, or a temporary one that owns nothing; use it at once.
    static CDC* FromHandle(HDC hDC);
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    // Owns hDC from now on; false for null.
    BOOL Attach(HDC hDC);
    HDC Detach();
    virtual void SetAttribDC(HDC hDC);
    // A context in memory, with a bitmap of one pixel until another is selected. Null: the
    // screen's.
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();

    // State
    int GetDeviceCaps(int nIndex) const;
    virtual int SaveDC();
    virtual BOOL RestoreDC(int nSaved);
    int GetBkMode() const;
    int SetBkMode(int nMode);
    COLORREF GetBkColor() const;
    virtual COLORREF SetBkColor(COLORREF colour);
    COLORREF GetTextColor() const;
    virtual COLORREF SetTextColor(COLORREF colour);
    UINT SetTextAlign(UINT nAlign);
    int IntersectClipRect(LPCRECT pRect);

    // Objects: the old one comes back, null if that failed or pObject is null.
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    virtual CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    CFont* GetCurrentFont() const;
    CPen* GetCurrentPen() const;

    // Mapping
    virtual int SetMapMode(int nMode);
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    virtual CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    virtual CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }

    // Shapes
    void FillRect(LPCRECT pRect, CBrush* pBrush);
    // Leaves the colour behind as the background colour.
    void FillSolidRect(LPCRECT pRect, COLORREF colour);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF colour);
    // Lines along the left and upper edge in the one colour, along the others in the second; they
    // leave a background colour behind as FillSolidRect does.
    void Draw3dRect(LPCRECT pRect, COLORREF topLeft, COLORREF bottomRight);
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    // The last point is not drawn.
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Rectangle(int nLeft, int nTop, int nRight, int nBottom);
    BOOL Rectangle(LPCRECT pRect);
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource,
                DWORD nRop);
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource,
                    int nSourceWidth, int nSourceHeight, DWORD nRop);
    COLORREF GetPixel(int x, int y) const;
    COLORREF SetPixel(int x, int y, COLORREF colour);

    // Text
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT pRect, LPCSTR pszText, UINT nCount,
                            const INT* pDx);
    // The height of the text, which a count of -1 takes up to its NUL; see DrawTextA.
    virtual int DrawText(LPCSTR pszText, int nCount, LPRECT pRect, UINT nFormat);
    int DrawText(const CString& strText, LPRECT pRect, UINT nFormat);
    CSize GetTextExtent(LPCSTR pszText, int nCount) const;
    CSize GetTextExtent(const CString& strText) const;
    // On the output context. An empty text is as high as the font, and 0 wide.
    virtual CSize GetOutputTextExtent(LPCSTR pszText, int nCount) const;
    CSize GetOutputTextExtent(const CString& strText) const;
    // The same in a font that is made from lf (lfHeight in tenths of a point) for this and is gone
    // afterwards.
    virtual CSize GetPointFontExtent(const LOGFONTA& lf, const CString& strText);
    BOOL GetTextMetrics(TEXTMETRICA* pMetrics) const;

protected:
    // Makes the font, selects it, asks, puts the old one back.
    CSize MeasureInNewFont(const LOGFONTA& lf, const CString& strText);

public:
    HDC m_hDC = nullptr;        // output
    HDC m_hAttribDC = nullptr;  // questions

private:
    friend class CHandleMap<CDC>;
    friend class CSelectScope;

    template <class F>
    auto OnBoth(F call);
    HGDIOBJ SelectHandle(HGDIOBJ hObject);
    HDC MapKey() const { return m_hDC; }
    CDC* m_pNextInMap = nullptr;
    bool m_bTemporary = false;  // made by FromHandle: owns nothing
};

// The inside of a window, or the screen for null.
class CClientDC : public CDC
{
    DECLARE_DYNAMIC(CClientDC)

public:
    // CResourceException if there is no device context to be had.
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

protected:
    HWND m_hWnd = nullptr;
};

// How a window tells its handle; the window layer sets it, the screen needs none.
extern HWND (*g_pfnWindowHandle)(const CWnd*);

// Records an enhanced metafile. An attribute context may be set after creation.
class CMetaFileDC : public CDC
{
    DECLARE_DYNAMIC(CMetaFileDC)

public:
    CMetaFileDC() = default;
    // Ends and discards a recording that was not closed.
    ~CMetaFileDC() override;

    // As CreateEnhMetaFile: null file name records in memory, pBounds in hundredths of a
    // millimetre.
    BOOL CreateEnhanced(CDC* pReference, LPCSTR pszFile, LPCRECT pBounds, LPCSTR pszDescription);
    // The caller owns the result.
    HENHMETAFILE CloseEnhanced();
};

// Selects an object as long as it lives, and then puts the old one back.
class CSelectScope
{
public:
    CSelectScope(CDC* pDC, CGdiObject* pObject)
        : m_pDC(pDC), m_hOld(pDC->SelectHandle(pObject->GetSafeHandle()))
    {
    }
    ~CSelectScope()
    {
        if (m_hOld)
            m_pDC->SelectHandle(m_hOld);
    }
    CSelectScope(const CSelectScope&) = delete;
    CSelectScope& operator=(const CSelectScope&) = delete;

private:
    CDC* m_pDC;      // not owned
    HGDIOBJ m_hOld;  // null: nothing was selected
};
