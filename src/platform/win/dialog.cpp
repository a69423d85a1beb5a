// Dialogs: a modeless one of the system each, so that the messages of the modal ones too go through
// the application's loop.
#include "platform/win/dialog.h"

#include "platform/win/app_pump.h"
#include "platform/win/message_map.h"
#include "platform/win/module.h"
#include "platform/win/system_call.h"
#include "platform/win/window_proc.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

namespace
{
// Commands of this program, not those of dialogs and windows.
constexpr UINT s_nFirstCommand = 0x8000;
constexpr UINT s_nLastCommand = 0xEFFF;

// Null if there is none.
const DLGTEMPLATE* FindTemplate(LPCSTR pszName)
{
    const HINSTANCE hModule = AfxFindResourceHandle(pszName, RT_DIALOG);
    const HRSRC hInfo = ::FindResourceA(hModule, pszName, RT_DIALOG);
    const HGLOBAL hTemplate = hInfo != nullptr ? ::LoadResource(hModule, hInfo) : nullptr;
    return hTemplate != nullptr ? static_cast<const DLGTEMPLATE*>(::LockResource(hTemplate))
                                : nullptr;
}

HWND ParentOf(CWnd* pParent)
{
    if (pParent == nullptr)
        pParent = AfxGetMainWnd();
    return pParent != nullptr ? pParent->GetSafeHwnd() : nullptr;
}

// The window that must not take input while a dialog over hWnd runs.
HWND ModalParent(HWND hWnd)
{
    return hWnd != nullptr ? ::GetLastActivePopup(::GetAncestor(hWnd, GA_ROOT)) : nullptr;
}

bool IsInput(UINT nMessage)
{
    return (WM_KEYFIRST <= nMessage && nMessage <= WM_KEYLAST) ||
           (WM_MOUSEFIRST <= nMessage && nMessage <= WM_MOUSELAST);
}

bool IsQueueEmpty()
{
    MSG message;
    return !CallSystem([&] { return ::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); });
}
}  // namespace

CDialog::CDialog(LPCSTR pszTemplate, CWnd* pParent) : m_pszTemplate(pszTemplate), m_pParent(pParent)
{
}

CDialog::CDialog(UINT nTemplate, CWnd* pParent) : CDialog(MAKEINTRESOURCEA(nTemplate), pParent) {}

// ---- Life

INT_PTR CALLBACK CDialog::DialogProc(HWND hWnd, UINT nMessage, WPARAM, LPARAM)
{
    if (nMessage != WM_INITDIALOG)
        return FALSE;
    auto* pDialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
    return pDialog == nullptr || GuardCallback<BOOL>(TRUE, [=] { return pDialog->OnInitDialog(); });
}

BOOL CDialog::Start(const DLGTEMPLATE* pTemplate, HWND hParent)
{
    const CCreateHook hook(this);
    return CallSystem(
        [=]
        {
            return ::CreateDialogIndirectParamA(AfxGetInstanceHandle(), pTemplate, hParent,
                                                DialogProc, 0) != nullptr;
        });
}

BOOL CDialog::Create(LPCSTR pszTemplate, CWnd* pParent)
{
    return CreateIndirect(FindTemplate(pszTemplate), pParent);
}

BOOL CDialog::Create(UINT nTemplate, CWnd* pParent)
{
    return Create(MAKEINTRESOURCEA(nTemplate), pParent);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* pTemplate, CWnd* pParent)
{
    return pTemplate != nullptr && Start(pTemplate, ParentOf(pParent));
}

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* pTemplate, CWnd* pParent)
{
    m_pTemplate = pTemplate;
    m_pParent = pParent;
    return pTemplate != nullptr;
}

INT_PTR CDialog::DoModal()
{
    const DLGTEMPLATE* pTemplate =
        m_pTemplate != nullptr ? m_pTemplate : FindTemplate(m_pszTemplate);
    if (pTemplate == nullptr)
        return -1;
    const HWND hParent = ModalParent(ParentOf(m_pParent));
    const bool bEnableParent = hParent != nullptr && ::IsWindowEnabled(hParent);
    if (bEnableParent)
    {
        CallSystem([=] { return ::EnableWindow(hParent, FALSE); });
    }
    m_nModalResult = -1;
    m_bModal = true;
    try
    {
        if (Start(pTemplate, hParent))
            RunModalLoop();
    }
    catch (...)
    {
        EndModal(hParent, bEnableParent);
        throw;
    }
    EndModal(hParent, bEnableParent);
    return m_nModalResult;
}

// The parent takes input again before the dialog is gone: else another program would come up.
void CDialog::EndModal(HWND hParent, bool bEnableParent)
{
    m_bModal = false;
    if (m_hWnd != nullptr)
    {
        SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    if (bEnableParent)
    {
        CallSystem([=] { return ::EnableWindow(hParent, TRUE); });
    }
    if (m_hWnd == nullptr)
        return;
    if (hParent != nullptr && ::GetActiveWindow() == m_hWnd)
    {
        CallSystem([=] { return ::SetActiveWindow(hParent); });
    }
    DestroyWindow();
}

void CDialog::RunModalLoop()
{
    bool bShow = (GetStyle() & WS_VISIBLE) == 0;
    while (m_bModal && m_hWnd != nullptr)
    {
        if (bShow && IsQueueEmpty())
        {
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
            bShow = false;
        }
        if (!AfxPumpMessage())
        {
            ::PostQuitMessage(AfxQuitCode());  // for the loop around this one
            m_nModalResult = -1;
            return;
        }
    }
}

void CDialog::EndDialog(int nResult)
{
    ASSERT(::IsWindow(m_hWnd));
    m_nModalResult = nResult;
    m_bModal = false;
    PostMessage(WM_NULL);  // the loop may be waiting
    CallSystem([hWnd = m_hWnd, nResult] { return ::EndDialog(hWnd, nResult); });
}

// ---- What may be overridden

BOOL CDialog::OnInitDialog()
{
    return TRUE;
}

void CDialog::OnOK()
{
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::PreTranslateMessage(pMsg) || (IsInput(pMsg->message) && IsDialogMessage(pMsg));
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    const bool bCommand = nCode == CN_COMMAND || nCode == CN_UPDATE_COMMAND_UI;
    if (!bCommand || nID < s_nFirstCommand || nID > s_nLastCommand)
        return FALSE;
    CWnd* pParent = GetParent();
    if (pParent != nullptr && pParent->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    return AfxGetApp() != nullptr && AfxGetApp()->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}
