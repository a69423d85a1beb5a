// Device contexts of windows, as long as the object lives; for the inside of a window see
// CClientDC.
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

// A whole window, its frame and caption too, or the screen for null.
class CWindowDC : public CDC
{
    DECLARE_DYNAMIC(CWindowDC)

public:
    // CResourceException if there is no device context to be had.
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

protected:
    HWND m_hWnd;
};
