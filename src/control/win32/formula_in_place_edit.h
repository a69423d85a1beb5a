// The box of the in-place editor as a window: a child of the control that deletes itself. Its rules
// are those of CInPlaceEdit.
#pragma once

#include "control/in_place_edit.h"
#include "platform/gdi/gdi_objects.h"
#include "platform/win/edit.h"

class CFormulaInPlaceEdit : public CEdit, private CEditBox
{
    DECLARE_MESSAGE_MAP()

public:
    // Does all the work of opening; rect is the place of the node's sign. Without a window the
    // object stays, with no end.
    CFormulaInPlaceEdit(CWnd* pParent, CRect& rect, DWORD dwStyle, UINT nID, CNode* pNode,
                        CString strInitial, UINT nFirstChar);

    void Reposition(CRect& rect);

    // Keeps Alt with a character from becoming a command.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    CInPlaceEdit& GetEdit() { return m_Edit; }

    CFont m_Font;  // made from the node's

protected:
    void PostNcDestroy() override;

    void OnKillFocus(CWnd* pNewWnd);
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    UINT OnGetDlgCode();
    int OnCreate(LPCREATESTRUCTA pCreate);
    void OnUpdate();

private:
    bool Create(const CRect& rect, const LOGFONTA& lf) override;
    void Default() override;
    CString GetText() const override;
    void SetText(const CString& strText) override;
    void SetSel(int nStart, int nEnd) override;
    void GetSel(int& nStart, int& nEnd) const override;
    void SendChar(UINT nChar) override;
    void MoveWindow(const CRect& rect) override;
    void SetFocus() override;
    void FocusParent() override;
    void RedrawParent() override;
    void NotifyAndClose() override;

    CWnd* m_pControl;  // not owned
    DWORD m_dwStyle;   // beside those that every box has
    UINT m_nID;
    CInPlaceEdit m_Edit;
};
