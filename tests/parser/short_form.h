// A short notation for expected trees: the tree form with 'x' for a variable, #2 for a number and
// _ for the empty node. And rows of texts with their trees.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "parser/parsed.h"

// Expands the short notation to what TreeForm prints.
inline std::string Long(std::string_view strShort)
{
    std::string strLong;
    while (!strShort.empty())
    {
        const char ch = strShort.front();
        strShort.remove_prefix(1);
        if (ch == '_')
        {
            strLong += "(STANDARD \"\" - -)";
        }
        else if (ch == '\'' || ch == '#')
        {
            const bool bNumber = ch == '#';
            const std::string_view strSign = strShort.substr(
                0, bNumber ? strShort.find_first_not_of("0123456789") : strShort.find(ch));
            strLong += bNumber ? "(NUMBER \"" : "(VARIABLE \"";
            strLong.append(strSign).append("\" - -)");
            strShort.remove_prefix(strSign.size() + (bNumber ? 0 : 1));
        }
        else
        {
            strLong += ch;
        }
    }
    return strLong;
}

// The gap of products that a parse starts with, and those of products without and with a sign.
constexpr int GAP_AT_START = -6;
constexpr int GAP_BARE = -5;
constexpr int GAP_SIGN = 2;

// A text, its tree in the short notation, where reading ended (0: at the end), and the gap.
struct CParseCase
{
    const char* pszText;
    const char* pszForm;
    int nErrorPos = 0;
    int nGap = GAP_AT_START;
};

template <std::size_t N>
void ExpectParses(const CParseCase (&aCases)[N])
{
    for (const CParseCase& row : aCases)
    {
        SCOPED_TRACE(row.pszText);
        const CParsed parsed(row.pszText);
        EXPECT_EQ(parsed.nResult, 1);
        EXPECT_EQ(parsed.Form(), Long(row.pszForm));
        EXPECT_EQ(parsed.nErrorPos, row.nErrorPos);
        EXPECT_EQ(g_nTimesGap, row.nGap);
        EXPECT_EQ(
            parsed.strMessage.GetString(),
            row.nErrorPos == 0 ? "" : "Error at Position " + std::to_string(row.nErrorPos) + "!");
    }
}
