// Calls of the system on the handles. What sets state goes to both contexts; what asks goes to one.
#include "platform/gdi/dc.h"

#include "platform/gdi/handle_map.h"
#include "platform/gdi/native_gdi.h"

IMPLEMENT_DYNAMIC(CDC, CObject)

using CDCMap = CHandleMap<CDC>;

// What changes state is done to both contexts. The answer is that of the one that is asked.
template <class F>
auto CDC::OnBoth(F call)
{
    decltype(call(m_hDC)) result{};
    if (m_hDC != m_hAttribDC)
        result = call(m_hDC);
    if (m_hAttribDC)
        result = call(m_hAttribDC);
    return result;
}

// ---- Handles

CDC::~CDC()
{
    if (m_hDC && !m_bTemporary)
        ::DeleteDC(Detach());
}

CDC* CDC::FromHandle(HDC hDC)
{
    if (!hDC)
        return nullptr;
    CDC* pDC = CDCMap::Find(hDC);
    if (!pDC)
        pDC = CDCMap::MakeTemporary<CDC>(hDC, &CDC::m_hDC);
    if (pDC->m_bTemporary)
        pDC->m_hAttribDC = hDC;
    return pDC;
}

BOOL CDC::Attach(HDC hDC)
{
    ASSERT(!m_hDC);
    if (!hDC)
        return FALSE;
    m_hDC = hDC;
    CDCMap::Insert(this);
    SetAttribDC(hDC);
    return TRUE;
}

HDC CDC::Detach()
{
    if (m_hDC)
        CDCMap::Remove(this);
    HDC hDC = m_hDC;
    m_hDC = nullptr;
    m_hAttribDC = nullptr;
    return hDC;
}

void CDC::SetAttribDC(HDC hDC)
{
    m_hAttribDC = hDC;
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return Attach(::CreateCompatibleDC(pDC ? pDC->m_hDC : nullptr));
}

BOOL CDC::DeleteDC()
{
    return m_hDC && ::DeleteDC(Detach());
}

// ---- State

int CDC::GetDeviceCaps(int nIndex) const
{
    return ::GetDeviceCaps(m_hAttribDC, nIndex);
}

int CDC::SaveDC()
{
    return OnBoth([](HDC hDC) { return ::SaveDC(hDC); });
}

BOOL CDC::RestoreDC(int nSaved)
{
    // The two need not have saved equally often: only a relative number serves both.
    if (m_hDC == m_hAttribDC || nSaved < 0)
    {
        return OnBoth([=](HDC hDC) { return ::RestoreDC(hDC, nSaved); });
    }
    return ::RestoreDC(m_hDC, nSaved);
}

int CDC::GetBkMode() const
{
    return ::GetBkMode(m_hAttribDC);
}

int CDC::SetBkMode(int nMode)
{
    return OnBoth([=](HDC hDC) { return ::SetBkMode(hDC, nMode); });
}

COLORREF CDC::GetBkColor() const
{
    return ::GetBkColor(m_hAttribDC);
}

COLORREF CDC::SetBkColor(COLORREF colour)
{
    return OnBoth([=](HDC hDC) { return ::SetBkColor(hDC, colour); });
}

COLORREF CDC::GetTextColor() const
{
    return ::GetTextColor(m_hAttribDC);
}

COLORREF CDC::SetTextColor(COLORREF colour)
{
    return OnBoth([=](HDC hDC) { return ::SetTextColor(hDC, colour); });
}

UINT CDC::SetTextAlign(UINT nAlign)
{
    return OnBoth([=](HDC hDC) { return ::SetTextAlign(hDC, nAlign); });
}

int CDC::IntersectClipRect(LPCRECT pRect)
{
    return OnBoth(
        [=](HDC hDC)
        { return ::IntersectClipRect(hDC, pRect->left, pRect->top, pRect->right, pRect->bottom); });
}

// ---- Objects

// A font measures as well as it draws; the other objects only draw.
HGDIOBJ CDC::SelectHandle(HGDIOBJ hObject)
{
    if (!hObject)
        return nullptr;
    if (m_hDC == m_hAttribDC || ::GetObjectType(hObject) != OBJ_FONT)
        return ::SelectObject(m_hDC, hObject);
    return OnBoth([=](HDC hDC) { return ::SelectObject(hDC, hObject); });
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return pPen ? CPen::FromHandle(static_cast<HPEN>(SelectHandle(pPen->m_hObject))) : nullptr;
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return pBrush ? CBrush::FromHandle(static_cast<HBRUSH>(SelectHandle(pBrush->m_hObject)))
                  : nullptr;
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return pFont ? CFont::FromHandle(static_cast<HFONT>(SelectHandle(pFont->m_hObject))) : nullptr;
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return pBitmap ? CBitmap::FromHandle(static_cast<HBITMAP>(SelectHandle(pBitmap->m_hObject)))
                   : nullptr;
}

CFont* CDC::GetCurrentFont() const
{
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hAttribDC, OBJ_FONT)));
}

CPen* CDC::GetCurrentPen() const
{
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hDC, OBJ_PEN)));
}

// ---- Mapping

int CDC::SetMapMode(int nMode)
{
    return OnBoth([=](HDC hDC) { return ::SetMapMode(hDC, nMode); });
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    CPoint old;
    OnBoth([&](HDC hDC) { return ::SetWindowOrgEx(hDC, x, y, &old); });
    return old;
}

CSize CDC::SetWindowExt(int cx, int cy)
{
    CSize old;
    OnBoth([&](HDC hDC) { return ::SetWindowExtEx(hDC, cx, cy, &old); });
    return old;
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    CPoint old;
    OnBoth([&](HDC hDC) { return ::SetViewportOrgEx(hDC, x, y, &old); });
    return old;
}

CSize CDC::SetViewportExt(int cx, int cy)
{
    CSize old;
    OnBoth([&](HDC hDC) { return ::SetViewportExtEx(hDC, cx, cy, &old); });
    return old;
}

// ---- Shapes

void CDC::FillRect(LPCRECT pRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, pRect, static_cast<HBRUSH>(pBrush->GetSafeHandle()));
}

void CDC::FillSolidRect(LPCRECT pRect, COLORREF colour)
{
    ::SetBkColor(m_hDC, colour);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, pRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF colour)
{
    CRect rect(CPoint(x, y), CSize(cx, cy));
    FillSolidRect(&rect, colour);
}

void CDC::Draw3dRect(LPCRECT pRect, COLORREF topLeft, COLORREF bottomRight)
{
    const int nWidth = WrapSub(pRect->right, pRect->left);
    const int nHeight = WrapSub(pRect->bottom, pRect->top);
    FillSolidRect(pRect->left, pRect->top, nWidth - 1, 1, topLeft);
    FillSolidRect(pRect->left, pRect->top, 1, nHeight - 1, topLeft);
    FillSolidRect(pRect->right - 1, pRect->top, 1, nHeight, bottomRight);
    FillSolidRect(pRect->left, pRect->bottom - 1, nWidth, 1, bottomRight);
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint old;
    OnBoth([&](HDC hDC) { return ::MoveToEx(hDC, x, y, &old); });
    return old;
}

BOOL CDC::LineTo(int x, int y)
{
    if (m_hAttribDC && m_hDC != m_hAttribDC)
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::Rectangle(int nLeft, int nTop, int nRight, int nBottom)
{
    return ::Rectangle(m_hDC, nLeft, nTop, nRight, nBottom);
}

BOOL CDC::Rectangle(LPCRECT pRect)
{
    return ::Rectangle(m_hDC, pRect->left, pRect->top, pRect->right, pRect->bottom);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource,
                 DWORD nRop)
{
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSource ? pSource->m_hDC : nullptr, xSource,
                    ySource, nRop);
}

BOOL CDC::StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSource, int xSource, int ySource,
                     int nSourceWidth, int nSourceHeight, DWORD nRop)
{
    return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, pSource ? pSource->m_hDC : nullptr, xSource,
                        ySource, nSourceWidth, nSourceHeight, nRop);
}

COLORREF CDC::GetPixel(int x, int y) const
{
    return ::GetPixel(m_hDC, x, y);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF colour)
{
    return ::SetPixel(m_hDC, x, y, colour);
}

// ---- Text

BOOL CDC::ExtTextOut(int x, int y, UINT nOptions, LPCRECT pRect, LPCSTR pszText, UINT nCount,
                     const INT* pDx)
{
    if (nCount > 0 && !CanDrawLetters(m_hDC))
        return TRUE;
    return ::ExtTextOutA(m_hDC, x, y, nOptions, pRect, pszText, nCount, pDx);
}

int CDC::DrawText(LPCSTR pszText, int nCount, LPRECT pRect, UINT nFormat)
{
    return DrawLetters(m_hDC, pszText, nCount, pRect, nFormat);
}

int CDC::DrawText(const CString& strText, LPRECT pRect, UINT nFormat)
{
    return DrawText(strText.GetString(), strText.GetLength(), pRect, nFormat);
}

CSize CDC::GetTextExtent(LPCSTR pszText, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32A(m_hAttribDC, pszText, nCount, &size);
    return size;
}

CSize CDC::GetTextExtent(const CString& strText) const
{
    return GetTextExtent(strText.GetString(), strText.GetLength());
}

CSize CDC::GetOutputTextExtent(LPCSTR pszText, int nCount) const
{
    CSize size;
    if (nCount > 0)
    {
        ::GetTextExtentPoint32A(m_hDC, pszText, nCount, &size);
        return size;
    }
    // An empty symbol keeps a row of the font's height; the system would say that it has none.
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(m_hDC, &metrics);
    size.cy = metrics.tmHeight;
    return size;
}

CSize CDC::GetOutputTextExtent(const CString& strText) const
{
    return GetOutputTextExtent(strText.GetString(), strText.GetLength());
}

CSize CDC::GetPointFontExtent(const LOGFONTA& lf, const CString& strText)
{
    CSize size;
    if (m_hDC == m_hAttribDC && QuickTextExtent(m_hDC, CFont::PointFont(lf, m_hAttribDC),
                                                strText.GetString(), strText.GetLength(), &size))
        return size;
    return MeasureInNewFont(lf, strText);
}

CSize CDC::MeasureInNewFont(const LOGFONTA& lf, const CString& strText)
{
    CFont font;
    font.CreatePointFontIndirect(&lf, this);
    CFont* pOld = SelectObject(&font);
    const CSize size = GetOutputTextExtent(strText);
    if (pOld)
        SelectObject(pOld);
    return size;
}

BOOL CDC::GetTextMetrics(TEXTMETRICA* pMetrics) const
{
    return ::GetTextMetricsA(m_hAttribDC, pMetrics);
}
