// The message loop.
#include "platform/win/app_pump.h"

#include "platform/win/menu.h"
#include "platform/win/system_call.h"
#include "platform/win/window_proc.h"

IMPLEMENT_DYNAMIC(CWindowApp, CWinApp)

namespace
{
constexpr UINT s_nCaretTimerMessage = 0x118;

constinit thread_local int t_nQuitCode = 0;

// What ends here goes to the user.
template <class R, class F>
R EndingExceptions(R failed, F body)
{
    try
    {
        return body();
    }
    catch (...)
    {
        AfxEndException();
        return failed;
    }
}

template <class F>
BOOL Pump(MSG& message, F preTranslate)
{
    return EndingExceptions(
        TRUE,
        [&]
        {
            if (CallSystem([&] { return ::GetMessageA(&message, nullptr, 0, 0); }) <= 0)
            {
                t_nQuitCode = static_cast<int>(message.wParam);
                return FALSE;
            }
            MSG taken = message;  // a loop within a handler goes on to others
            if (!preTranslate(&taken))
            {
                ::TranslateMessage(&taken);
                CallSystem([&] { return ::DispatchMessageA(&taken); });
            }
            return TRUE;
        });
}

bool IsMessageWaiting()
{
    MSG message;
    return CallSystem([&] { return ::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); }) != 0;
}
}  // namespace

CWindowApp* AfxGetWindowApp()
{
    return DYNAMIC_DOWNCAST(CWindowApp, AfxGetApp());
}

CWnd* AfxGetMainWnd()
{
    const CWindowApp* pApp = AfxGetWindowApp();
    return pApp != nullptr ? pApp->m_pMainWnd : nullptr;
}

int AfxWinMain()
{
    CWindowApp* pApp = AfxGetWindowApp();
    ASSERT(pApp != nullptr);
    if (EndingExceptions(FALSE, [=] { return pApp->InitInstance(); }))
        return pApp->Run();
    if (pApp->m_pMainWnd != nullptr)
    {
        EndingExceptions(FALSE, [=] { return pApp->m_pMainWnd->DestroyWindow(); });
    }
    return pApp->ExitInstance();
}

BOOL AfxPumpMessage()
{
    if (CWindowApp* pApp = AfxGetWindowApp())
        return pApp->PumpMessage();
    MSG message = {};
    return Pump(message, AfxPreTranslateMessage);
}

int AfxQuitCode()
{
    return t_nQuitCode;
}

BOOL AfxPreTranslateMessage(MSG* pMsg)
{
    CWnd* pMain = AfxGetMainWnd();
    const HWND hMain = pMain != nullptr ? pMain->GetSafeHwnd() : nullptr;
    if (pMsg->hwnd == nullptr)
        return FALSE;
    if (CWnd::WalkPreTranslateTree(hMain, pMsg))
        return TRUE;
    // A window beside the main window leaves the main window's accelerators in force.
    pMain = AfxGetMainWnd();
    return pMain != nullptr && CWnd::FromHandle(pMsg->hwnd)->GetTopLevelParent() != pMain &&
           pMain->PreTranslateMessage(pMsg);
}

void AfxMainWindowEnds(CWnd* pWnd)
{
    CWindowApp* pApp = AfxGetWindowApp();
    if (pApp == nullptr || pApp->m_pMainWnd != pWnd)
        return;
    pApp->m_pMainWnd = nullptr;
    ::PostQuitMessage(0);
}

BOOL CWindowApp::InitInstance()
{
    return TRUE;
}

int CWindowApp::ExitInstance()
{
    return t_nQuitCode;
}

BOOL CWindowApp::PumpMessage()
{
    return Pump(m_msgCur, [this](MSG* pMsg) { return PreTranslateMessage(pMsg); });
}

BOOL CWindowApp::PreTranslateMessage(MSG* pMsg)
{
    return AfxPreTranslateMessage(pMsg);
}

BOOL CWindowApp::IsIdleMessage(MSG* pMsg)
{
    return pMsg->message != WM_PAINT && pMsg->message != s_nCaretTimerMessage &&
           pMsg->message != WM_MOUSEMOVE && pMsg->message != WM_NCMOUSEMOVE;
}

BOOL CWindowApp::OnIdle(LONG lCount)
{
    if (lCount == 0 && m_pMainWnd != nullptr && m_pMainWnd->GetSafeHwnd() != nullptr)
    {
        m_pMainWnd->SendMessage(WM_IDLEUPDATECMDUI, TRUE);
        if (m_pMainWnd != nullptr)
            m_pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
    }
    if (lCount == 1)
    {
        CWnd::DeleteTempMap();
        CMenu::DeleteTempMap();
    }
    return lCount < 1;
}

int CWindowApp::Run()
{
    BOOL bIdle = TRUE;
    LONG lIdle = 0;
    for (;;)
    {
        while (bIdle && !IsMessageWaiting())
        {
            bIdle = EndingExceptions(FALSE, [&] { return OnIdle(lIdle++); });
        }
        if (!PumpMessage())
            return ExitInstance();
        if (IsIdleMessage(&m_msgCur))
        {
            bIdle = TRUE;
            lIdle = 0;
        }
    }
}
