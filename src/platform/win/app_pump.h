// The application with windows: its message loop.
//
//   class CEditorApp : public CWindowApp
//   {
//       BOOL InitInstance() override;  // makes m_pMainWnd and shows it
//   } theApp;
//   int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) { return AfxWinMain(); }
#pragma once

#include "platform/base/app.h"

class CWnd;

class CWindowApp : public CWinApp
{
    DECLARE_DYNAMIC(CWindowApp)

public:
    explicit CWindowApp(const char* pszAppName = nullptr) : CWinApp(pszAppName) {}

    // FALSE ends the program before its loop.
    virtual BOOL InitInstance();
    // The loop, until WM_QUIT; gives what ExitInstance gives.
    virtual int Run();
    virtual int ExitInstance();
    // Waits for a message and handles it; FALSE for WM_QUIT. An exception of a handler ends here,
    // with a message to the user.
    virtual BOOL PumpMessage();
    // Before a message is dispatched; TRUE ends it there. The windows are asked, from the message's
    // up to the main window.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Whether there may be idle work after the message.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    // While there is no message, with 0, 1, 2, ... as long as it gives TRUE. The base updates what
    // shows commands at 0 and ends temporary objects at 1.
    virtual BOOL OnIdle(LONG lCount);

    CWnd* m_pMainWnd = nullptr;  // not owned; its end is the program's

protected:
    MSG m_msgCur = {};  // taken from the queue last
};

// Sent to the main window and all below it when there is time to update what shows commands.
constexpr UINT WM_IDLEUPDATECMDUI = 0x0363;

// Both null where there is none.
CWindowApp* AfxGetWindowApp();
CWnd* AfxGetMainWnd();

// InitInstance, Run, ExitInstance of the application object.
int AfxWinMain();

// One turn of the application's loop, or of a plain one where there is no application object. A
// loop of the host's own asks AfxPreTranslateMessage before it dispatches.
BOOL AfxPumpMessage();
BOOL AfxPreTranslateMessage(MSG* pMsg);
// The argument of the WM_QUIT for which a pump has given FALSE, for a loop within a loop to pass
// on.
int AfxQuitCode();
