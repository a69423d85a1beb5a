// Byte texts as the wide ones that the system's own calls take.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/base/types.h"

// What is not of the code page becomes its mark for a missing character.
std::wstring ToWide(std::string_view text, UINT nCodePage);
// Nothing if a character is not in the code page.
std::optional<std::string> FromWide(std::wstring_view text, UINT nCodePage);

// The code page that paths are given in: the system's, or UTF-8 (see UsePathsInUtf8).
UINT PathCodePage();
inline std::wstring WidePath(const char* pszPath)
{
    return ToWide(pszPath, PathCodePage());
}
