// Code page 936 by the system's converter.
#include "platform/base/code_page.h"
#include "platform/base/win32/wide_text.h"

std::string CodePage936ToUtf8(std::string_view text)
{
    constexpr UINT nCodePage = 936;
    const int nBytes = static_cast<int>(text.size());
    if (nBytes > 0 &&
        MultiByteToWideChar(nCodePage, MB_ERR_INVALID_CHARS, text.data(), nBytes, nullptr, 0) == 0)
        return Windows1252ToUtf8(text);
    return FromWide(ToWide(text, nCodePage), CP_UTF8).value_or(std::string());
}
