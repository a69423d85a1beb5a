// The control as its host sees it: tree, read-only state, painting.
#include "control/formula_control.h"

#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "platform/gdi/dc.h"
#include "tree/bin_tree.h"

CFormulaControl::CFormulaControl(CControlWindow& window, UINT nWheelLines)
    : m_nScrollBars(0),
      m_nVScrollMax(0),
      m_nHScrollMax(0),
      m_nWheelLines(nWheelLines),
      m_pInPlaceEdit(nullptr),
      m_pTree(nullptr),
      m_bReadOnly(FALSE),
      m_bCanDrag(FALSE),
      m_bClickedSelected(FALSE),
      m_pHoverNode(nullptr),
      m_Window(window),
      m_nRecalcDepth(0),
      m_bRecalcStopped(false),
      m_bSwitched(false),
      m_nRestless(0),
      m_pDragged(nullptr)
{
}

CFormulaControl::~CFormulaControl()
{
    if (m_pInPlaceEdit != nullptr)
        m_pInPlaceEdit->Abandon();
}

void CFormulaControl::SetTree(CBinTree* pTree)
{
    if (m_pInPlaceEdit != nullptr)
        m_pInPlaceEdit->EndEdit();
    m_pTree = pTree;
}

void CFormulaControl::SetReadOnly(BOOL bReadOnly)
{
    m_bReadOnly = bReadOnly;
    m_Window.Invalidate(true);
}

// The whole formula is painted off the screen, also what is scrolled out of view, so that no
// unfinished picture is ever seen.
void CFormulaControl::OnPaint(CDC* pDC)
{
    const CRect measured = m_pTree != nullptr ? m_pTree->MeasureTree(pDC) : CRect();
    if (!(measured == m_rcMeasured))
        m_nRestless = 0;
    m_rcMeasured = measured;
    const CRect client = m_Window.GetClientRect();
    CRect area;
    area.UnionRect(&client, &m_rcMeasured);
    PaintFormula(pDC, area, client);
    if (m_pInPlaceEdit == nullptr || m_pTree == nullptr)
        return;
    // The box rides on the selected node; a host may have taken the selection away meanwhile.
    const CNode* pNode = m_pTree->GetSelection();
    if (pNode == nullptr)
        pNode = m_pInPlaceEdit->GetNode();
    if (pNode != nullptr)
        m_pInPlaceEdit->Reposition(FormulaToClient(pNode->m_rect));
}

void CFormulaControl::PaintFormula(CDC* pDC, const CRect& area, const CRect& client)
{
    CDC memory;
    memory.CreateCompatibleDC(pDC);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(pDC, area.Width(), area.Height());
    CBitmap* pOldBitmap = memory.SelectObject(&bitmap);
    memory.SetWindowOrg(0, 0);
    memory.FillSolidRect(area, GetSysColor(COLOR_WINDOW));
    OnDraw(&memory);
    pDC->BitBlt(m_rcMeasured.left, m_rcMeasured.top, client.Width(), client.Height(), &memory,
                m_Window.GetScrollPosition(SB_HORZ, FALSE),
                m_Window.GetScrollPosition(SB_VERT, FALSE), SRCCOPY);
    memory.SelectObject(pOldBitmap);
}

void CFormulaControl::OnDraw(CDC* pDC)
{
    const CRect client = m_Window.GetClientRect();
    m_pHoverNode = nullptr;  // the picture has no frame any more
    RecalcScrollBars();
    if (m_pTree != nullptr)
        m_pTree->Draw(pDC, client);
}
