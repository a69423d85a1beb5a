// The device context of a window that is painted; for the inside of one at any time see CClientDC.
#pragma once

#include "platform/gdi/dc.h"

// The part of a window that is to be painted, within WM_PAINT.
class CPaintDC : public CDC
{
    DECLARE_DYNAMIC(CPaintDC)

public:
    // CResourceException if there is no device context to be had.
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps = {};

protected:
    HWND m_hWnd;
};
