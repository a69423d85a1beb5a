// Keeps exceptions while the system's frames are in the way.
#include "platform/win/system_call.h"

#include "platform/base/app.h"
#include "platform/base/exception.h"

#include <utility>

namespace
{
constinit thread_local CSystemCall* t_pInnermost = nullptr;

// One that nobody will see.
void Forget(std::exception_ptr pKept)
{
    if (pKept == nullptr)
        return;
    try
    {
        std::rethrow_exception(std::move(pKept));
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    catch (...)
    {
    }
}

void TellUser()
{
    try
    {
        throw;
    }
    catch (CException* pException)
    {
        pException->ReportError(MB_OK | MB_ICONEXCLAMATION);
        pException->Delete();
    }
    catch (const std::exception& exception)
    {
        AfxMessageBox(exception.what(), MB_OK | MB_ICONEXCLAMATION);
    }
    catch (...)
    {
        AfxMessageBox("An unknown error occurred.", MB_OK | MB_ICONEXCLAMATION);
    }
}
}  // namespace

CSystemCall::CSystemCall() : m_pOuter(t_pInnermost)
{
    t_pInnermost = this;
}

CSystemCall::~CSystemCall()
{
    if (t_pInnermost == this)
        t_pInnermost = m_pOuter;
    Forget(std::move(m_pKept));
}

void CSystemCall::Finish()
{
    t_pInnermost = m_pOuter;
    if (m_pKept != nullptr)
        std::rethrow_exception(std::exchange(m_pKept, nullptr));
}

void AfxKeepException()
{
    if (t_pInnermost == nullptr)
        AfxEndException();
    else if (t_pInnermost->m_pKept == nullptr)
        t_pInnermost->m_pKept = std::current_exception();
    else
        Forget(std::current_exception());
}

void AfxEndException()
{
    try
    {
        TellUser();
    }
    catch (...)
    {
        // Telling failed: there is no one else to tell.
    }
}
