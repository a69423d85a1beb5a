// The start and the end of OLE on a thread, and its failures.
#include "platform/win/ole_init.h"

#include "platform/win/ole_data_source.h"

#include <cstdio>

IMPLEMENT_DYNAMIC(COleException, CException)

namespace
{
constinit thread_local bool t_bInitialized = false;
}

BOOL AfxOleInit()
{
    t_bInitialized = t_bInitialized || SUCCEEDED(OleInitialize(nullptr));
    return t_bInitialized;
}

BOOL AfxOleIsInitialized()
{
    return t_bInitialized;
}

void AfxOleTerm()
{
    if (!t_bInitialized)
        return;
    COleDataSource::FlushClipboard();
    t_bInitialized = false;
    OleUninitialize();
}

BOOL COleException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    char szText[64];
    std::snprintf(szText, sizeof szText, "An operation of OLE failed with code 0x%08lX.",
                  static_cast<unsigned long>(m_sc));
    return CopyText(szText, pszError, nMaxError, pnHelpContext);
}

void AfxThrowOleException(SCODE sc)
{
    if (sc == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    throw new COleException(sc);
}
