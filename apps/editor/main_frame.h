// The main window: a line of text, the formula that it makes, and what there is to know about it.
#pragma once

#include <memory>

#include <mivora/control/win32/formula_ctrl.h>
#include <mivora/menu/win32/new_frame.h>
#include <mivora/mivora.h>
#include <mivora/platform/win/edit.h>

#include "document.h"
#include "resource.h"
#include "status_line.h"

class CMainFrame : public CNewFrameWnd
{
    DECLARE_MESSAGE_MAP()

public:
    CMainFrame();

    // Gives the menus of the new window their icons and headings.
    void DressMenus();
    // In the place of what is shown; UTF-8. A file that cannot be opened leaves all as it was.
    void OpenFile(const CString& strPath);

    void RecalcLayout() override;
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    BOOL PreCreateWindow(CREATESTRUCTA& cs) override;

    int OnCreate(LPCREATESTRUCTA pCreate);
    void OnActivate(UINT nState, CWnd* pOther, BOOL bMinimized);
    void OnSetFocus(CWnd* pOld);
    void OnClose();
    LRESULT OnQueryEndSession(WPARAM wParam, LPARAM lParam);

    // The formula.
    void OnFormulaChanged(NMHDR* pHeader, LRESULT* pResult);
    void OnEditSelectAll();
    void OnEditReadOnly();
    void OnUpdateEditReadOnly(CCmdUI* pUI);
    void OnHelpKeys();

    // The look of menus.
    void OnViewMenuStyle(UINT nID);
    void OnUpdateViewMenuStyle(CCmdUI* pUI);

    // Files (file_commands.cpp).
    void OnFileNew();
    void OnFileOpen();
    void OnFileSave();
    void OnFileSaveAs();
    void OnFileExport();
    void OnAppExit();

    // The status line.
    void OnUpdateMessage(CCmdUI* pUI);
    void OnUpdateNode(CCmdUI* pUI);
    void OnUpdateChanges(CCmdUI* pUI);
    void OnUpdateReadOnly(CCmdUI* pUI);

private:
    static constexpr char HINT[] = "Type a formula and press Enter";  // what to do with a new one

    void FormText();
    void MoveFocus();
    void EndEdit();
    bool IsReadOnly() const { return m_formula.GetControl().m_bReadOnly != FALSE; }
    void Show(std::unique_ptr<CEditorDocument> pDocument);
    void ShowTitle();
    bool SaveTo(const CString& strPath);
    bool Save();
    bool SaveAs();
    bool MayGo();

    // The document outlives the control, which holds its tree.
    std::unique_ptr<CEditorDocument> m_pDocument;
    CFont m_textFont;
    CFont m_statusFont;
    CEdit m_text;
    CWnd m_rule;  // between text and formula
    CFormulaCtrl m_formula;
    CStatusLine m_status;
    HWND m_hFocus = nullptr;  // of the child that had the focus when the window was left
    CString m_strMessage;
    int m_nChanges = 0;  // notifications of the control
};
