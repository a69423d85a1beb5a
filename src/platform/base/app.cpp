// The application object and the way of a message to the user.
#include "platform/base/app.h"

#include "platform/base/native_message.h"

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace
{
constinit CWinApp* g_pApp = nullptr;
constinit AFX_MESSAGE_BOX_HANDLER g_pfnHandler = nullptr;
constinit void* g_pHandlerContext = nullptr;
// Only the text goes through DoMessageBox; this is what AfxSystemMessageBox has beside it.
constinit const char* g_pszCaption = nullptr;

int ShowMessage(const char* pszText, UINT nType)
{
    if (g_pfnHandler != nullptr)
    {
        return g_pfnHandler(pszText, nType, g_pHandlerContext);
    }
    return ShowNativeMessage(pszText, g_pszCaption, nType);
}
}  // namespace

CWinApp::CWinApp(const char* pszAppName) : m_pszAppName(pszAppName), m_pOuter(g_pApp)
{
    g_pApp = this;
}

CWinApp::~CWinApp()
{
    CWinApp** pp = &g_pApp;
    while (*pp != nullptr && *pp != this)
    {
        pp = &(*pp)->m_pOuter;
    }
    if (*pp != nullptr)
    {
        *pp = m_pOuter;
    }
}

int CWinApp::DoMessageBox(const char* pszText, UINT nType, UINT)
{
    return ShowMessage(pszText, nType);
}

CWinApp* AfxGetApp()
{
    return g_pApp;
}

int AfxMessageBox(const char* pszText, UINT nType, UINT nIDHelp)
{
    if (pszText == nullptr)
    {
        pszText = "";
    }
    CWinApp* pApp = AfxGetApp();
    return pApp != nullptr ? pApp->DoMessageBox(pszText, nType, nIDHelp)
                           : ShowMessage(pszText, nType);
}

int AfxSystemMessageBox(const char* pszText, const char* pszCaption, UINT nType)
{
    struct CCaptionScope
    {
        explicit CCaptionScope(const char* psz) { g_pszCaption = psz; }
        ~CCaptionScope() { g_pszCaption = nullptr; }
    } scope(pszCaption);
    return AfxMessageBox(pszText, nType);
}

void AfxSetMessageBoxHandler(AFX_MESSAGE_BOX_HANDLER pfnHandler, void* pContext)
{
    g_pfnHandler = pfnHandler;
    g_pHandlerContext = pContext;
}
