// How the system shows a message to the user.
#pragma once

#include "platform/base/types.h"

// Text and caption (null: none) are bytes of code page 936. Returns the button.
int ShowNativeMessage(const char* pszText, const char* pszCaption, UINT nType);
