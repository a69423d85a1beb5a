// The edit box: one message each.
#include "platform/win/edit.h"

#include "platform/win/system_call.h"

IMPLEMENT_DYNAMIC(CEdit, CWnd)

namespace
{
// What asks is a message like any other.
LRESULT Ask(const CEdit* pEdit, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0)
{
    const HWND hWnd = pEdit->GetSafeHwnd();
    ASSERT(::IsWindow(hWnd));
    return CallSystem([=] { return ::SendMessageA(hWnd, nMessage, wParam, lParam); });
}
}  // namespace

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID)
{
    return CWnd::Create("EDIT", nullptr, dwStyle, rect, pParent, nID);
}

void CEdit::Clear()
{
    SendMessage(WM_CLEAR);
}

void CEdit::Copy()
{
    SendMessage(WM_COPY);
}

void CEdit::Cut()
{
    SendMessage(WM_CUT);
}

void CEdit::GetSel(int& nStart, int& nEnd) const
{
    Ask(this, EM_GETSEL, reinterpret_cast<WPARAM>(&nStart), reinterpret_cast<LPARAM>(&nEnd));
}

void CEdit::LimitText(int nMost)
{
    SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(nMost));
}

void CEdit::Paste()
{
    SendMessage(WM_PASTE);
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly)
{
    return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly)) != 0;
}

void CEdit::SetSel(int nStart, int nEnd, BOOL bNoScroll)
{
    SendMessage(EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
    if (!bNoScroll)
        SendMessage(EM_SCROLLCARET);
}

BOOL CEdit::Undo()
{
    return SendMessage(EM_UNDO) != 0;
}
