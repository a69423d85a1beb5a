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

#ifdef CreateFontIndirect
#undef CreateFontIndirect
static inline HFONT CreateFontIndirect(const LOGFONT* pFont)
{
    return MIVORA_BY_CHARACTER(CreateFontIndirect)(pFont);
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

#ifdef GetObject
#undef GetObject
static inline int GetObject(HANDLE hObject, int cbBuffer, LPVOID pBuffer)
{
    return MIVORA_BY_CHARACTER(GetObject)(hObject, cbBuffer, pBuffer);
}
#endif

#ifdef GetTextMetrics
#undef GetTextMetrics
static inline BOOL GetTextMetrics(HDC hDC, LPTEXTMETRIC pMetrics)
{
    return MIVORA_BY_CHARACTER(GetTextMetrics)(hDC, pMetrics);
}
#endif

#ifdef TextOut
#undef TextOut
static inline BOOL TextOut(HDC hDC, int x, int y, LPCTSTR pszText, int nCount)
{
    return MIVORA_BY_CHARACTER(TextOut)(hDC, x, y, pszText, nCount);
}
#endif

#undef MIVORA_BY_CHARACTER
