// A short notation for expected trees: the tree form with 'x' for a variable, #2 for a number and
// _ for the empty node.
#pragma once

#include <cctype>
#include <string>
#include <string_view>

// Expands the short notation to what TreeForm prints.
inline std::string Long(std::string_view strShort)
{
    std::string strLong;
    bool bQuoted = false;
    for (std::size_t i = 0; i < strShort.size(); i++)
    {
        const char ch = strShort[i];
        if (ch == '"')
            bQuoted = !bQuoted;
        if (!bQuoted && ch == '\'')
        {
            const std::size_t nEnd = strShort.find('\'', i + 1);
            strLong += "(VARIABLE \"";
            strLong += strShort.substr(i + 1, nEnd - i - 1);
            strLong += "\" - -)";
            i = nEnd;
        }
        else if (!bQuoted && ch == '#')
        {
            std::size_t nEnd = i + 1;
            while (nEnd < strShort.size() &&
                   std::isdigit(static_cast<unsigned char>(strShort[nEnd])))
                nEnd++;
            strLong += "(NUMBER \"";
            strLong += strShort.substr(i + 1, nEnd - i - 1);
            strLong += "\" - -)";
            i = nEnd - 1;
        }
        else if (!bQuoted && ch == '_')
        {
            strLong += "(STANDARD \"\" - -)";
        }
        else
        {
            strLong += ch;
        }
    }
    return strLong;
}
