// Windows of menus are the system's own: a hook of the thread finds them, and a window procedure of
// ours stands before theirs while they are open.
#pragma once

#include <climits>
#include <memory>

#include "platform/gdi/dc.h"

class CMenuTheme;

// What was on the screen where a window comes to stand.
class CScreenPicture
{
public:
    CScreenPicture() = default;
    ~CScreenPicture() { Drop(); }
    CScreenPicture(const CScreenPicture&) = delete;
    CScreenPicture& operator=(const CScreenPicture&) = delete;

    // The strips at the right and lower side of a window that is not shown yet.
    void Take(const CRect& window);
    void Drop();
    // In the window's coordinates. Without a picture: that of a plain background.
    COLORREF Pixel(int x, int y) const;
    void Restore(CDC* pDC) const;

private:
    CBitmap m_bitmap;  // as large as the window
    std::unique_ptr<CDC> m_pDC;
    HGDIOBJ m_hOld = nullptr;
    CSize m_size;
};

class CNewMenuHook
{
public:
    static constexpr UINT_PTR LAYER_TIMER = 4660;
    static constexpr UINT GET_MENU = 481;  // message: which menu a window shows
    static constexpr const char* OLD_PROCEDURE = "OldMenuProc";  // property, and atom

    // Kept for each open window.
    struct CMenuHookData
    {
        HWND m_hWnd = nullptr;
        HMENU m_hMenu = nullptr;
        CMenuTheme* m_pTheme = nullptr;  // not owned; in force when it opened
        WNDPROC m_pfnOld = nullptr;
        ATOM m_nAtom = 0;
        LONG m_nStyle = 0;  // as the system made them
        LONG m_nExStyle = 0;
        CRect m_rect;            // of the window, screen coordinates
        bool m_bPlaced = false;  // m_rect is known
        bool m_bErased = false;
        bool m_bEscape = false;                   // the last key was Escape
        CPoint m_keyPoint{ LONG_MIN, LONG_MIN };  // where the mouse was at the last key
        CScreenPicture m_screen;
    };

    // Null if no procedure of ours stands before this window's.
    static CMenuHookData* Find(HWND hWnd);
    // Where the mouse was when a key was last pressed in a menu of the thread.
    static bool IsMouseWhereKeyWas(CPoint point);

    static void MakeLayered(HWND hWnd);

private:
    friend class CNewMenuThreadHook;

    static void OnHooked(const CWPSTRUCT& message);
    static void TakeOver(HWND hWnd);
    static void TakeOut(HWND hWnd, bool bAtEnd = false);
    static void TakeOutAll();
    static LRESULT CALLBACK MenuProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
    static LRESULT OnMessage(CMenuHookData& data, UINT nMessage, WPARAM wParam, LPARAM lParam);
};

// Of one thread.
class CNewMenuThreadHook
{
public:
    // For this thread, until the library goes. CMemoryException if the system has no hook left.
    static void Need();

    ~CNewMenuThreadHook();
    CNewMenuThreadHook(const CNewMenuThreadHook&) = delete;
    CNewMenuThreadHook& operator=(const CNewMenuThreadHook&) = delete;

    // Ends all hooks, with the windows that are open.
    static void EndAll();
    // For the thread that loads the library; it goes without where there is none to be had.
    static void TryAtLoad();

private:
    CNewMenuThreadHook();
    static bool Set();
    static LRESULT CALLBACK HookProc(int nCode, WPARAM wParam, LPARAM lParam);

    DWORD m_nThread;
    HHOOK m_hHook;
};
