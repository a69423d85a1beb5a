// The token of the parser: one character as a string, taken from a table so that no character
// costs an allocation.
#pragma once

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
    return *static_cast<LPCTSTR>(strToken);
}

inline bool IsToken(const CString* pToken, char ch)
{
    return TokenChar(*pToken) == ch;
}

// What a character can begin or go on with.
bool IsRelationChar(char ch);  // an operator of the lowest level
bool IsNumberChar(char ch);    // number of a formula
bool IsDecimalChar(char ch);   // number of a calculation
bool IsNameChar(char ch);
