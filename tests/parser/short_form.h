// A short notation for expected trees: the tree form with 'x' for a variable, #2 for a number and
// _ for the empty node.
#pragma once

#include <string>
#include <string_view>

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
                0, bNumber ? strShort.find_first_not_of("0123456789.%") : strShort.find(ch));
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
