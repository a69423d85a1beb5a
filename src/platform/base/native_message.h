// How the system shows a message to the user.
#pragma once

#include "platform/base/types.h"

// A text without a caption (null) is the library's own, code page 936; with one it comes from the
// system, in its code page. Returns the button.
int ShowNativeMessage(const char* pszText, const char* pszCaption, UINT nType);
