// A message to the user is a box; wide, so that Chinese shows whatever the system's language is.
#include "platform/base/native_message.h"

#include "platform/base/code_page.h"
#include "platform/base/win32/wide_text.h"

namespace
{
std::wstring ProgramName()
{
    wchar_t szProgram[MAX_PATH] = L"";
    const DWORD nLength = GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
    std::wstring name(szProgram, nLength);
    return name.erase(0, name.rfind(L'\\') + 1);  // npos + 1 is 0
}

std::string ToUtf8(const char* pszText, UINT nCodePage)
{
    return nCodePage == CP_UTF8
               ? pszText
               : FromWide(ToWide(pszText, nCodePage), CP_UTF8).value_or(std::string());
}
}  // namespace

int ShowNativeMessage(const char* pszText, const CMessageLook& look, UINT nType)
{
    const std::string text =
        look.nCodePage == CODE_PAGE_UTF8 ? pszText : CodePage936ToUtf8(pszText);
    const std::wstring caption =
        look.pszCaption != nullptr ? ToWide(look.pszCaption, CP_ACP) : ProgramName();
    return MessageBoxW(nullptr, ToWide(text, CP_UTF8).c_str(), caption.c_str(), nType);
}

std::string PathToUtf8(const char* pszText)
{
    return ToUtf8(pszText, PathCodePage());
}

std::string SystemTextToUtf8(const char* pszText)
{
    return ToUtf8(pszText, CP_ACP);
}
