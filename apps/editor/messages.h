// What is told to the user in boxes, and the texts in them: paths are UTF-8 throughout the program,
// and the system takes them as wide ones.
#pragma once

#include <string>

#include <mivora/mivora.h>

std::wstring ToWide(const CString& strUtf8);
CString ToUtf8(const wchar_t* pszText);
// In the system's code page, for the texts of windows; what that does not have becomes a mark.
CString ToNarrow(const CString& strUtf8);

// Over the main window; MB_ constants, IDYES and the like.
int ShowMessage(const CString& strUtf8, UINT nType = MB_OK | MB_ICONEXCLAMATION);

// The last part of a path.
CString FileName(const CString& strPath);
