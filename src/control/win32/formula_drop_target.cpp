// Drags from OLE, handed on to the control.
#include "control/win32/formula_drop_target.h"

#include "control/win32/formula_ctrl.h"

bool CFormulaDropTarget::s_bRegistering = false;

BOOL CFormulaDropTarget::RegisterOwner(CWnd* pWnd)
{
    if (m_bRegistered || s_bRegistering)
        return FALSE;
    if (pWnd == nullptr || !pWnd->IsKindOf(RUNTIME_CLASS(CFormulaCtrl)))
        return FALSE;
    // Registering can bring messages, and with them this call again.
    struct CRegistering
    {
        CRegistering() { s_bRegistering = true; }
        ~CRegistering() { s_bRegistering = false; }
    } registering;
    m_pOwner = STATIC_DOWNCAST(CFormulaCtrl, pWnd);
    m_bRegistered = Register(pWnd);
    return m_bRegistered;
}

void CFormulaDropTarget::Revoke()
{
    m_bRegistered = FALSE;
    COleDropTarget::Revoke();
}

bool CFormulaDropTarget::IsOwner(const CWnd* pWnd) const
{
    return m_pOwner != nullptr && pWnd->GetSafeHwnd() == m_pOwner->GetSafeHwnd();
}

DROPEFFECT CFormulaDropTarget::OnDragEnter(CWnd* pWnd, COleDataObject* pData, DWORD dwKeyState,
                                           CPoint point)
{
    return IsOwner(pWnd) ? m_pOwner->OnDragEnter(pData, dwKeyState, point) : DROPEFFECT_NONE;
}

DROPEFFECT CFormulaDropTarget::OnDragOver(CWnd* pWnd, COleDataObject* pData, DWORD dwKeyState,
                                          CPoint point)
{
    return IsOwner(pWnd) ? m_pOwner->OnDragOver(pData, dwKeyState, point) : DROPEFFECT_NONE;
}

BOOL CFormulaDropTarget::OnDrop(CWnd* pWnd, COleDataObject* pData, DROPEFFECT dropEffect,
                                CPoint point)
{
    return IsOwner(pWnd) && m_pOwner->OnDrop(pData, dropEffect, point);
}

void CFormulaDropTarget::OnDragLeave(CWnd* pWnd)
{
    if (IsOwner(pWnd))
        m_pOwner->OnDragLeave();
}

DROPEFFECT CFormulaDropTarget::OnDragScroll(CWnd* pWnd, DWORD dwKeyState, CPoint /*point*/)
{
    if (!IsOwner(pWnd))
        return DROPEFFECT_NONE;
    return (dwKeyState & MK_CONTROL) != 0 ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}
