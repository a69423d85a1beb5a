// The application object and the way of a message to the user.
#include "platform/base/app.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/base/native_message.h"

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace
{
constinit CWinApp* g_pApp = nullptr;
constinit AFX_MESSAGE_BOX_HANDLER g_pfnHandler = nullptr;
constinit void* g_pHandlerContext = nullptr;
// Only the text goes through DoMessageBox; this is what stands beside it, of the message at hand.
constinit CMessageLook g_look;

int ShowMessage(const char* pszText, UINT nType)
{
    if (g_pfnHandler != nullptr)
        return g_pfnHandler(pszText, nType, g_pHandlerContext);
    return ShowNativeMessage(pszText, g_look, nType);
}

// A handler may show a message of its own meanwhile.
class CLookScope
{
public:
    explicit CLookScope(const CMessageLook& look) : m_old(g_look) { g_look = look; }
    ~CLookScope() { g_look = m_old; }
    CLookScope(const CLookScope&) = delete;
    CLookScope& operator=(const CLookScope&) = delete;

private:
    CMessageLook m_old;
};

int AskApp(const char* pszText, UINT nType, UINT nIDHelp, const CMessageLook& look)
{
    const CLookScope scope(look);
    CWinApp* pApp = AfxGetApp();
    return pApp != nullptr ? pApp->DoMessageBox(pszText, nType, nIDHelp)
                           : ShowMessage(pszText, nType);
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char ch) { return static_cast<unsigned char>(ch) < 0x80; });
}

// Most texts are UTF-8 as they stand. No memory is asked for then: some tell that there is none.
int AskConverted(const char* pszText, std::string (*pfnConvert)(const char*), UINT nType,
                 UINT nIDHelp, const char* pszCaption)
{
    const CMessageLook look{ pszCaption, CODE_PAGE_UTF8 };
    if (pszText == nullptr || IsAscii(pszText))
        return AskApp(pszText != nullptr ? pszText : "", nType, nIDHelp, look);
    return AskApp(pfnConvert(pszText).c_str(), nType, nIDHelp, look);
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
        pp = &(*pp)->m_pOuter;
    if (*pp != nullptr)
        *pp = m_pOuter;
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
    return AskApp(pszText != nullptr ? pszText : "", nType, nIDHelp, {});
}

int AfxPathMessageBox(const char* pszText, UINT nType, UINT nIDHelp)
{
    return AskConverted(pszText, PathToUtf8, nType, nIDHelp, nullptr);
}

int AfxSystemMessageBox(const char* pszText, const char* pszCaption, UINT nType)
{
    return AskConverted(pszText, SystemTextToUtf8, nType, 0, pszCaption);
}

void AfxSetMessageBoxHandler(AFX_MESSAGE_BOX_HANDLER pfnHandler, void* pContext)
{
    g_pfnHandler = pfnHandler;
    g_pHandlerContext = pContext;
}

unsigned AfxGetMessageCodePage()
{
    return g_look.nCodePage;
}
