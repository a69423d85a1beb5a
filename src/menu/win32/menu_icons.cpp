// Icons of commands.
#include "menu/win32/menu_icons.h"

#include <commctrl.h>

#include <algorithm>

#include "menu/win32/menu_theme.h"

IMPLEMENT_DYNAMIC(CNewMenuIcons, CObject)
IMPLEMENT_DYNAMIC(CNewMenuBitmaps, CNewMenuIcons)

namespace
{
// The background of toolbars.
constexpr COLORREF s_crToolbarMask = RGB(192, 192, 192);

struct CToolBarResource
{
    WORD wVersion;
    WORD wWidth;  // of a button
    WORD wHeight;
    WORD wItems;  // as many commands follow; 0 is a separator
};

struct CFreeBitmap
{
    void operator()(HBITMAP hBitmap) const { ::DeleteObject(hBitmap); }
};
using CBitmapPtr = std::unique_ptr<std::remove_pointer_t<HBITMAP>, CFreeBitmap>;

std::vector<CNewMenuIcons*>& AllLists()
{
    static std::vector<CNewMenuIcons*> s_lists;
    return s_lists;
}
std::vector<std::weak_ptr<CNewMenuIcons>>& SharedLists()
{
    static std::vector<std::weak_ptr<CNewMenuIcons>> s_lists;
    return s_lists;
}

BITMAPINFO PixelInfo(CSize size)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

// Rows of pixels hold red and blue the other way round.
COLORREF Swapped(COLORREF colour)
{
    return RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
}

// Empty if it cannot be read.
CIconImage ReadBitmap(HBITMAP hBitmap)
{
    BITMAP head = {};
    if (hBitmap == nullptr || ::GetObjectA(hBitmap, sizeof head, &head) == 0)
        return {};
    CIconImage image{ CSize(head.bmWidth, head.bmHeight), {} };
    image.m_pixels.resize(static_cast<std::size_t>(head.bmWidth) *
                          static_cast<std::size_t>(head.bmHeight));
    BITMAPINFO info = PixelInfo(image.m_size);
    const HDC hDC = ::GetDC(nullptr);
    const int nRows = ::GetDIBits(hDC, hBitmap, 0, static_cast<UINT>(head.bmHeight),
                                  image.m_pixels.data(), &info, DIB_RGB_COLORS);
    ::ReleaseDC(nullptr, hDC);
    if (nRows == 0)
        return {};
    std::ranges::transform(image.m_pixels, image.m_pixels.begin(), Swapped);
    return image;
}

void AddImage(HIMAGELIST hImages, const CIconImage& image, const CIconImage& shape, COLORREF mask)
{
    const BITMAPINFO info = PixelInfo(image.m_size);
    void* pBits = nullptr;
    const CBitmapPtr pColours(
        ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
    if (pColours == nullptr)
        return;
    // Bits of the mask, rows of whole words: 1 lets the background through.
    const std::size_t nRow = static_cast<std::size_t>((image.m_size.cx + 15) / 16 * 2);
    std::vector<BYTE> bits(nRow * static_cast<std::size_t>(image.m_size.cy));
    auto* pPixels = static_cast<COLORREF*>(pBits);
    for (std::size_t n = 0; n < image.m_pixels.size(); ++n)
    {
        const bool bMasked = shape.m_pixels[n] == mask;
        const std::size_t x = n % static_cast<std::size_t>(image.m_size.cx);
        const std::size_t y = n / static_cast<std::size_t>(image.m_size.cx);
        pPixels[n] = bMasked ? 0 : Swapped(image.m_pixels[n]);
        if (bMasked)
            bits[y * nRow + x / 8] |= static_cast<BYTE>(0x80U >> (x % 8));
    }
    const CBitmapPtr pMask(::CreateBitmap(image.m_size.cx, image.m_size.cy, 1, 1, bits.data()));
    ::ImageList_Add(hImages, pColours.get(), pMask.get());
}
}  // namespace

CNewMenuIcons::CNewMenuIcons()
{
    AllLists().push_back(this);
}

CNewMenuIcons::~CNewMenuIcons()
{
    std::erase(AllLists(), this);
    if (m_hImages != nullptr)
        ::ImageList_Destroy(m_hImages);
}

std::shared_ptr<CNewMenuIcons> CNewMenuIcons::FromToolBar(HINSTANCE hInstance, LPCSTR pszName)
{
    auto& lists = SharedLists();
    std::erase_if(lists, [](const auto& pList) { return pList.expired(); });
    for (const auto& pShared : lists)
    {
        if (const auto pList = pShared.lock();
            pList->m_hInstance == hInstance && pList->m_pszName == pszName)
            return pList;
    }
    struct CMake : CNewMenuIcons
    {
    };
    const std::shared_ptr<CNewMenuIcons> pList = std::make_shared<CMake>();
    if (!pList->LoadToolBar(hInstance, pszName))
        return nullptr;
    if (IS_INTRESOURCE(pszName))
    {
        pList->m_hInstance = hInstance;
        pList->m_pszName = pszName;
        lists.push_back(pList);
    }
    return pList;
}

BOOL CNewMenuIcons::LoadToolBar(HINSTANCE hInstance, LPCSTR pszName)
{
    const LPCSTR pszToolBarType = MAKEINTRESOURCEA(241);
    const HRSRC hInfo = ::FindResourceA(hInstance, pszName, pszToolBarType);
    const HGLOBAL hResource = hInfo != nullptr ? ::LoadResource(hInstance, hInfo) : nullptr;
    const auto* pToolBar = static_cast<const CToolBarResource*>(
        hResource != nullptr ? ::LockResource(hResource) : nullptr);
    const DWORD nBytes = hInfo != nullptr ? ::SizeofResource(hInstance, hInfo) : 0;
    if (pToolBar == nullptr || nBytes < sizeof *pToolBar ||
        nBytes - sizeof *pToolBar < pToolBar->wItems * sizeof(WORD))
        return FALSE;
    const CBitmapPtr pBitmap(static_cast<HBITMAP>(
        ::LoadImageA(hInstance, pszName, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    const CIconImage strip = ReadBitmap(pBitmap.get());
    const CSize size(pToolBar->wWidth, pToolBar->wHeight);
    if (size.cx == 0 || size.cy == 0 || strip.m_size.cx < size.cx || strip.m_size.cy < size.cy)
        return FALSE;
    const auto* pCommands = reinterpret_cast<const WORD*>(pToolBar + 1);
    int nImage = 0;
    for (int n = 0; n < pToolBar->wItems && (nImage + 1) * size.cx <= strip.m_size.cx; ++n)
    {
        if (pCommands[n] != 0)
            Add(pCommands[n], IconOfStrip(strip, size, nImage++), s_crToolbarMask);
    }
    MakeImages();
    return TRUE;
}

void CNewMenuIcons::Add(UINT nID, const CIconImage& image, COLORREF mask)
{
    m_entries.push_back({ nID, mask, image });
    m_nDarkening = -1;
}

void CNewMenuIcons::MakeImages()
{
    if (m_hImages != nullptr)
        ::ImageList_Destroy(m_hImages);
    m_nDarkening = GetMenuSettings().m_nDarkening;
    const CSize size = m_entries.empty() ? CSize(1, 1) : m_entries.front().image.m_size;
    m_hImages = ::ImageList_Create(size.cx, size.cy, ILC_COLOR24 | ILC_MASK,
                                   static_cast<int>(m_entries.size()) * IMAGES_OF_ICON, 1);
    for (const CEntry& entry : m_entries)
    {
        for (const CIconImage& image :
             { entry.image, DarkenedIcon(entry.image, entry.mask, m_nDarkening),
               DisabledIcon(entry.image, entry.mask) })
            AddImage(m_hImages, image, entry.image, entry.mask);
    }
}

int CNewMenuIcons::FindIndex(UINT nID) const
{
    const auto found = std::ranges::find(m_entries, nID, &CEntry::nID);
    return found != m_entries.end() ? static_cast<int>(found - m_entries.begin()) * IMAGES_OF_ICON
                                    : -1;
}

CSize CNewMenuIcons::GetIconSize() const
{
    int cx = 0;
    int cy = 0;
    ::ImageList_GetIconSize(m_hImages, &cx, &cy);
    return { cx, cy };
}

int CNewMenuIcons::GetImageCount() const
{
    return ::ImageList_GetImageCount(m_hImages);
}

void CNewMenuIcons::Draw(CDC* pDC, int nImage, CPoint at) const
{
    ::ImageList_Draw(m_hImages, nImage, pDC->GetSafeHdc(), at.x, at.y, ILD_TRANSPARENT);
}

void CNewMenuIcons::DrawMono(CDC* pDC, int nImage, CPoint at, COLORREF colour) const
{
    const HICON hIcon = ::ImageList_GetIcon(m_hImages, nImage, ILD_TRANSPARENT);
    if (hIcon == nullptr)
        return;
    CBrush brush(colour);
    const CSize size = GetIconSize();
    ::DrawStateA(pDC->GetSafeHdc(), brush, nullptr, reinterpret_cast<LPARAM>(hIcon), 0, at.x, at.y,
                 size.cx, size.cy, DST_ICON | DSS_MONO);
    ::DestroyIcon(hIcon);
}

void CNewMenuIcons::CheckState()
{
    if (m_nDarkening != GetMenuSettings().m_nDarkening)
        MakeImages();
}

void CNewMenuIcons::CheckAllStates()
{
    constexpr DWORD nPause = 2000;  // milliseconds
    static DWORD s_nLast = ::GetTickCount() - nPause;
    if (::GetTickCount() - s_nLast < nPause)
        return;
    s_nLast = ::GetTickCount();
    for (CNewMenuIcons* pList : AllLists())
        pList->CheckState();
}

BOOL CNewMenuBitmaps::AddBitmap(UINT nID, HBITMAP hBitmap, COLORREF mask)
{
    const CIconImage image = ReadBitmap(hBitmap);
    if (image.m_pixels.empty() || (GetImageCount() > 0 && GetIconSize() != image.m_size))
        return FALSE;
    Add(nID, image, mask);
    CheckState();
    return TRUE;
}
