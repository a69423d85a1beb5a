// The formula control as a target of drags: hands each event on to the control, if it is the
// control's.
#pragma once

#include "platform/win/ole_drop_target.h"

class CFormulaCtrl;

class CFormulaDropTarget : public COleDropTarget
{
public:
    // Called at every size message; the first one registers, and a failure is tried again at the
    // next. FALSE if nothing was registered, or pWnd is no formula control.
    BOOL RegisterOwner(CWnd* pWnd);

    void Revoke() override;
    DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pData, DWORD dwKeyState,
                           CPoint point) override;
    DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pData, DWORD dwKeyState,
                          CPoint point) override;
    BOOL OnDrop(CWnd* pWnd, COleDataObject* pData, DROPEFFECT dropEffect, CPoint point) override;
    void OnDragLeave(CWnd* pWnd) override;
    // A drag does not scroll the control.
    DROPEFFECT OnDragScroll(CWnd* pWnd, DWORD dwKeyState, CPoint point) override;

    CFormulaCtrl* m_pOwner = nullptr;  // not owned
    BOOL m_bRegistered = FALSE;

private:
    bool IsOwner(const CWnd* pWnd) const;

    static bool s_bRegistering;
};
