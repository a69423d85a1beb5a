// The words for what stopped a parse or a calculation.
#include "parser/failure.h"

#include <new>

#include "parser/token.h"
#include "platform/base/exception.h"

namespace
{

constexpr int s_nMaxReason = 255;  // characters

CString Describe(const CException& exception)
{
    char szReason[s_nMaxReason + 1] = "";
    exception.GetErrorMessage(szReason, sizeof szReason);
    return "Error in Calculation() weil " + CString(szReason);
}

// Made before it is needed: then there is no memory for it.
const CString s_strNoMemory = CString::Immortal(Describe(CMemoryException()));

}  // namespace

bool RunAndReport(CString* pMessage, void (*pfn)(void*), void* pContext)
{
    try
    {
        pfn(pContext);
        return true;
    }
    catch (CMemoryException*)
    {
        *pMessage = s_strNoMemory;
    }
    catch (const std::bad_alloc&)
    {
        *pMessage = s_strNoMemory;
    }
    catch (CException* pException)
    {
        // The words take memory, which may be what ends.
        RunAndReport(pMessage, [&] { *pMessage = Describe(*pException); });
    }
    return false;
}

void ReportEnd(WORD nPos, const CString& strToken, const char* pszFormat, const CString& strDetail,
               WORD* pErrorPos, CString* pMessage)
{
    if (IsToken(&strToken, '\0'))
    {
        *pMessage = strDetail;
        *pErrorPos = 0;
        return;
    }
    CString strPlace;
    strPlace.Format(pszFormat, nPos);
    *pMessage = strPlace + strDetail + "!";
    *pErrorPos = nPos;
}
