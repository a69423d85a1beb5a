// The keywords of the formula language and what a parse does with each of them.
#pragma once

#include "format/node_types.h"
#include "platform/base/collections.h"
#include "platform/base/types.h"

// Numbers of the keywords: rows of the table. A keyword is found by prefix and the first hit wins,
// so that each name stands before those that it begins with.
enum EKeyword
{
    KW_NONE,
    KW_ABS,
    KW_SQR,
    KW_SINH,
    KW_COSH,
    KW_TANH,
    KW_COTH,
    KW_ARCTAN,
    KW_ARCCOT,
    KW_LN,
    KW_LOG,
    KW_EXP,
    KW_SIN,
    KW_COS,
    KW_TAN,
    KW_COT,
    KW_ARCSIN,
    KW_ARCCOS,
    KW_INT,
    KW_RAD,
    KW_DEG,
    KW_ARSINH,
    KW_ARCOSH,
    KW_ARTANH,
    KW_ARCOTH,
    KW_NSQR,
    KW_SUM,
    KW_GREEK,
    KW_MARK,
    KW_STR,
    KW_BRACE,
    KW_COUNT
};

enum class EKeywordForm
{
    Direct,     // operand, as the left child of the node
    Bracketed,  // operand, in brackets on the right of the function
    Light,      // the same, without brackets around a leaf
    List,       // up to three items in brackets
    Unit,       // makes way for the name that is read from its last letter on
    Greek,      // operand, its names in the face "Symbol"
    Text,       // any characters in brackets, as a name
    Brace       // two bracket characters and what stands between them
};

// How far the position goes back when a keyword fails, and the letter that the token becomes.
// Neither always leads back to the keyword: the numbers are settled as they stand.
struct CRewind
{
    BYTE nBack;
    char chToken;
};

struct CKeyword
{
    const char* pszName;
    EKeywordForm form;
    ENodeType nType;
    BYTE nKind;
    CRewind noOpen;   // no "(" behind it
    CRewind noClose;  // no ")" behind its list

    EKeyword GetNumber() const;
    int GetLength() const;
};

// The keyword that a text begins with, whatever the case of its letters; null if there is none.
// Reads no further than the first character that differs, so that a NUL bounds it.
const CKeyword* FindKeyword(const char* pszText);

// All names by number, upper case; number 0 is the empty string.
const CStringArray& KeywordNames();
