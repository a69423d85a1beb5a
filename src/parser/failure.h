// How a parse and a calculation tell where they ended and what stopped them.
#pragma once

#include <new>

#include "platform/base/cstring.h"
#include "platform/base/exception.h"
#include "platform/base/types.h"

// The words for an exception, which stays the thrower's: those that can occur here are static.
CString DescribeFailure(CException* pException);
CString DescribeNoMemory();

// Position 0 and the bare detail if the token is the end mark. Otherwise the position, and the
// message from pszFormat, which takes the position, with the detail and "!" behind it.
void ReportEnd(WORD nPos, const CString& strToken, const char* pszFormat, const CString& strDetail,
               WORD* pErrorPos, CString* pMessage);

// Runs a job; false, and the words in *pMessage, if an exception stopped it.
template <class Job>
bool RunAndReport(CString* pMessage, Job&& job)
{
    try
    {
        job();
        return true;
    }
    catch (CException* pException)
    {
        *pMessage = DescribeFailure(pException);
    }
    catch (const std::bad_alloc&)
    {
        *pMessage = DescribeNoMemory();
    }
    return false;
}
