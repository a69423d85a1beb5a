// The plain types, constants and structures of the platform, with the names and sizes that the
// Windows headers give them. There, the Windows headers themselves are used.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "platform/base/windows_names.h"

#else

#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using BOOL = int;
using LONG = std::int32_t;  // 32 bits, as on Windows: files hold it
using ULONG = std::uint32_t;
using CHAR = char;
using FLOAT = float;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using COLORREF = DWORD;  // 0x00BBGGRR
using LPSTR = char*;
using LPCSTR = const char*;
using LPVOID = void*;
using LPARAM = std::intptr_t;
using WPARAM = std::uintptr_t;
using LRESULT = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using SIZE_T = std::size_t;
using HANDLE = void*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
using HWND = struct HWND__*;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue)
{
    return static_cast<COLORREF>(red | (green << 8) | (blue << 16));
}
constexpr BYTE GetRValue(COLORREF colour)
{
    return static_cast<BYTE>(colour);
}
constexpr BYTE GetGValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 8);
}
constexpr BYTE GetBValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 16);
}

struct POINT
{
    LONG x;
    LONG y;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

// Right and bottom are outside.
struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPPOINT = POINT*;

constexpr int LF_FACESIZE = 32;

struct LOGFONTA
{
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
};
using LOGFONT = LOGFONTA;

#endif
