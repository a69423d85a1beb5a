// The editor's box as a real window over the node.
#include "control/win32/formula_in_place_edit.h"

#include "control/formula_control.h"
#include "platform/win/message_map.h"
#include "platform/win/system_call.h"

BEGIN_MESSAGE_MAP(CFormulaInPlaceEdit, CEdit)
ON_WM_KILLFOCUS()
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_GETDLGCODE()
ON_WM_CREATE()
ON_CONTROL_REFLECT(EN_UPDATE, OnUpdate)
END_MESSAGE_MAP()

CFormulaInPlaceEdit::CFormulaInPlaceEdit(CWnd* pParent, CRect& rect, DWORD dwStyle, UINT nID,
                                         CNode* pNode, CString strInitial, UINT nFirstChar)
    : m_pControl(pParent),
      m_dwStyle(dwStyle),
      m_nID(nID),
      m_Edit(*this, pNode, strInitial, nFirstChar)
{
    m_Edit.Open(rect);
}

bool CFormulaInPlaceEdit::Create(const CRect& rect, const LOGFONTA& lf)
{
    constexpr DWORD nBoxStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
    if (!CEdit::Create(m_dwStyle | nBoxStyle, rect, m_pControl, m_nID))
        return false;
    m_Font.CreatePointFontIndirect(&lf, nullptr);
    SetFont(&m_Font, TRUE);
    return true;
}

void CFormulaInPlaceEdit::Reposition(CRect& rect)
{
    m_Edit.Reposition(rect);
}

BOOL CFormulaInPlaceEdit::PreTranslateMessage(MSG* pMsg)
{
    return pMsg->message == WM_SYSCHAR || CWnd::PreTranslateMessage(pMsg);
}

void CFormulaInPlaceEdit::PostNcDestroy()
{
    CWnd::PostNcDestroy();
    delete this;
}

// ---- Messages. The box may be gone when a rule returns.

void CFormulaInPlaceEdit::OnKillFocus(CWnd* /*pNewWnd*/)
{
    m_Edit.OnKillFocus();
}

void CFormulaInPlaceEdit::OnChar(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/)
{
    m_Edit.OnChar(nChar);
}

void CFormulaInPlaceEdit::OnKeyDown(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/)
{
    m_Edit.OnKeyDown(nChar, ::GetKeyState(VK_CONTROL) < 0);
}

UINT CFormulaInPlaceEdit::OnGetDlgCode()
{
    return DLGC_WANTALLKEYS;
}

int CFormulaInPlaceEdit::OnCreate(LPCREATESTRUCTA /*pCreate*/)
{
    return static_cast<int>(CEdit::Default());
}

void CFormulaInPlaceEdit::OnUpdate()
{
    m_Edit.OnUpdate();
}

// ---- What the rules ask for

void CFormulaInPlaceEdit::Default()
{
    CEdit::Default();
}

CString CFormulaInPlaceEdit::GetText() const
{
    CString strText;
    GetWindowText(strText);
    return strText;
}

void CFormulaInPlaceEdit::SetText(const CString& strText)
{
    SetWindowText(strText);
}

void CFormulaInPlaceEdit::SetSel(int nStart, int nEnd)
{
    CEdit::SetSel(nStart, nEnd);
}

void CFormulaInPlaceEdit::GetSel(int& nStart, int& nEnd) const
{
    CEdit::GetSel(nStart, nEnd);
}

void CFormulaInPlaceEdit::SendChar(UINT nChar)
{
    SendMessage(WM_CHAR, nChar);
}

void CFormulaInPlaceEdit::MoveWindow(const CRect& rect)
{
    CEdit::MoveWindow(&rect, TRUE);
}

void CFormulaInPlaceEdit::SetFocus()
{
    CEdit::SetFocus();
}

void CFormulaInPlaceEdit::FocusParent()
{
    GetParent()->SetFocus();
}

void CFormulaInPlaceEdit::RedrawParent()
{
    GetParent()->RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// The receiver may take the window away, or throw: the box closes all the same.
void CFormulaInPlaceEdit::NotifyAndClose()
{
    const HWND hWnd = m_hWnd;
    NMHDR header{ hWnd, static_cast<UINT_PTR>(GetDlgCtrlID()), static_cast<UINT>(FCN_CHANGED) };
    if (CWnd* pReceiver = GetOwner())
    {
        GuardCallback<LRESULT>(0,
                               [&] {
                                   return pReceiver->SendMessage(WM_NOTIFY, header.idFrom,
                                                                 reinterpret_cast<LPARAM>(&header));
                               });
    }
    if (::IsWindow(hWnd))
        ::SendMessageA(hWnd, WM_CLOSE, 0, 0);
}
