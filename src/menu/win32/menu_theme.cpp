// The list of styles, and how each sets up and paints the windows of menus.
#include "menu/win32/menu_theme.h"

#include <memory>
#include <optional>
#include <vector>

#include "menu/colour.h"
#include "menu/win32/item_painter.h"
#include "menu/win32/menu_drawing.h"
#include "menu/win32/new_menu.h"
#include "menu/win32/windows_system.h"

namespace
{
constexpr DWORD s_nOwnFrame = 1;  // of m_nFlags

MeasureOperation MeasureOf(EMeasureStyle style)
{
    switch (style)
    {
        case EMeasureStyle::flat:
            return &CNewMenu::MeasureFlatItem;
        case EMeasureStyle::shaded:
            return &CNewMenu::MeasureShadedItem;
        default:
            return &CNewMenu::MeasurePlainItem;
    }
}

DrawOperation DrawOf(EItemStyle style)
{
    switch (style)
    {
        case EItemStyle::raised:
            return &CNewMenu::DrawRaised;
        case EItemStyle::text:
            return &CNewMenu::DrawTextOnly;
        case EItemStyle::shaded:
            return &CNewMenu::DrawShaded;
        case EItemStyle::gradient:
            return &CNewMenu::DrawGradient;
        default:
            return &CNewMenu::DrawFlat;
    }
}

std::unique_ptr<CMenuTheme> MakeTheme(const CMenuStyle& style)
{
    switch (style.m_frame)
    {
        case EFrameStyle::flat:
            return std::make_unique<CMenuThemeXP>(style);
        case EFrameStyle::gradient:
            return std::make_unique<CMenuTheme2003>(style);
        default:
            return std::make_unique<CMenuTheme>(style);
    }
}

class CThemeList
{
public:
    CThemeList()
    {
        for (const CMenuStyle& style : MenuStyles())
            m_themes.push_back(MakeTheme(style));
    }
    CMenuTheme* Find(DWORD nId) const
    {
        for (const auto& pTheme : m_themes)
        {
            if (pTheme->m_nId == nId)
                return pTheme.get();
        }
        return nullptr;
    }
    void Refresh(const CMenuSystem& system) const
    {
        for (const auto& pTheme : m_themes)
        {
            pTheme->RefreshColours(system);
            pTheme->RefreshSizes(system);
        }
    }

private:
    std::vector<std::unique_ptr<CMenuTheme>> m_themes;
};

const CThemeList& Themes()
{
    static const CThemeList s_list;
    return s_list;
}

std::optional<CMenuSystem> s_system;  // read when first asked for
bool s_bSystemOfTest = false;
UINT s_nLook = 1;

DWORD ChangeStyle(DWORD nId, bool bWine)
{
    const DWORD nOld = g_pMenuTheme != nullptr ? g_pMenuTheme->m_nId : DEFAULT_MENU_STYLE;
    if (CMenuTheme* pTheme = Themes().Find(StyleInForce(nId, bWine)))
        g_pMenuTheme = pTheme;
    ++s_nLook;
    return nOld;
}
}  // namespace

// ---- The process

constinit CMenuTheme* g_pMenuTheme = nullptr;

void LoadMenuStyles()
{
    ChangeStyle(DEFAULT_MENU_STYLE, RunsOnWine());
}

const CMenuSystem& GetMenuSystem()
{
    if (!s_system)
    {
        s_system = ReadMenuSystem();
        Themes().Refresh(*s_system);
    }
    return *s_system;
}

void SetMenuSystem(const CMenuSystem* pSystem)
{
    s_bSystemOfTest = pSystem != nullptr;
    s_system.reset();
    ++s_nLook;
    if (pSystem == nullptr)
        return;
    s_system = *pSystem;
    Themes().Refresh(*s_system);
}

void RefreshMenuSystem()
{
    if (s_bSystemOfTest)
        return;
    s_system.reset();
    ++s_nLook;
}

UINT GetMenuLookNumber()
{
    return s_nLook;
}

void ChangeMenuLook()
{
    ++s_nLook;
}

CMenuSettings& GetMenuSettings()
{
    static CMenuSettings s_settings;
    return s_settings;
}

DWORD SetMenuStyle(DWORD nId)
{
    return ChangeStyle(nId, GetMenuSystem().m_bWine);
}

DWORD GetMenuStyle()
{
    return g_pMenuTheme->m_nId;
}

// ---- Any style: a raised frame

CMenuTheme::CMenuTheme(const CMenuStyle& style)
    : m_nId(style.m_nId),
      m_nFlags(style.m_bFrame ? s_nOwnFrame : 0),
      m_pfnMeasureItem(MeasureOf(style.m_measure)),
      m_pfnDrawItem(DrawOf(style.m_item)),
      m_pfnDrawTitle(&CNewMenu::DrawTitleItem)
{
}

bool CMenuTheme::HasFrame() const
{
    return (m_nFlags & s_nOwnFrame) != 0;
}

void CMenuTheme::RefreshColours(const CMenuSystem& system)
{
    m_crBtnFace = system.Colour(COLOR_BTNFACE);
    m_crBtnShadow = system.Colour(COLOR_BTNSHADOW);
    m_crBtnHighlight = system.Colour(COLOR_BTNHIGHLIGHT);
    m_crBtnText = system.Colour(COLOR_BTNTEXT);
    m_crWindowFrame = system.Colour(COLOR_WINDOWFRAME);
}

void CMenuTheme::RefreshSizes(const CMenuSystem& system)
{
    const CFrameSizes sizes = FrameSizes(system.m_bDropShadow);
    m_topLeft = sizes.m_topLeft;
    m_bottomRight = sizes.m_bottomRight;
}

void CMenuTheme::SetUpWindow(CNewMenuHook::CMenuHookData& data)
{
    data.m_nStyle = ::GetWindowLongW(data.m_hWnd, GWL_STYLE);
    data.m_nExStyle = ::GetWindowLongW(data.m_hWnd, GWL_EXSTYLE);
    if (!HasFrame())
        return;
    ::SetWindowLongW(data.m_hWnd, GWL_STYLE, data.m_nStyle & ~WS_BORDER);
    ::SetWindowLongW(data.m_hWnd, GWL_EXSTYLE,
                     data.m_nExStyle & ~(WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE));
    if (GetMenuSettings().m_nOpacity != 255 &&
        GetMenuSystem().m_version >= EWindowsVersion::windows2000)
    {
        CNewMenuHook::MakeLayered(data.m_hWnd);
        ::SetTimer(data.m_hWnd, CNewMenuHook::LAYER_TIMER, 50, nullptr);
    }
}

void CMenuTheme::TakeDownWindow(CNewMenuHook::CMenuHookData& data)
{
    if (!HasFrame())
        return;
    ::KillTimer(data.m_hWnd, CNewMenuHook::LAYER_TIMER);
    // What is shown now stays the system's affair.
    const LONG nShown = ::GetWindowLongW(data.m_hWnd, GWL_STYLE) & WS_VISIBLE;
    ::SetWindowLongW(data.m_hWnd, GWL_STYLE, (data.m_nStyle & ~WS_VISIBLE) | nShown);
    ::SetWindowLongW(data.m_hWnd, GWL_EXSTYLE, data.m_nExStyle);
}

void CMenuTheme::PaintFrame(CDC* pDC, const CNewMenuHook::CMenuHookData& data)
{
    CRect frame = CalcFrameRect(CRect(CPoint(), data.m_rect.Size()));
    pDC->Draw3dRect(&frame, m_crBtnFace, m_crWindowFrame);
    frame.DeflateRect(1, 1);
    pDC->Draw3dRect(&frame, m_crBtnHighlight, m_crBtnShadow);
    PaintWindowShadow(pDC, data);
}

void CMenuTheme::EraseBackground(CDC* pDC, const CRect& client)
{
    FillColour(pDC, client, GetMenuSystem().Colour(COLOR_MENU));
}

void CMenuTheme::CalcClient(RECT* pRect)
{
    *pRect = ClientInside(*pRect, { m_topLeft, m_bottomRight });
}

void CMenuTheme::OnWindowPosition(WINDOWPOS* pPosition)
{
    if (!HasFrame() || (pPosition->flags & SWP_NOSIZE) != 0)
        return;
    const CRect window = MenuWindowRect(
        CRect(CPoint(pPosition->x, pPosition->y), CSize(pPosition->cx, pPosition->cy)),
        GetMenuSystem().m_bDropShadow);
    pPosition->y = window.top;
    pPosition->cx = window.Width();
    pPosition->cy = window.Height();
}

CRect CMenuTheme::CalcFrameRect(const CRect& window)
{
    return FrameInside(window, GetMenuSystem().m_bDropShadow);
}

// Into the room on the right and below; what was on the screen there shows through.
void CMenuTheme::PaintWindowShadow(CDC* pDC, const CNewMenuHook::CMenuHookData& data)
{
    const CMenuSystem& system = GetMenuSystem();
    if (system.m_bDropShadow)
        return;
    const CRect window(CPoint(), data.m_rect.Size());
    if (system.HasFewColours())
    {
        constexpr int nSolid = 2;
        const CRect frame = CalcFrameRect(window);
        data.m_screen.Restore(pDC);
        FillColour(pDC,
                   CRect(frame.right, SHADOW_WIDTH, frame.right + nSolid, frame.bottom + nSolid),
                   m_crBtnShadow);
        FillColour(pDC, CRect(SHADOW_WIDTH, frame.bottom, frame.right, frame.bottom + nSolid),
                   m_crBtnShadow);
        return;
    }
    for (int nLine = 1; nLine <= SHADOW_WIDTH; ++nLine)
    {
        const int x = window.right - nLine;
        const int y = window.bottom - nLine;
        // Each line of the right side ends where that of the lower side begins.
        for (int n = 0; n <= y; ++n)
        {
            pDC->SetPixel(
                x, n,
                DarkenColour(data.m_screen.Pixel(x, n), WindowShadowDarkness(nLine, n, y + 1)));
        }
        for (int n = 0; n < x; ++n)
        {
            pDC->SetPixel(
                n, y,
                DarkenColour(data.m_screen.Pixel(n, y), WindowShadowDarkness(nLine, n, x + 1)));
        }
    }
}

void CMenuTheme::PaintBarShadow(CDC* pDC, const CRect& item)
{
    DrawBarShadow(pDC, item, GetMenuSystem());
}

CGradientColours CMenuTheme::GetGradientColours()
{
    return GradientColours(GetMenuSystem(), m_crBtnHighlight, m_crBtnFace);
}

// ---- Flat styles

void CMenuThemeXP::PaintFrame(CDC* pDC, const CNewMenuHook::CMenuHookData& data)
{
    const CMenuSystem& system = GetMenuSystem();
    const CFrameColours colours =
        FlatFrameColours(system, FlatColoursOn(pDC, system).m_column, HasGradientFrame());
    CRect frame = CalcFrameRect(CRect(CPoint(), data.m_rect.Size()));
    pDC->Draw3dRect(&frame, colours.m_outer, colours.m_outer);
    frame.DeflateRect(1, 1);
    pDC->Draw3dRect(&frame, colours.m_inner, colours.m_inner);
    FillColour(pDC, CRect(frame.left, frame.top, frame.left + 1, frame.bottom),
               colours.m_innerLeft);
    PaintWindowShadow(pDC, data);
}
