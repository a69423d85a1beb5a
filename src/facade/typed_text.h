// Texts as users write them, and the bytes of the library.
#pragma once

#include <string>

#include "platform/base/cstring.h"

// UTF-8 as the bytes of the library. Throws CFailure that tells the position of what cannot be
// converted, counted in characters from 1.
CString TextFromUtf8(const std::string& strUtf8);
std::string Utf8FromText(const CString& strText);
