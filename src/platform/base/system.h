// Services of the system under its own names. On Windows they are the system's; elsewhere they are
// defined here with the documented meaning of the arguments that are used.
#pragma once

#include "platform/base/types.h"

#ifndef _WIN32

// a * b / c rounded to the nearest, halves away from zero; -1 if c is 0 or the result does not fit.
int MulDiv(int nNumber, int nNumerator, int nDenominator);

// The number of the last failure, an errno value; 0 for none.
DWORD GetLastError();
void SetLastError(DWORD dwError);

constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
constexpr WORD LANG_NEUTRAL = 0;
constexpr WORD SUBLANG_DEFAULT = 1;
constexpr DWORD MAKELANGID(WORD nPrimary, WORD nSub)
{
    return (nSub << 10U) | nPrimary;
}

// The English text for an error number, whatever the locale. With ALLOCATE_BUFFER pszBuffer is the
// address of a char* that receives a block for LocalFree; otherwise it takes nSize bytes. Returns
// the length without the end, 0 if the buffer is too small.
DWORD FormatMessageA(DWORD dwFlags, const void* pSource, DWORD dwMessageId, DWORD dwLanguageId,
                     char* pszBuffer, DWORD nSize, void* pArguments);

constexpr DWORD VER_PLATFORM_WIN32_WINDOWS = 1;
constexpr DWORD VER_PLATFORM_WIN32_NT = 2;
struct OSVERSIONINFOA
{
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    CHAR szCSDVersion[128];
};
// Tells a modern system of the NT line. FALSE if the size field is not the structure's.
BOOL GetVersionExA(OSVERSIONINFOA* pInfo);

constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GMEM_DDESHARE = 0x2000;

// Blocks of memory with a handle. That of a fixed block is its address, a moveable one has an
// address while it is locked. Null is the answer to a failure.
HGLOBAL GlobalAlloc(UINT nFlags, SIZE_T nBytes);
// A fixed block, whose handle changes with its place, and a locked one move only with
// GMEM_MOVEABLE.
HGLOBAL GlobalReAlloc(HGLOBAL hMem, SIZE_T nBytes, UINT nFlags);
HGLOBAL GlobalFree(HGLOBAL hMem);  // null; the handle itself if that fails
void* GlobalLock(HGLOBAL hMem);
BOOL GlobalUnlock(HGLOBAL hMem);  // nonzero while further locks hold it
SIZE_T GlobalSize(HGLOBAL hMem);  // exactly the bytes that were asked for
HLOCAL LocalFree(HLOCAL hMem);

#endif
