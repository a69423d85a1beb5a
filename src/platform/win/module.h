// Where window classes and resources of this library and of its host are found.
#pragma once

#include "platform/base/types.h"

// The module with this code: the library, or the program that it is linked into. Window classes are
// registered under it.
HINSTANCE AfxGetInstanceHandle();

// Where resources are looked for first: the program.
HINSTANCE AfxGetResourceHandle();
// A further place, as of a library with resources of its own; it stays until the process ends.
void AfxAddResourceModule(HINSTANCE hInstance);
// The first module that has the resource (of any language): the two above, then the module with
// this code. AfxGetResourceHandle if none has it.
HINSTANCE AfxFindResourceHandle(LPCSTR pszName, LPCSTR pszType);

// Makes the class known, if the module has none of that name; FALSE if that fails.
BOOL AfxRegisterClass(const WNDCLASSA* pClass);
// The name of a class with these properties, made if it is the first time; the text stays valid.
// CResourceException if that fails.
LPCSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                           HBRUSH hBackground = nullptr, HICON hIcon = nullptr);
