// Conversions by the system, and the code page of paths.
#include "platform/base/win32/wide_text.h"

#include "platform/base/file.h"

static UINT s_nPathCodePage = CP_ACP;

std::wstring ToWide(std::string_view text, UINT nCodePage)
{
    const int nBytes = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');  // no code page has fewer bytes than wide characters
    const int nWide = MultiByteToWideChar(nCodePage, 0, text.data(), nBytes, wide.data(), nBytes);
    wide.resize(static_cast<std::size_t>(nWide));
    return wide;
}

std::optional<std::string> FromWide(std::wstring_view text, UINT nCodePage)
{
    const int nWide = static_cast<int>(text.size());
    const int nMost = nWide * 4;
    std::string bytes(static_cast<std::size_t>(nMost), '\0');
    BOOL bLost = FALSE;
    // UTF-8 has all characters, and refuses to be asked.
    BOOL* pbLost = nCodePage == CP_UTF8 ? nullptr : &bLost;
    const int nBytes =
        WideCharToMultiByte(nCodePage, nCodePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS, text.data(),
                            nWide, bytes.data(), nMost, nullptr, pbLost);
    if (bLost || (nBytes == 0 && nWide > 0))
        return std::nullopt;
    bytes.resize(static_cast<std::size_t>(nBytes));
    return bytes;
}

UINT PathCodePage()
{
    return s_nPathCodePage;
}

void UsePathsInUtf8()
{
    s_nPathCodePage = CP_UTF8;
}
