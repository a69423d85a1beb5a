// The formula control in a real window, as something that a script can be played on.
#pragma once

#include <memory>

#include "control/script/script_player.h"
#include "control/win32/formula_ctrl.h"
#include "platform/win/ole_data_object.h"
#include "service/formula_out.h"

// What can be seen of a control whose parent was told of nChanges changes.
CControlState StateOf(CFormulaCtrl& ctrl, int nChanges);

// What pMade offers, if it is there, by another source; pMade is gone then.
COleDataSource* Refill(COleDataSource* pMade, UINT nFormat,
                       std::unique_ptr<COleDataSource> pSource);

class CRealControl : public CScriptedControl
{
public:
    // Null: a tree without a root. The window is shown, painted and has the focus.
    CRealControl(const char* pszText, CSize size);
    ~CRealControl() override;

    void Send(const CScriptEvent& event) override;
    DROPEFFECT DragEnter(DWORD dwKeyState, CPoint point) override;
    DROPEFFECT DragOver(DWORD dwKeyState, CPoint point) override;
    void DragLeave() override;
    BOOL Drop(DROPEFFECT dwEffect, CPoint point) override;
    void Settle() override;
    CControlState GetState() const override;

private:
    class CParent;
    class CCtrl;

    CWnd* Editor() const;
    void SendMouse(UINT nMessage, const CScriptEvent& event);
    void SendKey(const CScriptEvent& event);
    void FillClipboard(const CScriptEvent& event);
    COleDataObject* Offer();

    CFormulaOut m_Formula;
    COleDataObject m_Clipboard;
    std::unique_ptr<CParent> m_pParent;
    std::unique_ptr<CCtrl> m_pCtrl;
};
