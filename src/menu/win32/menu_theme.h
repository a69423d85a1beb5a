// Styles as objects, the style in force, and what else holds for all menus of the process.
#pragma once

#include "menu/frame_layout.h"
#include "menu/menu_colours.h"
#include "menu/menu_settings.h"
#include "menu/menu_style.h"
#include "menu/win32/menu_hook.h"
#include "platform/gdi/dc.h"

class CNewMenu;

// ---- The process

// This machine's, read anew when it says that it changed, or what a test has set.
const CMenuSystem& GetMenuSystem();
// Null: this machine's again.
void SetMenuSystem(const CMenuSystem* pSystem);
// The system said that it changed.
void RefreshMenuSystem();

CMenuSettings& GetMenuSettings();

// Builds the list of styles and chooses the first, when the library is loaded.
void LoadMenuStyles();

class CMenuTheme;
// In force; never null from then on.
extern CMenuTheme* g_pMenuTheme;

// Chooses a style by its number, and gives the one that was in force. An unknown number changes
// nothing.
DWORD SetMenuStyle(DWORD nId);
DWORD GetMenuStyle();

// Counts the changes after which items have other sizes.
UINT GetMenuLookNumber();
void ChangeMenuLook();

// ---- A style

using MeasureOperation = void (CNewMenu::*)(LPMEASUREITEMSTRUCT pMeasure);
using DrawOperation = void (CNewMenu::*)(LPDRAWITEMSTRUCT pDraw);

class CMenuTheme
{
public:
    explicit CMenuTheme(const CMenuStyle& style);
    virtual ~CMenuTheme() = default;
    CMenuTheme(const CMenuTheme&) = delete;
    CMenuTheme& operator=(const CMenuTheme&) = delete;

    // A menu's window opens: its frame becomes ours.
    virtual void SetUpWindow(CNewMenuHook::CMenuHookData& data);
    // And the system's again.
    virtual void TakeDownWindow(CNewMenuHook::CMenuHookData& data);
    virtual bool HasFrame() const;
    virtual void RefreshColours(const CMenuSystem& system);
    virtual void RefreshSizes(const CMenuSystem& system);
    // The window's rectangle begins at (0, 0) of the device context.
    virtual void PaintFrame(CDC* pDC, const CNewMenuHook::CMenuHookData& data);
    virtual void EraseBackground(CDC* pDC, const CRect& client);
    // From the window's rectangle to that of its inside.
    virtual void CalcClient(RECT* pRect);
    virtual void OnWindowPosition(WINDOWPOS* pPosition);
    virtual CRect CalcFrameRect(const CRect& window);
    // Shadows: of a window into the room that its frame leaves, and of an item of a bar.
    virtual void PaintWindowShadow(CDC* pDC, const CNewMenuHook::CMenuHookData& data);
    virtual void PaintBarShadow(CDC* pDC, const CRect& item);
    virtual CGradientColours GetGradientColours();

    DWORD m_nId;
    DWORD m_nFlags;  // bit 0: the skin replaces the window's frame
    MeasureOperation m_pfnMeasureItem;
    DrawOperation m_pfnDrawItem;
    DrawOperation m_pfnDrawTitle;
    CSize m_topLeft;  // of the frame
    CSize m_bottomRight;
    COLORREF m_crBtnFace = 0;
    COLORREF m_crBtnShadow = 0;
    COLORREF m_crBtnHighlight = 0;
    COLORREF m_crBtnText = 0;
    COLORREF m_crWindowFrame = 0;
};

// A flat frame.
class CMenuThemeXP : public CMenuTheme
{
public:
    using CMenuTheme::CMenuTheme;
    void PaintFrame(CDC* pDC, const CNewMenuHook::CMenuHookData& data) override;

protected:
    virtual bool HasGradientFrame() const { return false; }
};

// A flat frame that goes with the gradient.
class CMenuTheme2003 : public CMenuThemeXP
{
public:
    using CMenuThemeXP::CMenuThemeXP;

protected:
    bool HasGradientFrame() const override { return true; }
};
