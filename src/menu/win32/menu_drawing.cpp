// Drawing in memory, brushes, gradients, fonts.
#include "menu/win32/menu_drawing.h"

#include <algorithm>

#include "menu/colour.h"
#include "menu/win32/system_library.h"

IMPLEMENT_DYNAMIC(CNewMemDC, CDC)
IMPLEMENT_DYNAMIC(CNewBrush, CBrush)

// ---- Off the screen

CNewMemDC::CNewMemDC(CDC* pTarget, const CRect& rect) : m_pTarget(pTarget), m_rect(rect)
{
    if (CreateCompatibleDC(pTarget) &&
        m_bitmap.CreateCompatibleBitmap(pTarget, std::max(rect.Width(), 1),
                                        std::max(rect.Height(), 1)))
    {
        m_hOldBitmap = ::SelectObject(m_hDC, m_bitmap);
        SetWindowOrg(rect.left, rect.top);
        return;
    }
    DeleteDC();
    m_hDC = m_hAttribDC = pTarget->GetSafeHdc();
}

CNewMemDC::~CNewMemDC()
{
    if (m_hOldBitmap == nullptr)
    {
        m_hDC = m_hAttribDC = nullptr;
        return;
    }
    ::BitBlt(m_pTarget->GetSafeHdc(), m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(),
             m_hDC, m_rect.left, m_rect.top, SRCCOPY);
    ::SelectObject(m_hDC, m_hOldBitmap);
}

// ---- Brushes and fills

CBrush* CNewBrushList::Brush(COLORREF colour)
{
    static CNewBrushList s_list;
    auto& brushes = s_list.m_brushes;
    const auto found = brushes.find(colour);
    if (found != brushes.end())
        return found->second.get();
    if (brushes.size() >= MOST)
        brushes.clear();
    return (brushes[colour] = std::make_unique<CNewBrush>(colour)).get();
}

void FillColour(CDC* pDC, const CRect& rect, COLORREF colour)
{
    pDC->FillRect(&rect, CNewBrushList::Brush(colour));
}

void FillGradientInBands(CDC* pDC, const CRect& rect, COLORREF first, COLORREF last, bool bVertical)
{
    constexpr int nBand = 2;
    FillColour(pDC, rect, last);
    const int nLength = bVertical ? rect.Height() : rect.Width();
    const int nBands = nLength / nBand;
    // Without brushes that are kept: these colours do not come again.
    for (int n = 0; n < nBands; ++n)
    {
        CRect band = rect;
        if (bVertical)
            band.bottom = (band.top += n * nBand) + nBand;
        else
            band.right = (band.left += n * nBand) + nBand;
        pDC->FillSolidRect(&band, BandColour(first, last, n, nBands));
    }
}

void FillGradient(CDC* pDC, const CRect& rect, COLORREF first, COLORREF last, bool bVertical,
                  const CMenuSystem& system)
{
    // There the function leaks.
    const bool bUsable = system.m_version != EWindowsVersion::windows98;
    if (!bUsable || !FillGradientBySystem(pDC->GetSafeHdc(), rect, first, last, bVertical))
        FillGradientInBands(pDC, rect, first, last, bVertical);
}

CFlatColours FlatColoursOn(CDC* pDC, const CMenuSystem& system)
{
    return FlatColours(system, [=](COLORREF c) { return ::GetNearestColor(*pDC, c); });
}

void DrawBorder(CDC* pDC, const CRect& rect, COLORREF line)
{
    CPen pen(PS_SOLID, 1, line);
    const CSelectScope selectPen(pDC, &pen);
    const CSelectScope selectBrush(pDC, CGdiObject::FromHandle(::GetStockObject(NULL_BRUSH)));
    pDC->Rectangle(&rect);
}

void DrawBox(CDC* pDC, const CRect& rect, COLORREF line, COLORREF fill)
{
    FillColour(pDC, rect, fill);
    DrawBorder(pDC, rect, line);
}

// ---- Texts

namespace
{
struct CMenuFonts
{
    CMenuFonts()
    {
        LOGFONTW menu = {};
        menu.lfHeight = -14;
        menu.lfWeight = FW_NORMAL;
        menu.lfCharSet = DEFAULT_CHARSET;
        ::lstrcpynW(menu.lfFaceName, L"\u5B8B\u4F53", LF_FACESIZE);
        plain.Attach(::CreateFontIndirectW(&menu));
        menu.lfWeight = FW_BOLD;
        bold.Attach(::CreateFontIndirectW(&menu));

        LOGFONTW heading = {};
        heading.lfHeight = 16;
        heading.lfWeight = FW_BOLD;
        ::lstrcpynW(heading.lfFaceName, L"Arial", LF_FACESIZE);
        title.Attach(::CreateFontIndirectW(&heading));
        heading.lfEscapement = heading.lfOrientation = 900;
        vertical.Attach(::CreateFontIndirectW(&heading));
    }
    CFont plain;
    CFont bold;
    CFont title;
    CFont vertical;
};

CMenuFonts& Fonts()
{
    static CMenuFonts s_fonts;
    return s_fonts;
}
}  // namespace

CFont* MenuFont(bool bBold)
{
    return bBold ? &Fonts().bold : &Fonts().plain;
}

CFont* TitleFont(bool bVertical)
{
    return bVertical ? &Fonts().vertical : &Fonts().title;
}

void DrawWideText(CDC* pDC, std::wstring_view text, const CRect& rect, UINT nFormat)
{
    CRect place = rect;
    ::DrawTextW(pDC->GetSafeHdc(), text.data(), static_cast<int>(text.size()), &place, nFormat);
}

CSize WideTextExtent(CDC* pDC, std::wstring_view text, UINT nFormat)
{
    CRect place;
    ::DrawTextW(pDC->GetSafeHdc(), text.data(), static_cast<int>(text.size()), &place,
                nFormat | DT_CALCRECT);
    return place.Size();
}
