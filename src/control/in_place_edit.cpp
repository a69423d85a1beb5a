// What the in-place editor does with keys, and how its text goes back into the node.
#include "control/in_place_edit.h"

#include <algorithm>
#include <iterator>

#include "nodes/node.h"

bool CInPlaceEdit::s_bEnding = false;

namespace
{

// Room for the frame and the caret around the node's sign, pixels.
constexpr int s_nMarginX = 10;
constexpr int s_nMarginY = 2;

// What the box shows first, by the first character; the first row that holds it counts.
struct COpening
{
    UINT nFrom;
    UINT nTo;
    bool bSelectAll;  // else the caret is at the end
    bool bType;       // the character is typed into the box
};
constexpr COpening s_aOpenings[] = {
    { EDIT_KEEP_ARROWS, EDIT_KEEP_ARROWS, false, false },
    { VK_BACK, VK_BACK, false, true },
    { VK_TAB, VK_TAB, true, false },
    { VK_RETURN, VK_RETURN, false, false },
    { VK_SPACE, VK_DOWN, true, false },
    { 0, 0xFFFFFFFFU, true, true },
};

const COpening& OpeningFor(UINT nFirstChar)
{
    return *std::ranges::find_if(s_aOpenings, [&](const COpening& row)
                                 { return row.nFrom <= nFirstChar && nFirstChar <= row.nTo; });
}

bool IsArrowOrPage(UINT nChar)
{
    return nChar == VK_PRIOR || nChar == VK_NEXT || (nChar >= VK_LEFT && nChar <= VK_DOWN);
}

}  // namespace

CInPlaceEdit::CInPlaceEdit(CEditBox& box, CNode* pNode, CString strInitial, UINT nFirstChar)
    : m_pNode(pNode),
      m_strInitial(strInitial),
      m_nLastChar(0),
      m_bExitOnArrows(nFirstChar != EDIT_KEEP_ARROWS),
      m_Box(box),
      m_nFirstChar(nFirstChar)
{
}

void CInPlaceEdit::Open(CRect rect)
{
    rect.InflateRect(s_nMarginX, s_nMarginY);
    if (!m_Box.Create(rect, *m_pNode->GetLogFont()))
        return;
    m_Box.SetText(m_strInitial);
    m_Box.SetFocus();
    const COpening& opening = OpeningFor(m_nFirstChar);
    m_Box.SetSel(opening.bSelectAll ? 0 : m_strInitial.GetLength(), -1);
    if (opening.bType)
        m_Box.SendChar(m_nFirstChar);
}

// The selection goes to the beginning and back, so that a box that has grown shows its text from
// the beginning on.
void CInPlaceEdit::Reposition(CRect rect)
{
    rect.InflateRect(s_nMarginX, s_nMarginY);
    m_Box.MoveWindow(rect);
    int nStart = 0;
    int nEnd = 0;
    m_Box.GetSel(nStart, nEnd);
    m_Box.SetSel(0, 0);
    m_Box.SetSel(nStart, nEnd);
}

void CInPlaceEdit::OnUpdate()
{
    if (m_pNode == nullptr)
        return;
    m_pNode->SetSymbol(m_Box.GetText());
    m_Box.RedrawParent();
}

void CInPlaceEdit::OnKillFocus()
{
    m_Box.Default();
    EndEdit();
}

void CInPlaceEdit::OnKeyDown(UINT nChar, bool bControl)
{
    if (IsArrowOrPage(nChar) && (m_bExitOnArrows || bControl))
        LeaveBy(nChar);
    else
        m_Box.Default();
}

void CInPlaceEdit::OnChar(UINT nChar)
{
    if (nChar == VK_ESCAPE)
        m_Box.SetText(m_strInitial);
    if (nChar == VK_TAB || nChar == VK_RETURN || nChar == VK_ESCAPE)
        LeaveBy(nChar);
    else
        m_Box.Default();
}

// Every end goes through the loss of the focus.
void CInPlaceEdit::LeaveBy(UINT nChar)
{
    m_nLastChar = nChar;
    m_Box.FocusParent();
}

void CInPlaceEdit::EndEdit()
{
    if (s_bEnding || m_pNode == nullptr)
        return;
    struct CEnding
    {
        CEnding() { s_bEnding = true; }
        ~CEnding() { s_bEnding = false; }
    } ending;
    m_pNode->SetSymbol(m_Box.GetText());
    m_pNode->m_nFlags &= ~NF_HIDDEN;
    m_Box.NotifyAndClose();
}
