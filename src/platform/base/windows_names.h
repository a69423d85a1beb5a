// The Windows headers define some function names as macros for the narrow or the wide one, which
// would rename members of our classes, differently with and without UNICODE. Here those names
// become functions, so that hosts can go on calling them either way. They belong to the file that
// includes them: parts of one program may differ in UNICODE.
#pragma once

#include <windows.h>

#ifdef UNICODE
#define MIVORA_BY_CHARACTER(name) name##W
#else
#define MIVORA_BY_CHARACTER(name) name##A
#endif

#ifdef AppendMenu
#undef AppendMenu
static inline BOOL AppendMenu(HMENU hMenu, UINT nFlags, UINT_PTR nItem, LPCTSTR pszText)
{
    return MIVORA_BY_CHARACTER(AppendMenu)(hMenu, nFlags, nItem, pszText);
}
#endif

#ifdef CreateFontIndirect
#undef CreateFontIndirect
static inline HFONT CreateFontIndirect(const LOGFONT* pFont)
{
    return MIVORA_BY_CHARACTER(CreateFontIndirect)(pFont);
}
#endif

#ifdef DefWindowProc
#undef DefWindowProc
static inline LRESULT CALLBACK DefWindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return MIVORA_BY_CHARACTER(DefWindowProc)(hWnd, nMessage, wParam, lParam);
}
#endif

#ifdef DrawText
#undef DrawText
static inline int DrawText(HDC hDC, LPCTSTR pszText, int nCount, LPRECT pRect, UINT nFormat)
{
    return MIVORA_BY_CHARACTER(DrawText)(hDC, pszText, nCount, pRect, nFormat);
}
#endif

#ifdef ExtTextOut
#undef ExtTextOut
static inline BOOL ExtTextOut(HDC hDC, int x, int y, UINT nOptions, const RECT* pRect,
                              LPCTSTR pszText, UINT nCount, const INT* pDx)
{
    return MIVORA_BY_CHARACTER(ExtTextOut)(hDC, x, y, nOptions, pRect, pszText, nCount, pDx);
}
#endif

#ifdef GetMenuString
#undef GetMenuString
static inline int GetMenuString(HMENU hMenu, UINT nItem, LPTSTR pszText, int nMost, UINT nFlags)
{
    return MIVORA_BY_CHARACTER(GetMenuString)(hMenu, nItem, pszText, nMost, nFlags);
}
#endif

#ifdef GetTextMetrics
#undef GetTextMetrics
static inline BOOL GetTextMetrics(HDC hDC, LPTEXTMETRIC pMetrics)
{
    return MIVORA_BY_CHARACTER(GetTextMetrics)(hDC, pMetrics);
}
#endif

#ifdef GetWindowText
#undef GetWindowText
static inline int GetWindowText(HWND hWnd, LPTSTR pszText, int nMost)
{
    return MIVORA_BY_CHARACTER(GetWindowText)(hWnd, pszText, nMost);
}
#endif

#ifdef GetWindowTextLength
#undef GetWindowTextLength
static inline int GetWindowTextLength(HWND hWnd)
{
    return MIVORA_BY_CHARACTER(GetWindowTextLength)(hWnd);
}
#endif

#ifdef InsertMenu
#undef InsertMenu
static inline BOOL InsertMenu(HMENU hMenu, UINT nPosition, UINT nFlags, UINT_PTR nItem,
                              LPCTSTR pszText)
{
    return MIVORA_BY_CHARACTER(InsertMenu)(hMenu, nPosition, nFlags, nItem, pszText);
}
#endif

#ifdef IsDialogMessage
#undef IsDialogMessage
static inline BOOL IsDialogMessage(HWND hDialog, LPMSG pMsg)
{
    return MIVORA_BY_CHARACTER(IsDialogMessage)(hDialog, pMsg);
}
#endif

#ifdef LoadMenu
#undef LoadMenu
static inline HMENU LoadMenu(HINSTANCE hInstance, LPCTSTR pszName)
{
    return MIVORA_BY_CHARACTER(LoadMenu)(hInstance, pszName);
}
#endif

#ifdef MessageBox
#undef MessageBox
static inline int MessageBox(HWND hWnd, LPCTSTR pszText, LPCTSTR pszCaption, UINT nType)
{
    return MIVORA_BY_CHARACTER(MessageBox)(hWnd, pszText, pszCaption, nType);
}
#endif

#ifdef ModifyMenu
#undef ModifyMenu
static inline BOOL ModifyMenu(HMENU hMenu, UINT nPosition, UINT nFlags, UINT_PTR nItem,
                              LPCTSTR pszText)
{
    return MIVORA_BY_CHARACTER(ModifyMenu)(hMenu, nPosition, nFlags, nItem, pszText);
}
#endif

#ifdef PostMessage
#undef PostMessage
static inline BOOL PostMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return MIVORA_BY_CHARACTER(PostMessage)(hWnd, nMessage, wParam, lParam);
}
#endif

#ifdef SendMessage
#undef SendMessage
static inline LRESULT SendMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return MIVORA_BY_CHARACTER(SendMessage)(hWnd, nMessage, wParam, lParam);
}
#endif

#ifdef SetWindowText
#undef SetWindowText
static inline BOOL SetWindowText(HWND hWnd, LPCTSTR pszText)
{
    return MIVORA_BY_CHARACTER(SetWindowText)(hWnd, pszText);
}
#endif

#undef MIVORA_BY_CHARACTER
