// The token of the parser: one character as a string, whose buffer is shared, so that no character
// costs an allocation. And what each character can begin or go on with.
#pragma once

#include <array>
#include <string_view>

#include "platform/base/cstring.h"
#include "platform/base/types.h"

// The string of one character. Code 0 gives a string of length one whose character is a NUL: the
// end mark, which compares like the empty string.
inline CString CharStr(char ch)
{
    return CString::FromChar(ch);
}

// The character that a token compares by; NUL for the end mark and for the empty string.
inline char TokenChar(const CString& strToken)
{
    return *strToken.GetString();
}

inline bool IsToken(const CString* pToken, char ch)
{
    return TokenChar(*pToken) == ch;
}

namespace token
{

enum : BYTE
{
    ccRelation = 1,  // an operator of the lowest level
    ccNumber = 2,    // number of a formula
    ccDecimal = 4,   // number of a calculation
    ccName = 8
};

constexpr std::array<BYTE, 256> MakeClasses()
{
    std::array<BYTE, 256> anClasses{};
    auto add = [&](std::string_view strChars, int nClass)
    {
        for (char ch : strChars)
            anClasses[static_cast<BYTE>(ch)] |= static_cast<BYTE>(nClass);
    };
    add("=+-<>!", ccRelation);
    add("0123456789.", ccNumber | ccDecimal);
    add("%", ccNumber);
    add("abcdefghijklmnopqrstuvwxyz", ccName);
    add("ABCDEFGHIJKLMNOPQRSTUVWXYZ", ccName);
    add("'[]{}|", ccName);
    return anClasses;
}

inline constexpr std::array<BYTE, 256> s_anClasses = MakeClasses();

inline bool IsOfClass(const CString* pToken, BYTE nClass)
{
    return (s_anClasses[static_cast<BYTE>(TokenChar(*pToken))] & nClass) != 0;
}

}  // namespace token

inline bool IsRelation(const CString* pToken)
{
    return token::IsOfClass(pToken, token::ccRelation);
}
inline bool IsNumber(const CString* pToken)
{
    return token::IsOfClass(pToken, token::ccNumber);
}
inline bool IsDecimal(const CString* pToken)
{
    return token::IsOfClass(pToken, token::ccDecimal);
}
inline bool IsName(const CString* pToken)
{
    return token::IsOfClass(pToken, token::ccName);
}
