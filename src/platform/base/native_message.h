// How the system shows a message to the user, and its encodings.
#pragma once

#include <string>

#include "platform/base/types.h"

constexpr UINT CODE_PAGE_CHINESE = 936;
constexpr UINT CODE_PAGE_UTF8 = 65001;

// What a message has beside its text.
struct CMessageLook
{
    const char* pszCaption = nullptr;    // null: the program's name, where one is shown
    UINT nCodePage = CODE_PAGE_CHINESE;  // of the text; or CODE_PAGE_UTF8
};

// Returns the button.
int ShowNativeMessage(const char* pszText, const CMessageLook& look, UINT nType);

// A text in the encoding of paths, or in that of the system's messages. What is no text in it stays
// as it is where paths are bytes.
std::string PathToUtf8(const char* pszText);
std::string SystemTextToUtf8(const char* pszText);
