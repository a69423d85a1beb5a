// CString::Format: the conversions, by the types that the arguments bring along.
#include <algorithm>
#include <charconv>
#include <string>

#include "platform/base/cstring.h"

namespace
{
// No text is set wider or with more digits; a template may come from a damaged file.
constexpr int nMaxWidth = 4096;

struct CConversion
{
    bool bLeft = false;
    bool bZero = false;
    bool bPlus = false;
    bool bBlank = false;
    bool bAlternate = false;
    int nWidth = 0;
    int nPrecision = -1;
    char chKind = '\0';
};

int ReadNumber(const char*& p)
{
    int nNumber = 0;
    for (; *p >= '0' && *p <= '9'; ++p)
    {
        nNumber = std::min(nNumber * 10 + (*p - '0'), nMaxWidth);
    }
    return nNumber;
}

// conversion := { flag } [ width ] [ "." precision ] { size } kind; p stands behind the "%".
CConversion ReadConversion(const char*& p)
{
    CConversion conversion;
    for (bool bFlag = true; bFlag; p += bFlag)
    {
        switch (*p)
        {
            case '-':
                conversion.bLeft = true;
                break;
            case '0':
                conversion.bZero = true;
                break;
            case '+':
                conversion.bPlus = true;
                break;
            case ' ':
                conversion.bBlank = true;
                break;
            case '#':
                conversion.bAlternate = true;
                break;
            default:
                bFlag = false;
                break;
        }
    }
    conversion.nWidth = ReadNumber(p);
    if (*p == '.')
    {
        ++p;
        conversion.nPrecision = ReadNumber(p);
    }
    while (*p == 'l' || *p == 'h' || *p == 'z')
    {
        ++p;
    }
    if (*p != '\0')
    {
        conversion.chKind = *p++;
    }
    return conversion;
}

// Bits of the argument in its own size, as an unsigned conversion shows a negative number.
unsigned long long UnsignedValue(const CFormatArg& arg)
{
    const auto nValue = static_cast<unsigned long long>(arg.m_nValue);
    return arg.m_nSize < 8 ? nValue & ((1ULL << (8 * std::max(arg.m_nSize, 4U))) - 1) : nValue;
}

std::string Digits(const CConversion& conversion, const CFormatArg& arg, std::string& prefix)
{
    char aDigits[32];
    const bool bHex = conversion.chKind == 'x' || conversion.chKind == 'X';
    const bool bSigned =
        !bHex && conversion.chKind != 'u' && arg.m_eKind == CFormatArg::signedNumber;
    unsigned long long nValue = UnsignedValue(arg);
    if (bSigned)
    {
        const bool bNegative = arg.m_nValue < 0;
        nValue = static_cast<unsigned long long>(arg.m_nValue);
        nValue = bNegative ? 0 - nValue : nValue;
        prefix = bNegative ? "-" : conversion.bPlus ? "+" : conversion.bBlank ? " " : "";
    }
    const auto end = std::to_chars(aDigits, aDigits + sizeof(aDigits), nValue, bHex ? 16 : 10).ptr;
    std::string digits(aDigits, end);
    if (conversion.chKind == 'X')
    {
        std::transform(digits.begin(), digits.end(), digits.begin(),
                       [](char ch) { return ch >= 'a' ? static_cast<char>(ch - 32) : ch; });
    }
    if (bHex && conversion.bAlternate && nValue != 0)
    {
        prefix = conversion.chKind == 'X' ? "0X" : "0x";
    }
    return digits;
}

std::string NumberText(const CConversion& conversion, const CFormatArg& arg)
{
    std::string prefix;
    std::string digits = Digits(conversion, arg, prefix);
    std::size_t nWanted = 0;
    if (conversion.nPrecision >= 0)
    {
        nWanted = static_cast<std::size_t>(conversion.nPrecision);
    }
    else if (conversion.bZero && !conversion.bLeft)
    {
        nWanted = static_cast<std::size_t>(conversion.nWidth) -
                  std::min(prefix.size(), static_cast<std::size_t>(conversion.nWidth));
    }
    if (digits.size() < nWanted)
    {
        digits.insert(0, nWanted - digits.size(), '0');
    }
    return prefix + digits;
}

void Put(CString& result, const CConversion& conversion, std::string_view text)
{
    const int nLength = static_cast<int>(text.size());
    const int nPadding = std::max(conversion.nWidth - nLength, 0);
    const CString padding(' ', nPadding);
    if (!conversion.bLeft)
    {
        result += padding;
    }
    result.Append(text.data(), nLength);
    if (conversion.bLeft)
    {
        result += padding;
    }
}

void PutArgument(CString& result, const CConversion& conversion, const CFormatArg& arg)
{
    // The argument's own type decides: a template cannot make a number be read as an address.
    if (arg.m_eKind == CFormatArg::text)
    {
        std::string_view text = arg.m_text;
        if (conversion.nPrecision >= 0)
        {
            text = text.substr(0, static_cast<std::size_t>(conversion.nPrecision));
        }
        Put(result, conversion, text);
    }
    else if (conversion.chKind == 'c')
    {
        const char ch = static_cast<char>(arg.m_nValue);
        Put(result, conversion, { &ch, 1 });
    }
    else
    {
        Put(result, conversion, NumberText(conversion, arg));
    }
}
}  // namespace

void CString::FormatArgs(const char* pszFormat, const CFormatArg* pArgs, std::size_t nArgs)
{
    CString result;
    std::size_t nNext = 0;
    for (const char* p = pszFormat != nullptr ? pszFormat : ""; *p != '\0';)
    {
        const char* pStart = p;
        p += std::strcspn(p, "%");
        result.Append(pStart, static_cast<int>(p - pStart));
        if (*p == '\0')
        {
            break;
        }
        pStart = p++;
        const CConversion conversion = ReadConversion(p);
        if (conversion.chKind == '%')
        {
            result += '%';
        }
        else if (conversion.chKind == '\0' || std::strchr("sdiuxXc", conversion.chKind) == nullptr)
        {
            result.Append(pStart, static_cast<int>(p - pStart));  // no conversion: shown as it is
        }
        else if (nNext < nArgs)
        {
            PutArgument(result, conversion, pArgs[nNext++]);
        }
    }
    Swap(result);
}
