// What items, titles and frames are drawn with.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "menu/menu_colours.h"
#include "platform/gdi/dc.h"

// Draws off the screen in the coordinates of the target, which gets the rectangle when this ends.
class CNewMemDC : public CDC
{
    DECLARE_DYNAMIC(CNewMemDC)

public:
    // Where there is no memory for a bitmap, the target is drawn on directly.
    CNewMemDC(CDC* pTarget, const CRect& rect);
    ~CNewMemDC() override;

private:
    CDC* m_pTarget;  // not owned
    CRect m_rect;
    CBitmap m_bitmap;
    HGDIOBJ m_hOldBitmap = nullptr;  // null: this is the target itself
};

class CNewBrush : public CBrush
{
    DECLARE_DYNAMIC(CNewBrush)

public:
    explicit CNewBrush(COLORREF colour) : CBrush(colour) {}
};

// Brushes of colours that come again and again.
class CNewBrushList
{
public:
    // The list's; valid until the next call.
    static CBrush* Brush(COLORREF colour);

private:
    static constexpr std::size_t MOST = 64;
    std::map<COLORREF, std::unique_ptr<CNewBrush>> m_brushes;
};

void FillColour(CDC* pDC, const CRect& rect, COLORREF colour);
// From the left or from the top; in bands where the system can do no better.
void FillGradient(CDC* pDC, const CRect& rect, COLORREF first, COLORREF last, bool bVertical,
                  const CMenuSystem& system);
void FillGradientInBands(CDC* pDC, const CRect& rect, COLORREF first, COLORREF last,
                         bool bVertical);
// As the device shows them.
CFlatColours FlatColoursOn(CDC* pDC, const CMenuSystem& system);
// A rectangle filled with one colour and bordered with another.
void DrawBox(CDC* pDC, const CRect& rect, COLORREF line, COLORREF fill);
void DrawBorder(CDC* pDC, const CRect& rect, COLORREF line);

// The same for every menu, and never to be deleted.
CFont* MenuFont(bool bBold);
CFont* TitleFont(bool bVertical);

// Wide texts: a menu may be in a language that the system's code page has not.
void DrawWideText(CDC* pDC, std::wstring_view text, const CRect& rect, UINT nFormat);
CSize WideTextExtent(CDC* pDC, std::wstring_view text, UINT nFormat);
