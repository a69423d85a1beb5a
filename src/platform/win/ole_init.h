// OLE on a thread, and its failures as exceptions.
#pragma once

#include "platform/base/exception.h"
#include "platform/win/ole_types.h"

// Makes OLE ready for the calling thread, which pumps messages from then on. Nonzero also if that
// was done before; 0 if the system refuses, as it does on a thread of a multithreaded apartment.
BOOL AfxOleInit();

// Whether AfxOleInit has succeeded on the calling thread and AfxOleTerm was not called since.
BOOL AfxOleIsInitialized();

// Ends what AfxOleInit began, if it did. What this program has put on the clipboard stays there.
// Drop targets of the thread must be revoked before.
void AfxOleTerm();

class COleException : public CException
{
    DECLARE_DYNAMIC(COleException)

public:
    explicit COleException(SCODE sc) : m_sc(sc) {}

    BOOL GetErrorMessage(char* pszError, UINT nMaxError,
                         UINT* pnHelpContext = nullptr) const override;

    SCODE m_sc;
};

// CMemoryException for E_OUTOFMEMORY, COleException for any other code.
[[noreturn]] void AfxThrowOleException(SCODE sc);
