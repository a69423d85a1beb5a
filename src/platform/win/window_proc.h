// The way of messages from the system to a window's object, for the classes that make windows.
#pragma once

#include "platform/win/window.h"

// What the system calls.
struct CWindowEntry
{
    static LRESULT CALLBACK WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK CreateHook(int nCode, WPARAM wParam, LPARAM lParam);
};

// While it lives, the next window that this thread makes is attached to pWnd and gets its messages
// from the very first one on.
class CCreateHook
{
public:
    // CResourceException if the system has no hook left.
    explicit CCreateHook(CWnd* pWnd);
    ~CCreateHook();
    CCreateHook(const CCreateHook&) = delete;
    CCreateHook& operator=(const CCreateHook&) = delete;

private:
    HHOOK m_hHook;
    CWnd* m_pOuter;  // waits for another window
};

// How many messages this thread is handling, one within the other.
int AfxMessageDepth();

// A window is destroyed: if it is the application's main window, so ends the application.
void AfxMainWindowEnds(CWnd* pWnd);
