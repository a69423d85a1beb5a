// The table of colour names, and the hexadecimal notations.
#include "facade/colour_name.h"

#include <cctype>
#include <charconv>

#include "platform/gdi/gdi.h"

namespace
{
struct CNamedColour
{
    const char* pszName;
    unsigned nRgb;
};
constexpr CNamedColour s_aColours[] = {
    { "black", 0x000000 },  { "silver", 0xC0C0C0 }, { "gray", 0x808080 },   { "white", 0xFFFFFF },
    { "maroon", 0x800000 }, { "red", 0xFF0000 },    { "purple", 0x800080 }, { "fuchsia", 0xFF00FF },
    { "green", 0x008000 },  { "lime", 0x00FF00 },   { "olive", 0x808000 },  { "yellow", 0xFFFF00 },
    { "navy", 0x000080 },   { "blue", 0x0000FF },   { "teal", 0x008080 },   { "aqua", 0x00FFFF },
};

COLORREF FromRgb(unsigned nRgb)
{
    return RGB(nRgb >> 16 & 0xFF, nRgb >> 8 & 0xFF, nRgb & 0xFF);
}
}  // namespace

std::optional<COLORREF> FindColour(const std::string& strName)
{
    std::string strLower;
    for (const char ch : strName)
        strLower += static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    for (const CNamedColour& colour : s_aColours)
    {
        if (strLower == colour.pszName)
            return FromRgb(colour.nRgb);
    }
    std::string strDigits = strLower.starts_with('#') ? strLower.substr(1) : "";
    if (strDigits.size() == 3)
    {
        strDigits = { strDigits[0], strDigits[0], strDigits[1],
                      strDigits[1], strDigits[2], strDigits[2] };
    }
    unsigned nRgb = 0;
    const char* pEnd = strDigits.data() + strDigits.size();
    const auto end = std::from_chars(strDigits.data(), pEnd, nRgb, 16);
    if (strDigits.size() != 6 || end.ec != std::errc() || end.ptr != pEnd)
        return std::nullopt;
    return FromRgb(nRgb);
}
