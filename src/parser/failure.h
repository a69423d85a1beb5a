// How a parse and a calculation tell where they ended and what stopped them.
#pragma once

#include <type_traits>

#include "platform/base/cstring.h"
#include "platform/base/types.h"

// Runs pfn(pContext); false, and the words in *pMessage, if an exception stopped it. The exception
// stays the thrower's: those that can occur here are static.
bool RunAndReport(CString* pMessage, void (*pfn)(void*), void* pContext);

template <class Job>
bool RunAndReport(CString* pMessage, Job&& job)
{
    return RunAndReport(
        pMessage, [](void* p) { (*static_cast<std::remove_reference_t<Job>*>(p))(); }, &job);
}

// Position 0 and the bare detail if the token is the end mark. Otherwise the position, and the
// message from pszFormat, which takes the position, with the detail and "!" behind it.
void ReportEnd(WORD nPos, const CString& strToken, const char* pszFormat, const CString& strDetail,
               WORD* pErrorPos, CString* pMessage);
