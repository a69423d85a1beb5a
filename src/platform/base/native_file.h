// Files by the system's own calls. Each operation returns 0 or the system's error number.
#pragma once

#include "platform/base/cstring.h"
#include "platform/base/types.h"

namespace native_file
{
// nOpenFlags are those of CFile; no directory is opened.
int Open(const char* pszPath, UINT nOpenFlags, INT_PTR& hFile);
int Read(INT_PTR hFile, void* pBuffer, UINT nCount, UINT& nRead);
int Write(INT_PTR hFile, const void* pBuffer, UINT nCount);  // all of it
int Seek(INT_PTR hFile, LONGLONG nOffset, UINT nFrom, ULONGLONG& nPosition);
int GetLength(INT_PTR hFile, ULONGLONG& nLength);
int Close(INT_PTR hFile);
int Remove(const char* pszPath);
// Puts a file made by CreateBeside in its target's place.
int Replace(const char* pszNew, const char* pszTarget);

// The cause (of CFileException) of an error with a path.
int CauseOf(int nError, const char* pszPath);

// Where a path ends when links are followed. bReplaceable: a regular file that may be written, or
// nothing, is there, so that a new file can take its place.
int FindTarget(const char* pszPath, CString& strTarget, bool& bReplaceable);

// Creates a new file for writing in the target's folder, with the target's owner and mode if there
// is a target.
int CreateBeside(const char* pszTarget, CString& strTemporary, INT_PTR& hFile);
}  // namespace native_file
