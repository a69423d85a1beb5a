// Device contexts of windows.
#include "platform/win/window_dc.h"

#include "platform/base/exception.h"
#include "platform/win/system_call.h"
#include "platform/win/window.h"

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

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

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->GetSafeHwnd() : nullptr)
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowResourceException();
}

CWindowDC::~CWindowDC()
{
    if (m_hDC)
        ::ReleaseDC(m_hWnd, Detach());
}
