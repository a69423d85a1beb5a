// A message to the user is one line on standard error.
#include "platform/base/native_message.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/base/app.h"
#include "platform/base/code_page.h"

int ShowNativeMessage(const char* pszText, const CMessageLook& look, UINT)
{
    std::string line;
    if (look.pszCaption != nullptr)
        line = std::string(look.pszCaption) + ": ";
    line += look.nCodePage == CODE_PAGE_UTF8 ? pszText : CodePage936ToUtf8(pszText);
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    std::replace_if(
        line.begin(), line.end(), [](char ch) { return ch == '\n' || ch == '\r'; }, ' ');
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
    return IDOK;
}

std::string PathToUtf8(const char* pszText)
{
    return pszText;
}

std::string SystemTextToUtf8(const char* pszText)
{
    return pszText;
}
