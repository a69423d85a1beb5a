// Device contexts of windows.
#include "platform/win/window_dc.h"

#include "platform/base/exception.h"
#include "platform/win/system_call.h"
#include "platform/win/window.h"

IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    try
    {
        // The window may erase its background first.
        if (!Attach(CallSystem([this] { return ::BeginPaint(m_hWnd, &m_ps); })))
            AfxThrowResourceException();
    }
    catch (...)
    {
        ::EndPaint(m_hWnd, &m_ps);
        throw;
    }
}

CPaintDC::~CPaintDC()
{
    if (m_hDC)
        Detach();
    ::EndPaint(m_hWnd, &m_ps);
}
