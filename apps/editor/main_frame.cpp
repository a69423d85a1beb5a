// The window, its children and who has the focus; editing, view and help; the status line's texts.
#include "main_frame.h"

#include <mivora/nodes/node.h>
#include <mivora/platform/win/cmd_ui.h>
#include <mivora/platform/win/command_ids.h>
#include <mivora/platform/win/message_map.h>
#include <mivora/tree/bin_tree.h>

#include <algorithm>
#include <iterator>

#include "messages.h"

BEGIN_MESSAGE_MAP(CMainFrame, CNewFrameWnd)
ON_WM_CREATE()
ON_WM_ACTIVATE()
ON_WM_SETFOCUS()
ON_WM_CLOSE()
ON_MESSAGE(WM_QUERYENDSESSION, OnQueryEndSession)
ON_NOTIFY(FCN_CHANGED, IDC_FORMULA, OnFormulaChanged)
ON_COMMAND(ID_FILE_NEW, OnFileNew)
ON_COMMAND(ID_FILE_OPEN, OnFileOpen)
ON_COMMAND(ID_FILE_SAVE, OnFileSave)
ON_COMMAND(ID_FILE_SAVE_AS, OnFileSaveAs)
ON_COMMAND(ID_FILE_EXPORT, OnFileExport)
ON_COMMAND(ID_APP_EXIT, OnAppExit)
ON_COMMAND(ID_EDIT_SELECT_ALL, OnEditSelectAll)
ON_COMMAND(ID_EDIT_READ_ONLY, OnEditReadOnly)
ON_UPDATE_COMMAND_UI(ID_EDIT_READ_ONLY, OnUpdateEditReadOnly)
ON_COMMAND_RANGE(ID_VIEW_MENU_STYLE, ID_VIEW_MENU_STYLE + 11, OnViewMenuStyle)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_MENU_STYLE, ID_VIEW_MENU_STYLE + 11, OnUpdateViewMenuStyle)
ON_COMMAND(ID_HELP_KEYS, OnHelpKeys)
ON_UPDATE_COMMAND_UI(ID_PANE_MESSAGE, OnUpdateMessage)
ON_UPDATE_COMMAND_UI(ID_PANE_NODE, OnUpdateNode)
ON_UPDATE_COMMAND_UI(ID_PANE_CHANGES, OnUpdateChanges)
ON_UPDATE_COMMAND_UI(ID_PANE_READ_ONLY, OnUpdateReadOnly)
END_MESSAGE_MAP()

CMainFrame::CMainFrame() : m_pDocument(CEditorDocument::MakeNew()), m_strMessage(HINT) {}

// ---- The window and its children

BOOL CMainFrame::PreCreateWindow(CREATESTRUCTA& cs)
{
    cs.cx = 760;
    cs.cy = 420;
    return CNewFrameWnd::PreCreateWindow(cs);
}

int CMainFrame::OnCreate(LPCREATESTRUCTA pCreate)
{
    if (CNewFrameWnd::OnCreate(pCreate) != 0)
        return -1;
    NONCLIENTMETRICSA metrics = {};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    m_statusFont.CreateFontIndirect(&metrics.lfStatusFont);
    metrics.lfMessageFont.lfHeight = metrics.lfMessageFont.lfHeight * 3 / 2;
    m_textFont.CreateFontIndirect(&metrics.lfMessageFont);

    constexpr DWORD nChild = WS_CHILD | WS_VISIBLE;
    constexpr int nMostCharacters = 65534;  // what a formula may have
    if (!m_text.Create(nChild | WS_TABSTOP | ES_AUTOHSCROLL, CRect(), this, IDC_TEXT_LINE) ||
        !m_rule.Create("Static", "", nChild | SS_ETCHEDHORZ, CRect(), this, IDC_RULE) ||
        !m_formula.Create(this, CRect(), IDC_FORMULA, nChild | WS_TABSTOP) ||
        !m_status.Create(this, &m_statusFont))
        return -1;
    m_text.SetFont(&m_textFont);
    m_text.LimitText(nMostCharacters);
    m_formula.SetTree(&m_pDocument->Tree());
    SetActiveView(&m_formula);
    m_hFocus = m_text;
    ShowTitle();
    return 0;
}

void CMainFrame::RecalcLayout()
{
    constexpr int nMargin = 6;
    CRect rect;
    GetClientRect(&rect);
    LOGFONTA lf;
    m_textFont.GetLogFont(&lf);
    const int nText = std::abs(lf.lfHeight) * 3 / 2;
    m_text.MoveWindow(nMargin, nMargin, rect.right - 2 * nMargin, nText);
    const int nTop = nText + 2 * nMargin;
    const int nBottom = std::max<int>(rect.bottom - m_status.Height(), nTop + 2);
    m_rule.MoveWindow(0, nTop, rect.right, 2);
    m_formula.MoveWindow(0, nTop + 2, rect.right, nBottom - nTop - 2);
    m_status.Place(CRect(0, nBottom, rect.right, nBottom + m_status.Height()));
}

// ---- The focus: it is in the text, in the formula, or in the box that the control opens over a
// node; a program that comes back to the foreground goes on where it was.

void CMainFrame::OnActivate(UINT nState, CWnd* pOther, BOOL bMinimized)
{
    const HWND hFocus = ::GetFocus();
    if (nState == WA_INACTIVE && ::IsChild(m_hWnd, hFocus))
        m_hFocus = hFocus;
    CNewFrameWnd::OnActivate(nState, pOther, bMinimized);
}

// The control's box is gone then: the loss of the focus has ended it.
void CMainFrame::OnSetFocus(CWnd*)
{
    ::SetFocus(::IsChild(m_hWnd, m_hFocus) ? m_hFocus : m_formula.GetSafeHwnd());
}

// An arrow in the formula starts from what is selected, so that something has to be.
void CMainFrame::MoveFocus()
{
    if (::GetFocus() == m_formula)
    {
        m_text.SetFocus();
        return;
    }
    m_formula.SetFocus();
    if (m_pDocument->Tree().GetSelection() == nullptr && !IsReadOnly())
        m_formula.SelectAll();
}

// Keys whose meaning depends on where the focus is; the others are accelerators. In the control's
// box both keys end the edit.
BOOL CMainFrame::PreTranslateMessage(MSG* pMsg)
{
    const bool bText = pMsg->hwnd == m_text;
    const bool bKey = pMsg->message == WM_KEYDOWN && (bText || pMsg->hwnd == m_formula);
    if (bKey && pMsg->wParam == VK_TAB)
        MoveFocus();
    else if (bKey && bText && pMsg->wParam == VK_RETURN)
        FormText();
    else
        return CNewFrameWnd::PreTranslateMessage(pMsg);
    return TRUE;
}

namespace
{
// What the commands are to a box of text.
struct CBoxCommand
{
    UINT nID;
    UINT nMessage;
    LPARAM lParam;
};
constexpr CBoxCommand s_aBoxCommands[] = {
    { ID_EDIT_CUT, WM_CUT, 0 },
    { ID_EDIT_COPY, WM_COPY, 0 },
    { ID_EDIT_PASTE, WM_PASTE, 0 },
    { ID_EDIT_SELECT_ALL, EM_SETSEL, -1 },
};

bool DoInBox(HWND hBox, UINT nID)
{
    const auto* pCommand = std::ranges::find(s_aBoxCommands, nID, &CBoxCommand::nID);
    if (pCommand == std::end(s_aBoxCommands))
        return false;
    ::SendMessageA(hBox, pCommand->nMessage, 0, pCommand->lParam);
    return true;
}
}  // namespace

// Commands go to the active view first, which is the control: it has handlers for cut, copy and
// paste. A box with the focus comes before it: there the user means the text.
BOOL CMainFrame::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    const HWND hFocus = ::GetFocus();
    const bool bInBox = hFocus == m_text || ::IsChild(m_formula, hFocus);
    if (nCode == CN_COMMAND && pHandlerInfo == nullptr && bInBox && DoInBox(hFocus, nID))
        return TRUE;
    return CNewFrameWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

// ---- The formula

// For what works on the whole formula: the control takes the focus, which ends an open edit.
void CMainFrame::EndEdit()
{
    if (::IsChild(m_formula, ::GetFocus()))
        m_formula.SetFocus();
}

// The control has the new tree before the old one goes.
void CMainFrame::Show(std::unique_ptr<CEditorDocument> pDocument)
{
    EndEdit();
    m_formula.SetTree(&pDocument->Tree());
    m_pDocument = std::move(pDocument);
    m_formula.SetScrollPosition(SB_HORZ, 0, FALSE);
    m_formula.SetScrollPosition(SB_VERT, 0, FALSE);
    m_formula.Invalidate();
    ShowTitle();
}

void CMainFrame::FormText()
{
    if (m_pDocument->IsEdited() &&
        ShowMessage("The text takes the place of the formula, which has been edited.",
                    MB_OKCANCEL | MB_ICONQUESTION) != IDOK)
        return;
    CString strText;
    m_text.GetWindowText(strText);
    CParseReport report;
    auto pDocument = CEditorDocument::FromText(strText, *m_pDocument, report);
    if (pDocument == nullptr)
        return;
    Show(std::move(pDocument));
    m_strMessage = report.strMessage;
    if (report.nPosition == 0)
        return;
    // The position counts from 1 in the text without the blanks around it.
    const int nBlanks = strText.GetLength() - CString(strText).TrimLeft().GetLength();
    m_text.SetSel(nBlanks + report.nPosition - 1, nBlanks + report.nPosition);
}

void CMainFrame::OnFormulaChanged(NMHDR*, LRESULT*)
{
    ++m_nChanges;
}

void CMainFrame::OnEditSelectAll()
{
    m_formula.SelectAll();
}

// A selection would stay open to typing.
void CMainFrame::OnEditReadOnly()
{
    EndEdit();
    m_pDocument->Tree().SetSelection(nullptr, PF_NODE);
    m_formula.SetReadOnly(!IsReadOnly());
}

void CMainFrame::OnUpdateEditReadOnly(CCmdUI* pUI)
{
    pUI->SetCheck(IsReadOnly() ? 1 : 0);
}

void CMainFrame::OnHelpKeys()
{
    ShowMessage(
        "Tab\tto and fro between text and formula\n"
        "Enter\tmakes the text the formula\n\n"
        "In the formula:\n"
        "Ctrl+A\tselects everything\n"
        "Left\tgoes to the left part\n"
        "Right\tgoes to the right part\n"
        "Up\tgoes to the whole\n"
        "Space\twith its parts, or alone\n"
        "Delete\tleaves an empty slot\n"
        "A letter\ttypes a name over it\n"
        "Ctrl+X\tcuts\n"
        "Ctrl+C\tcopies\n"
        "Ctrl+V\tpastes into a slot",
        MB_OK | MB_ICONINFORMATION);
}

// ---- The look of menus

// Once the bar is the menu code's: icons for what has one, and a heading over the styles.
void CMainFrame::DressMenus()
{
    constexpr int nView = 2;  // its place in the bar
    CNewMenu& bar = GetNewMenu();
    if (CNewMenu* pView = bar.GetNewSubMenu(nView))
    {
        if (CNewMenu* pStyles = pView->GetNewSubMenu(0))
            pStyles->InsertTitle(0, L"Style of menus", TITLE_GRADIENT);
    }
    bar.LoadToolBar(IDR_ICONS);
}

void CMainFrame::OnViewMenuStyle(UINT nID)
{
    CNewMenu::SetStyle(nID - ID_VIEW_MENU_STYLE);
    RedrawBar();
}

void CMainFrame::OnUpdateViewMenuStyle(CCmdUI* pUI)
{
    pUI->SetRadio(pUI->m_nID - ID_VIEW_MENU_STYLE == CNewMenu::GetStyle());
}

// ---- The status line

void CMainFrame::OnUpdateMessage(CCmdUI* pUI)
{
    pUI->SetText(m_strMessage);
}

void CMainFrame::OnUpdateNode(CCmdUI* pUI)
{
    const CBinTree& tree = m_pDocument->Tree();
    const CNode* pNode = tree.GetSelection();
    if (pNode == nullptr)
    {
        pUI->SetText("nothing selected");
        return;
    }
    const bool bSubtree = tree.GetSelectionMode() == PF_SUBTREE;
    pUI->SetText(pNode->GetTypeName() + (bSubtree ? ", subtree" : ", node"));
}

void CMainFrame::OnUpdateChanges(CCmdUI* pUI)
{
    CString strText;
    strText.Format("changes: %d", m_nChanges);
    pUI->SetText(strText);
}

void CMainFrame::OnUpdateReadOnly(CCmdUI* pUI)
{
    pUI->SetText(IsReadOnly() ? "read-only" : "");
}
