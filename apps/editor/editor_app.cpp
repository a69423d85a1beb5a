// The program: one main window, and a file named on the command line in it.
#include <mivora/mivora.h>
#include <mivora/platform/win/app_pump.h>

#include <shellapi.h>

#include "main_frame.h"
#include "messages.h"

namespace
{
class CEditorApp : public CWindowApp
{
public:
    CEditorApp() : CWindowApp("Mivora Editor") {}

    BOOL InitInstance() override
    {
        auto* pFrame = new CMainFrame;  // deletes itself when its window is gone
        m_pMainWnd = pFrame;
        if (!pFrame->LoadFrame(IDR_MAIN_FRAME))
            return FALSE;
        pFrame->DressMenus();
        pFrame->ShowWindow(SW_SHOWDEFAULT);
        pFrame->UpdateWindow();
        int nWords = 0;
        LPWSTR* ppszWords = ::CommandLineToArgvW(::GetCommandLineW(), &nWords);
        if (nWords > 1)
            pFrame->OpenFile(ToUtf8(ppszWords[1]));
        ::LocalFree(ppszWords);
        return TRUE;
    }
};
}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    UsePathsInUtf8();  // of any language, whatever the system's code page is
    // Here and not outside: the library has an application object of its own, and the one that is
    // made last counts.
    CEditorApp app;
    return AfxWinMain();
}
