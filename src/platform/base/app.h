// The application object and the message box that goes through it.
#pragma once

#include "platform/base/cmd_target.h"

#ifndef _WIN32
constexpr UINT MB_OK = 0x00;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr int IDOK = 1;
#endif

// One object for a process (or for a library loaded into it); it lives as long as the program.
class CWinApp : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinApp)

public:
    explicit CWinApp(const char* pszAppName = nullptr);
    ~CWinApp() override;

    // Shows a text in the code page that AfxGetMessageCodePage tells meanwhile, and waits for the
    // answer (IDOK and the like). An installed handler is asked instead of the user; without one,
    // Linux writes a line to standard error.
    virtual int DoMessageBox(const char* pszText, UINT nType, UINT nIDPrompt);

    const char* m_pszAppName;  // null: unnamed

private:
    CWinApp* m_pOuter;  // the one that AfxGetApp gave before
};

// The object that was constructed last and still lives; null if there is none.
CWinApp* AfxGetApp();

// A text in code page 936, the library's own.
int AfxMessageBox(const char* pszText, UINT nType = MB_OK, UINT nIDHelp = 0);

// A text with a path in it: both are in the encoding of paths, and are shown as UTF-8.
int AfxPathMessageBox(const char* pszText, UINT nType = MB_OK, UINT nIDHelp = 0);

// A message of the system in its own encoding, shown as UTF-8, with a caption. The caption is for
// the user only, a handler gets the text alone.
int AfxSystemMessageBox(const char* pszText, const char* pszCaption, UINT nType = MB_OK);

extern "C"
{
    // Called instead of showing a message; returns the button (1 for OK). pszText is valid during
    // the call only; pContext is what was given to AfxSetMessageBoxHandler.
    typedef int (*AFX_MESSAGE_BOX_HANDLER)(const char* pszText, unsigned nType, void* pContext);

    // Null takes the handler away.
    void AfxSetMessageBoxHandler(AFX_MESSAGE_BOX_HANDLER pfnHandler, void* pContext);

    // The encoding of the text that a handler is just being given: 65001 (UTF-8) if it names a path
    // or comes from the system, else 936.
    unsigned AfxGetMessageCodePage(void);
}
