// Windows-1252 with a reason for each character that it has not.
#include "facade/typed_text.h"

#include <cstdio>

#include "facade/failure.h"
#include "facade/greek_text.h"
#include "platform/base/code_page.h"

namespace
{
// What stands at an offset: a character, by its number in Unicode, or a byte out of place.
std::string Describe(const std::string& strUtf8, size_t nOffset)
{
    char szText[64];
    size_t nNext = nOffset;
    const char32_t nCharacter = NextUtf8(strUtf8, nNext);
    if (nCharacter == NO_CHARACTER)
    {
        std::snprintf(szText, sizeof szText, "the byte 0x%02X is no UTF-8",
                      static_cast<unsigned char>(strUtf8[nOffset]));
        return szText;
    }
    std::snprintf(szText, sizeof szText, "U+%04X is not in Windows-1252",
                  static_cast<unsigned>(nCharacter));
    const char chSymbol = SymbolLetter(nCharacter);
    return chSymbol == 0 ? szText : std::string(szText) + "; write greek " + chSymbol;
}
}  // namespace

CString TextFromUtf8(const std::string& strUtf8)
{
    std::string strText;
    size_t nBad = 0;
    if (!Utf8ToWindows1252(strUtf8, &strText, &nBad))
    {
        size_t nPosition = 1;
        for (size_t n = 0; n < nBad; ++n)
            nPosition += IsUtf8Tail(strUtf8[n]) ? 0 : 1;
        throw CFailure{ "position " + std::to_string(nPosition) + ": " + Describe(strUtf8, nBad),
                        nPosition };
    }
    return CString(strText.data(), static_cast<int>(strText.size()));
}

std::string Utf8FromText(const CString& strText)
{
    return Windows1252ToUtf8(strText.View());
}
