// Windows-1252 and UTF-8.
#include "platform/base/code_page.h"

namespace
{
// The characters of codes 0x80 to 0x9F; all others are their own code. The five codes without a
// character stand for the control of the same number, as the system's conversion takes them.
constexpr char16_t s_aUpperControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};
}  // namespace

void AppendUtf8(std::string& text, char32_t n)
{
    if (n < 0x80)
    {
        text += static_cast<char>(n);
        return;
    }
    const int nTails = n < 0x800 ? 1 : n < 0x10000 ? 2 : 3;
    constexpr unsigned char aLeads[] = { 0, 0xC0, 0xE0, 0xF0 };
    text += static_cast<char>(aLeads[nTails] | (n >> 6 * nTails & 0x3F));
    for (int i = nTails - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (n >> 6 * i & 0x3F));
}

char32_t NextUtf8(std::string_view text, std::size_t& nPlace)
{
    const auto nFirst = static_cast<unsigned char>(text[nPlace]);
    if (nFirst < 0x80)
    {
        ++nPlace;
        return nFirst;
    }
    const std::size_t nMore = nFirst >= 0xF0 ? 3 : nFirst >= 0xE0 ? 2 : 1;
    if (nFirst < 0xC2 || nFirst > 0xF4 || text.size() - nPlace <= nMore)
        return NO_CHARACTER;
    char32_t n = nFirst & (0x3FU >> nMore);
    for (std::size_t i = 1; i <= nMore; ++i)
    {
        if (!IsUtf8Tail(text[nPlace + i]))
            return NO_CHARACTER;
        n = (n << 6) | (static_cast<unsigned char>(text[nPlace + i]) & 0x3F);
    }
    constexpr char32_t aSmallest[] = { 0, 0x80, 0x800, 0x10000 };
    if (n < aSmallest[nMore] || n > 0x10FFFF || (n >= 0xD800 && n < 0xE000))
        return NO_CHARACTER;
    nPlace += nMore + 1;
    return n;
}

char32_t Windows1252ToUnicode(unsigned char nCode)
{
    return nCode >= 0x80 && nCode < 0xA0 ? s_aUpperControls[nCode - 0x80] : nCode;
}

int UnicodeToWindows1252(char32_t nCharacter)
{
    if (nCharacter < 0x80 || (nCharacter >= 0xA0 && nCharacter < 0x100))
        return static_cast<int>(nCharacter);
    for (int i = 0; i < 32; ++i)
    {
        if (s_aUpperControls[i] == nCharacter)
            return 0x80 + i;
    }
    return -1;
}

std::string Windows1252ToUtf8(std::string_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (const char ch : text)
        AppendUtf8(utf8, Windows1252ToUnicode(static_cast<unsigned char>(ch)));
    return utf8;
}

bool Utf8ToWindows1252(std::string_view utf8, std::string* pText, std::size_t* pnBadOffset)
{
    pText->clear();
    for (std::size_t nPlace = 0; nPlace < utf8.size();)
    {
        const std::size_t nStart = nPlace;
        const char32_t n = NextUtf8(utf8, nPlace);
        const int nCode = n != NO_CHARACTER ? UnicodeToWindows1252(n) : -1;
        if (nCode < 0)
        {
            if (pnBadOffset != nullptr)
                *pnBadOffset = nStart;
            return false;
        }
        *pText += static_cast<char>(nCode);
    }
    return true;
}
