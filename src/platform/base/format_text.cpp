// CString::Format: the conversions, by the types that the arguments bring along.
#include <charconv>
#include <iterator>

#include "platform/base/cstring.h"

namespace
{
// The argument's own type decides: a template cannot make a number be read as an address.
void PutArgument(CString& result, char chKind, const CFormatArg& arg)
{
    if (arg.m_eKind == CFormatArg::text)
    {
        result.Append(arg.m_text.data(), static_cast<int>(arg.m_text.size()));
        return;
    }
    if (chKind == 'c')
    {
        result += static_cast<char>(arg.m_nValue);
        return;
    }
    char aDigits[32];
    const auto nUnsigned = static_cast<unsigned long long>(arg.m_nValue);
    const char* pEnd = arg.m_eKind == CFormatArg::signedNumber
                           ? std::to_chars(aDigits, std::end(aDigits), arg.m_nValue).ptr
                           : std::to_chars(aDigits, std::end(aDigits), nUnsigned).ptr;
    result.Append(aDigits, static_cast<int>(pEnd - aDigits));
}
}  // namespace

void CString::FormatArgs(const char* pszFormat, const CFormatArg* pArgs, std::size_t nArgs)
{
    CString result;
    std::size_t nNext = 0;
    for (const char* p = pszFormat != nullptr ? pszFormat : ""; *p != '\0';)
    {
        const auto nPlain = std::strcspn(p, "%");
        result.Append(p, static_cast<int>(nPlain));
        p += nPlain;
        if (*p == '\0')
            break;
        const char chKind = p[1];
        if (chKind == '\0' || std::strchr("sduc", chKind) == nullptr)
        {
            result += '%';  // no conversion: shown as it is
            p += chKind == '%' ? 2 : 1;
            continue;
        }
        if (nNext < nArgs)
            PutArgument(result, chKind, pArgs[nNext++]);
        p += 2;
    }
    Swap(result);
}
