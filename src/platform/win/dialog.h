// Dialogs from a template: in the resources, or in memory.
//
//   class CPageDialog : public CDialog
//   {
//       BOOL OnInitDialog() override
//       {
//           m_page.SubclassDlgItem(IDC_PAGE, this);  // a custom control of the template
//           return CDialog::OnInitDialog();
//       }
//       CPage m_page;
//   };
//   CPageDialog(IDD_PAGE, pParent).DoModal();
#pragma once

#include "platform/win/window.h"

class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)
    DECLARE_MESSAGE_MAP()

public:
    CDialog() = default;
    // For DoModal. The name stays the caller's. Null parent: the main window.
    explicit CDialog(LPCSTR pszTemplate, CWnd* pParent = nullptr);
    explicit CDialog(UINT nTemplate, CWnd* pParent = nullptr);

    // Runs until EndDialog and gives its result; -1 if there is no such template, the dialog could
    // not be made, or the program ended meanwhile. The parent takes no input meanwhile.
    virtual INT_PTR DoModal();
    // A template in memory for DoModal; it stays the caller's and must live till then.
    BOOL InitModalIndirect(const DLGTEMPLATE* pTemplate, CWnd* pParent = nullptr);
    void EndDialog(int nResult);

    // A dialog beside the others. It is destroyed by DestroyWindow: override OnOK and OnCancel.
    virtual BOOL Create(LPCSTR pszTemplate, CWnd* pParent = nullptr);
    BOOL Create(UINT nTemplate, CWnd* pParent = nullptr);
    BOOL CreateIndirect(const DLGTEMPLATE* pTemplate, CWnd* pParent = nullptr);

    // All controls are there. FALSE where the focus has been set.
    virtual BOOL OnInitDialog();
    // Navigation by keys, after the controls have seen the message.
    BOOL PreTranslateMessage(MSG* pMsg) override;
    // Commands without a handler here go on to the parent and to the application.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    // Buttons and keys for IDOK and IDCANCEL; the base ends the dialog with them.
    virtual void OnOK();
    virtual void OnCancel();

private:
    static INT_PTR CALLBACK DialogProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
    BOOL Start(const DLGTEMPLATE* pTemplate, HWND hParent);
    void RunModalLoop();
    void EndModal(HWND hParent, bool bEnableParent);

    LPCSTR m_pszTemplate = nullptr;
    const DLGTEMPLATE* m_pTemplate = nullptr;  // not owned; in the place of m_pszTemplate
    CWnd* m_pParent = nullptr;                 // not owned
    int m_nModalResult = -1;
    bool m_bModal = false;  // in DoModal, and not ended yet
};
