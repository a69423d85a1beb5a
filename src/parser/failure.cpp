// The words for what stopped a parse or a calculation.
// The same words stand for both.
#include "parser/failure.h"

#include "parser/token.h"

namespace
{

constexpr const char* s_pszStopped = "Error in Calculation() weil ";
constexpr int s_nMaxReason = 255;  // characters

CString MakeNoMemoryText()
{
    char szReason[s_nMaxReason + 1] = "";
    CMemoryException().GetErrorMessage(szReason, sizeof szReason);
    return CString::Immortal(CString(s_pszStopped) + szReason);
}

// Made before it is needed: then there is no memory for it.
const CString s_strNoMemory = MakeNoMemoryText();

}  // namespace

CString DescribeFailure(CException* pException)
{
    char szReason[s_nMaxReason + 1] = "";
    pException->GetErrorMessage(szReason, sizeof szReason);
    try
    {
        return s_pszStopped + CString(szReason);
    }
    catch (CMemoryException*)  // a static object
    {
        return s_strNoMemory;
    }
}

CString DescribeNoMemory()
{
    return s_strNoMemory;
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
