// A message to the user is a box; wide, so that Chinese shows whatever the system's language is.
#include "platform/base/native_message.h"

#include "platform/base/code_page.h"
#include "platform/base/win32/wide_text.h"

int ShowNativeMessage(const char* pszText, const char* pszCaption, UINT nType)
{
    if (pszCaption != nullptr)
    {
        return MessageBoxW(nullptr, ToWide(pszText, CP_ACP).c_str(),
                           ToWide(pszCaption, CP_ACP).c_str(), nType);
    }
    wchar_t szProgram[MAX_PATH] = L"";
    const DWORD nLength = GetModuleFileNameW(nullptr, szProgram, MAX_PATH);
    std::wstring caption(szProgram, nLength);
    caption.erase(0, caption.rfind(L'\\') + 1);  // npos + 1 is 0
    return MessageBoxW(nullptr, ToWide(CodePage936ToUtf8(pszText), CP_UTF8).c_str(),
                       caption.c_str(), nType);
}
