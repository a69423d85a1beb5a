// The table of keywords, and the search in it.
#include "parser/keywords.h"

#include <array>
#include <string_view>

#include "platform/base/cstring.h"

namespace
{

using enum EKeywordForm;

constexpr CRewind s_never = { 0, 0 };

// clang-format off
constexpr CKeyword s_aKeywords[KW_COUNT] = {
    // name     form       node type     kind  no "("    no ")"
    { "",       Direct,    NTI_STANDARD, 0,    s_never,  s_never },
    { "ABS",    Direct,    NTI_BRACE,    4,    s_never,  s_never },
    { "SQR",    Direct,    NTI_ROOT,     0,    s_never,  s_never },
    { "SINH",   Bracketed, NTI_FUNC,     8,    s_never,  s_never },
    { "COSH",   Bracketed, NTI_FUNC,     9,    s_never,  s_never },
    { "TANH",   Bracketed, NTI_FUNC,     10,   s_never,  s_never },
    { "COTH",   Bracketed, NTI_FUNC,     11,   s_never,  s_never },
    { "ARCTAN", Bracketed, NTI_FUNC,     6,    s_never,  s_never },
    { "ARCCOT", Bracketed, NTI_FUNC,     7,    s_never,  s_never },
    { "LN",     Light,     NTI_FUNC,     17,   s_never,  s_never },
    { "LOG",    Light,     NTI_FUNC,     19,   s_never,  s_never },
    { "EXP",    Bracketed, NTI_FUNC,     16,   s_never,  s_never },
    { "SIN",    Light,     NTI_FUNC,     0,    s_never,  s_never },
    { "COS",    Light,     NTI_FUNC,     1,    s_never,  s_never },
    { "TAN",    Light,     NTI_FUNC,     2,    s_never,  s_never },
    { "COT",    Light,     NTI_FUNC,     3,    s_never,  s_never },
    { "ARCSIN", Bracketed, NTI_FUNC,     4,    s_never,  s_never },
    { "ARCCOS", Bracketed, NTI_FUNC,     5,    s_never,  s_never },
    { "INT",    List,      NTI_INTEGRAL, 0,    { 9, 'i' }, { 9, 'i' } },
    { "RAD",    Unit,      NTI_VARIABLE, 0,    s_never,  s_never },
    { "DEG",    Unit,      NTI_VARIABLE, 0,    s_never,  s_never },
    { "ARSINH", Bracketed, NTI_FUNC,     12,   s_never,  s_never },
    { "ARCOSH", Bracketed, NTI_FUNC,     13,   s_never,  s_never },
    { "ARTANH", Bracketed, NTI_FUNC,     14,   s_never,  s_never },
    { "ARCOTH", Bracketed, NTI_FUNC,     15,   s_never,  s_never },
    { "NSQR",   List,      NTI_NTHROOT,  0,    { 5, 'n' }, { 5, 'n' } },
    { "SUM",    List,      NTI_SUM,      0,    { 4, 's' }, { 4, 's' } },
    { "GREEK",  Greek,     NTI_VARIABLE, 0,    s_never,  s_never },
    { "MARK",   List,      NTI_INDEX,    0,    { 5, 'm' }, { 4, 's' } },
    { "STR",    Text,      NTI_VARIABLE, 0,    { 4, 's' }, s_never },
    { "BRACE",  Brace,     NTI_BRACE,    0,    { 6, 'b' }, s_never },
};
// clang-format on

constexpr char ToLower(char ch)
{
    return static_cast<char>(ch | 0x20);  // no other byte becomes a letter by this
}

// The keywords with the same first letter, in the order of the table: s_anFirst by letter, then
// s_anNext by keyword, 0 at the end.
constexpr int s_nLetters = 26;
struct CKeywordIndex
{
    std::array<BYTE, s_nLetters> anFirst{};
    std::array<BYTE, KW_COUNT> anNext{};
};

constexpr CKeywordIndex MakeIndex()
{
    CKeywordIndex index;
    for (int i = KW_COUNT - 1; i > KW_NONE; i--)
    {
        BYTE& nFirst = index.anFirst[s_aKeywords[i].pszName[0] - 'A'];
        index.anNext[i] = nFirst;
        nFirst = static_cast<BYTE>(i);
    }
    return index;
}

constexpr CKeywordIndex s_index = MakeIndex();

bool BeginsWith(const char* pszText, const char* pszUpper)
{
    while (*pszUpper != '\0' && ToLower(*pszText) == ToLower(*pszUpper))
    {
        pszText++;
        pszUpper++;
    }
    return *pszUpper == '\0';
}

}  // namespace

EKeyword CKeyword::GetNumber() const
{
    return static_cast<EKeyword>(this - s_aKeywords);
}

int CKeyword::GetLength() const
{
    return static_cast<int>(std::string_view(pszName).size());
}

const CKeyword* FindKeyword(const char* pszText)
{
    const int nLetter = ToLower(*pszText) - 'a';
    if (nLetter < 0 || nLetter >= s_nLetters)
        return nullptr;
    for (BYTE n = s_index.anFirst[nLetter]; n != 0; n = s_index.anNext[n])
    {
        if (BeginsWith(pszText, s_aKeywords[n].pszName))
            return &s_aKeywords[n];
    }
    return nullptr;
}

const CStringArray& KeywordNames()
{
    static const CStringArray s_astrNames = []
    {
        CStringArray astrNames;
        for (const CKeyword& keyword : s_aKeywords)
            astrNames.Add(CString::Immortal(keyword.pszName));
        astrNames.MakeImmortal();
        return astrNames;
    }();
    return s_astrNames;
}
