// The scroll bars: where they are needed, and what their messages and the wheel move.
#include "control/formula_control.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace
{

constexpr int s_nLineStep = 10;  // pixels

// Decisions about the bars that come to an end need at most 9 calls within each other, and 2 in a
// row. Not many more: systems stop sending messages within messages at some depth.
constexpr int s_nRecalcDepth = 16;
constexpr int s_nRestlessLimit = 8;

constexpr int s_anBars[] = { SB_HORZ, SB_VERT };

constexpr int BarBit(int nBar)
{
    return nBar == SB_HORZ ? CFormulaControl::HBAR_ON : CFormulaControl::VBAR_ON;
}

}  // namespace

void CFormulaControl::ClientToFormula(CPoint& point) const
{
    point.Offset(m_Window.GetScrollPosition(SB_HORZ, FALSE),
                 m_Window.GetScrollPosition(SB_VERT, FALSE));
}

CRect CFormulaControl::FormulaToClient(CRect rect) const
{
    rect -= CPoint(m_Window.GetScrollPosition(SB_HORZ, FALSE),
                   m_Window.GetScrollPosition(SB_VERT, FALSE));
    return rect;
}

void CFormulaControl::OnSize()
{
    if (!m_Window.IsWindow())
        return;
    m_Window.Default();
    if (m_nRecalcDepth == 0)
        m_nRestless = 0;
    RecalcScrollBars();
}

// The bit follows the window: the size message that the call brings still finds the old one.
void CFormulaControl::ShowBar(int nBar, BOOL bShow)
{
    for (const int nOne : s_anBars)
    {
        const bool bOn = (m_nScrollBars & BarBit(nOne)) != 0;
        if ((nBar != nOne && nBar != SB_BOTH) || bOn == (bShow != FALSE))
            continue;
        m_Window.EnableScrollBarCtrl(nOne, bShow);
        m_nScrollBars = bShow ? m_nScrollBars | BarBit(nOne) : m_nScrollBars & ~BarBit(nOne);
    }
}

// A bar that is switched changes the client area: the size message decides anew within the
// decision, and the paint that follows decides again. As a bar counts one pixel more than it takes,
// some sizes need bars only while they are on, and would be decided about for ever: that is cut
// off.
void CFormulaControl::RecalcScrollBars()
{
    const bool bTired =
        m_nRestless > s_nRestlessLimit || (m_nRestless == s_nRestlessLimit && m_nScrollBars != 0);
    if (!m_Window.IsWindow() || m_bRecalcStopped || bTired)
        return;
    const bool bOutermost = m_nRecalcDepth == 0;
    m_bSwitched = !bOutermost;
    m_bRecalcStopped = m_nRecalcDepth >= s_nRecalcDepth;
    if (m_bRecalcStopped)
        return;
    m_nRecalcDepth++;
    DecideBars();
    m_nRecalcDepth--;
    if (!bOutermost)
        return;
    m_bRecalcStopped = false;
    m_nRestless = m_bSwitched ? m_nRestless + 1 : 0;
}

// One pass: the vertical bar's room is taken before the widths are compared, and a vertical bar
// that only the horizontal one makes necessary finds no room kept for it.
void CFormulaControl::DecideBars()
{
    CRect space = m_Window.GetClientRect();
    if (space.left == space.right || space.top == space.bottom)
        return;
    const CBarMetrics metrics = m_Window.GetBarMetrics();
    if (IsVBarOn())
        space.right += metrics.cxVScroll + metrics.cxBorder;
    if (IsHBarOn())
        space.bottom += metrics.cyHScroll + metrics.cyBorder;
    if (space.left >= space.right || space.top >= space.bottom)
    {
        m_Window.EnableScrollBarCtrl(SB_BOTH, FALSE);
        return;
    }

    CSize view(space.right, space.bottom);
    const CSize formula = m_rcMeasured.Size();
    if (view.cy < formula.cy)
        view.cx -= metrics.cxVScroll;
    if (view.cx < formula.cx)
        view.cy -= metrics.cyHScroll;

    const bool bVertical = view.cy < formula.cy;
    ShowBar(SB_VERT, bVertical);
    m_nVScrollMax = bVertical ? formula.cy - 1 : 0;
    const bool bHorizontal = view.cx < formula.cx;
    ShowBar(SB_HORZ, bHorizontal);
    m_nHScrollMax = bHorizontal ? formula.cx - 1 : 0;

    m_Window.SetScrollPage(SB_HORZ, m_nHScrollMax >= 1 ? view.cx : 0);
    m_Window.SetScrollPage(SB_VERT, m_nVScrollMax >= 1 ? view.cy : 0);
    m_Window.SetScrollRange(SB_VERT, m_nVScrollMax);
    m_Window.SetScrollRange(SB_HORZ, m_nHScrollMax);
}

// A bar as a scroll message finds it, pixels.
struct CFormulaControl::CScrollState
{
    int nPos;
    int nMax;
    int nPage;
    int nTrack;
};

// Where a code leads; no value: the message is ignored.
struct CFormulaControl::CScrollRule
{
    UINT nCode;
    std::optional<int> (*pfnTarget)(const CScrollState& bar);
};

void CFormulaControl::Scroll(int nBar, UINT nCode, int nMax, int nPage)
{
    using CBar = CScrollState;
    using CTarget = std::optional<int>;
    static constexpr CScrollRule s_aRules[] = {
        { SB_LINEUP,
          [](const CBar& bar) -> CTarget
          {
              return bar.nPos > s_nLineStep ? bar.nPos - s_nLineStep : 0;
          } },
        { SB_LINEDOWN,
          [](const CBar& bar) -> CTarget
          {
              return bar.nPos < bar.nMax - s_nLineStep ? bar.nPos + s_nLineStep : bar.nMax;
          } },
        { SB_PAGEUP,
          [](const CBar& bar) -> CTarget
          {
              return bar.nPos > bar.nPage ? bar.nPos - bar.nPage : 0;
          } },
        { SB_PAGEDOWN,
          [](const CBar& bar) -> CTarget
          {
              return bar.nPos < bar.nMax - bar.nPage ? bar.nPos + bar.nPage : bar.nMax;
          } },
        { SB_THUMBPOSITION,
          [](const CBar& bar) -> CTarget
          {
              return bar.nTrack;
          } },
        { SB_THUMBTRACK,
          [](const CBar& bar) -> CTarget
          {
              return bar.nTrack;
          } },
        { SB_TOP,
          [](const CBar& bar)
          {
              return bar.nPos > 0 ? CTarget(0) : CTarget();
          } },
        { SB_BOTTOM,
          [](const CBar& bar)
          {
              return bar.nPos < bar.nMax ? CTarget(bar.nMax) : CTarget();
          } },
    };
    const auto* pRule = std::ranges::find(s_aRules, nCode, &CScrollRule::nCode);
    if (pRule == std::end(s_aRules))
        return;
    const CTarget target = pRule->pfnTarget({ m_Window.GetScrollPosition(nBar, FALSE), nMax, nPage,
                                              m_Window.GetScrollPosition(nBar, TRUE) });
    if (!target)
        return;
    m_Window.SetScrollPosition(nBar, *target, TRUE);
    m_Window.Invalidate(true);
}

void CFormulaControl::OnHScroll(UINT nCode)
{
    Scroll(SB_HORZ, nCode, m_nHScrollMax, m_Window.GetClientRect().Width());
}

void CFormulaControl::OnVScroll(UINT nCode)
{
    Scroll(SB_VERT, nCode, m_nVScrollMax, m_Window.GetClientRect().Height());
}

// The product wraps as 32-bit arithmetic does; what is less than a notch moves nothing.
LRESULT CFormulaControl::OnMouseWheel(short zDelta)
{
    const bool bPages = m_nWheelLines == WHEEL_PAGESCROLL;
    const UINT nLines = bPages ? 1 : m_nWheelLines;
    const int nSteps = static_cast<int>(nLines * static_cast<UINT>(zDelta)) / WHEEL_DELTA;
    const UINT nUp = bPages ? SB_PAGEUP : SB_LINEUP;
    const UINT nDown = bPages ? SB_PAGEDOWN : SB_LINEDOWN;
    for (int i = 0; i != nSteps; i += nSteps > 0 ? 1 : -1)
        m_Window.PostVScroll(nSteps > 0 ? nUp : nDown);
    return m_Window.Default();
}
