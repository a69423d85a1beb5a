// A window's device context, or the screen's, as long as the object lives.
#include "platform/base/exception.h"
#include "platform/gdi/dc.h"

IMPLEMENT_DYNAMIC(CClientDC, CDC)

HWND (*g_pfnWindowHandle)(const CWnd*) = nullptr;

CClientDC::CClientDC(CWnd* pWnd)
{
    if (pWnd && g_pfnWindowHandle)
        m_hWnd = g_pfnWindowHandle(pWnd);
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    if (m_hDC)
        ::ReleaseDC(m_hWnd, Detach());
}
