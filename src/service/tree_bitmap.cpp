// A tree as a device bitmap: written as a BMP file, or enlarged onto another device.
#include <cstring>
#include <limits>

#include "platform/base/file.h"
#include "platform/base/global_memory.h"
#include "platform/gdi/dc.h"
#include "service/bmp_head.h"
#include "service/screen_dc.h"
#include "tree/bin_tree.h"

namespace
{
constexpr COLORREF s_crWhite = 0xFFFFFF;

// Entries of a DIB's colour table; true colours have none.
DWORD ColourCount(int nBitCount)
{
    return nBitCount > 8 ? 0 : 1U << nBitCount;
}

// A formula painted on white in a bitmap of the screen's depth.
class CFormulaBitmap
{
public:
    explicit CFormulaBitmap(CBinTree& tree)
    {
        m_dc.CreateCompatibleDC(nullptr);
        m_rect = tree.MeasureTree(&m_dc);
        if (!m_bitmap.CreateBitmap(m_rect.Width(), m_rect.Height(), 1,
                                   static_cast<UINT>(m_dc.GetDeviceCaps(BITSPIXEL)), nullptr))
            return;
        m_pOld = m_dc.SelectObject(&m_bitmap);
        m_dc.SetWindowOrg(m_rect.left, m_rect.top);
        m_dc.FillSolidRect(&m_rect, s_crWhite);
        tree.Draw(&m_dc, m_rect);
    }
    ~CFormulaBitmap()
    {
        if (m_pOld != nullptr)
            m_dc.SelectObject(m_pOld);
    }
    CFormulaBitmap(const CFormulaBitmap&) = delete;
    CFormulaBitmap& operator=(const CFormulaBitmap&) = delete;

    bool IsMade() const { return m_pOld != nullptr; }
    CDC& DC() { return m_dc; }
    CBitmap& Bitmap() { return m_bitmap; }
    const CRect& Rect() const { return m_rect; }

private:
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_pOld = nullptr;  // null: there is no bitmap
    CRect m_rect;
};

// A palette, realised on a device context for as long as the object lives.
class CPaletteScope
{
public:
    CPaletteScope(HDC hDC, CPalette* pPalette) : m_hDC(hDC)
    {
        HPALETTE hPalette = pPalette != nullptr ? static_cast<HPALETTE>(*pPalette) : nullptr;
        if (hPalette == nullptr)
            hPalette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
        m_hOld = SelectPalette(m_hDC, hPalette, FALSE);
        RealizePalette(m_hDC);
    }
    ~CPaletteScope() { SelectPalette(m_hDC, m_hOld, FALSE); }
    CPaletteScope(const CPaletteScope&) = delete;
    CPaletteScope& operator=(const CPaletteScope&) = delete;

private:
    HDC m_hDC;
    HPALETTE m_hOld;
};

ULONGLONG ImageSize(const BITMAPINFOHEADER& header)
{
    const auto nRowBits = static_cast<ULONGLONG>(header.biWidth) * header.biBitCount;
    const ULONGLONG nSize =
        ((nRowBits + 31) & ~ULONGLONG{ 31 }) / 8 * static_cast<ULONGLONG>(header.biHeight);
    return header.biCompression == BI_RGB ? nSize : nSize * 3 / 2;
}

// Header, colours and pixels, as GetDIBits gives them; null on failure.
CGlobalPtr PackedDib(HDC hDC, HBITMAP hBitmap, BITMAPINFOHEADER header)
{
    const auto nLines = static_cast<UINT>(header.biHeight);
    const SIZE_T nHead = sizeof header + 4 * ColourCount(header.biBitCount);
    CGlobalPtr pBlock(GlobalAlloc(GMEM_FIXED, nHead));
    if (!pBlock)
        return nullptr;
    auto* pInfo = static_cast<BITMAPINFO*>(pBlock.get());
    pInfo->bmiHeader = header;
    if (!GetDIBits(hDC, hBitmap, 0, nLines, nullptr, pInfo, DIB_RGB_COLORS))
        return nullptr;
    if (pInfo->bmiHeader.biSizeImage == 0)
    {
        const ULONGLONG nSize = ImageSize(pInfo->bmiHeader);
        if (nSize > std::numeric_limits<DWORD>::max())
            return nullptr;
        pInfo->bmiHeader.biSizeImage = static_cast<DWORD>(nSize);
    }
    const HGLOBAL hGrown =
        GlobalReAlloc(pBlock.get(), nHead + pInfo->bmiHeader.biSizeImage, GMEM_MOVEABLE);
    if (hGrown == nullptr)
        return nullptr;
    pBlock.release();
    pBlock.reset(hGrown);
    pInfo = static_cast<BITMAPINFO*>(hGrown);
    if (!GetDIBits(hDC, hBitmap, 0, nLines, static_cast<BYTE*>(hGrown) + nHead, pInfo,
                   DIB_RGB_COLORS))
        return nullptr;
    return pBlock;
}

bool WriteDib(const CString& strPath, HGLOBAL hDib)
{
    const auto* pHeader = static_cast<const BITMAPINFOHEADER*>(GlobalLock(hDib));
    const auto nSize = static_cast<DWORD>(GlobalSize(hDib));
    const BITMAPFILEHEADER fileHeader =
        MakeBmpFileHeader(pHeader->biSize + 4 * ColourCount(pHeader->biBitCount), nSize);
    const LONG lError =
        WriteWholeFile(strPath, { { reinterpret_cast<const BYTE*>(&fileHeader), sizeof fileHeader },
                                  { reinterpret_cast<const BYTE*>(pHeader), nSize } });
    GlobalUnlock(hDib);
    if (lError != 0)
        SetLastError(static_cast<DWORD>(lError));
    return lError == 0;
}
}  // namespace

HANDLE CBinTree::BitmapToDIB(CBitmap* pBitmap, DWORD nCompression, CPalette* pPalette)
{
    BITMAP bitmap = {};
    if (nCompression == BI_BITFIELDS || !pBitmap->GetBitmap(&bitmap))
        return nullptr;
    CScreenDC screen;
    const CPaletteScope palette(screen.GetSafeHdc(), pPalette);
    const BITMAPINFOHEADER header = MakeBitmapHeader(
        bitmap.bmWidth, bitmap.bmHeight, bitmap.bmPlanes * bitmap.bmBitsPixel, nCompression);
    return PackedDib(screen.GetSafeHdc(), *pBitmap, header).release();
}

int CBinTree::WriteBitmapFile(CString strPath)
{
    CFormulaBitmap picture(*this);
    if (!picture.IsMade())
        return 0;
    const CGlobalPtr pDib(BitmapToDIB(&picture.Bitmap(), BI_RGB, nullptr));
    return pDib && WriteDib(strPath, pDib.get()) ? 1 : 0;
}

int CBinTree::PrintBitmap(CDC* pTarget)
{
    CFormulaBitmap picture(*this);
    if (!picture.IsMade())
        return 0;
    const double fScaleX = static_cast<double>(pTarget->GetDeviceCaps(LOGPIXELSX)) /
                           picture.DC().GetDeviceCaps(LOGPIXELSX);
    const double fScaleY = static_cast<double>(pTarget->GetDeviceCaps(LOGPIXELSY)) /
                           picture.DC().GetDeviceCaps(LOGPIXELSY);
    const CRect& rect = picture.Rect();
    pTarget->StretchBlt(rect.left, rect.top, static_cast<int>(rect.Width() * fScaleX),
                        static_cast<int>(rect.Height() * fScaleY), &picture.DC(), rect.left,
                        rect.top, rect.Width(), rect.Height(), SRCCOPY);
    return 1;
}
