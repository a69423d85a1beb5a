// The boxes' widths follow the letters of the status font.
#include "status_line.h"

#include <mivora/mivora.h>

#include <algorithm>

#include "resource.h"

namespace
{
// Widths count widths of a letter; 0 takes what the others leave.
struct CPane
{
    UINT nID;
    int nLetters;
};
constexpr CPane s_aPanes[] = {
    { ID_PANE_MESSAGE, 0 },
    { ID_PANE_NODE, 28 },
    { ID_PANE_CHANGES, 14 },
    { ID_PANE_READ_ONLY, 12 },
};

CSize LetterSize(CWnd* pWnd, CFont* pFont)
{
    CClientDC dc(pWnd);
    CFont* pOld = dc.SelectObject(pFont);
    const CSize size = dc.GetTextExtent("n", 1);
    dc.SelectObject(pOld);
    return size;
}
}  // namespace

bool CStatusLine::Create(CWnd* pFrame, CFont* pFont)
{
    static_assert(std::size(s_aPanes) == PANES);
    constexpr DWORD nStyle = WS_CHILD | WS_VISIBLE | SS_SUNKEN | SS_LEFTNOWORDWRAP | SS_NOPREFIX |
                             SS_CENTERIMAGE | SS_ENDELLIPSIS;
    for (int n = 0; n < PANES; ++n)
    {
        if (!m_aPanes[n].Create("Static", "", nStyle, CRect(), pFrame, s_aPanes[n].nID))
            return false;
        m_aPanes[n].SetFont(pFont);
    }
    m_nHeight = LetterSize(pFrame, pFont).cy + 6;
    return true;
}

// From the right; a narrow window leaves nothing for the first.
void CStatusLine::Place(const CRect& rect)
{
    constexpr int nGap = 2;
    const int nLetter = LetterSize(&m_aPanes[0], m_aPanes[0].GetFont()).cx;
    int nRight = rect.right;
    for (int n = PANES - 1; n >= 0; --n)
    {
        const int nWidth = s_aPanes[n].nLetters * nLetter;
        const int nLeft = nWidth != 0 ? nRight - nWidth : std::min<int>(rect.left, nRight);
        m_aPanes[n].MoveWindow(nLeft, rect.top, nRight - nLeft, rect.Height());
        nRight = nLeft - nGap;
    }
}
