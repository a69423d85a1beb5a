// Conversions between UTF-8 and the byte texts of the library: Windows-1252 for what is drawn and
// typed, code page 936 for the Chinese messages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The code of a character in Windows-1252, -1 if it has none.
int UnicodeToWindows1252(char32_t nCharacter);
char32_t Windows1252ToUnicode(unsigned char nCode);

std::string Windows1252ToUtf8(std::string_view text);

// False if the text is no UTF-8 or holds a character that Windows-1252 has not; *pnBadOffset is
// then the offset in bytes of the first such place.
bool Utf8ToWindows1252(std::string_view utf8, std::string* pText, std::size_t* pnBadOffset);

constexpr char32_t NO_CHARACTER = 0xFFFFFFFF;

// The character at nPlace, which moves behind it; NO_CHARACTER, and nPlace as it was, if there is
// no well-formed one (overlong forms and surrogates are none).
char32_t NextUtf8(std::string_view text, std::size_t& nPlace);

// Whether a byte goes on a character of UTF-8 that another one began.
constexpr bool IsUtf8Tail(char ch)
{
    return (static_cast<unsigned char>(ch) & 0xC0) == 0x80;
}

void AppendUtf8(std::string& text, char32_t nCharacter);

// Text that is not code page 936 is taken as Windows-1252.
std::string CodePage936ToUtf8(std::string_view text);
