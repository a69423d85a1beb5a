// What stands for controls and back-slashes in a carried text, and the texts of a formula.
#include "picture/carried_text.h"

#include <algorithm>
#include <cstdio>

#include "platform/base/code_page.h"

namespace
{
// Of C1 and DEL the lead byte is C2, or none.
bool IsControl(std::string_view text, size_t n)
{
    const auto nByte = static_cast<unsigned char>(text[n]);
    return nByte < 0x20 || nByte == 0x7F;
}

bool IsHighControl(std::string_view text, size_t n)
{
    return text[n] == '\xC2' && n + 1 < text.size() &&
           static_cast<unsigned char>(text[n + 1]) < 0xA0;
}

void AppendEscape(std::string& strText, unsigned nCode)
{
    char szEscape[8];
    std::snprintf(szEscape, sizeof szEscape, "\\x%02X", nCode);
    strText += szEscape;
}

int HexDigit(char ch)
{
    if (ch >= '0' && ch <= '9')
        return ch - '0';
    if (ch >= 'A' && ch <= 'F')
        return ch - 'A' + 10;
    return ch >= 'a' && ch <= 'f' ? ch - 'a' + 10 : -1;
}

std::string XmlText(std::string_view text)
{
    std::string strXml;
    for (const char ch : text)
    {
        switch (ch)
        {
            case '&':
                strXml += "&amp;";
                break;
            case '<':
                strXml += "&lt;";
                break;
            case '>':
                strXml += "&gt;";
                break;
            default:
                strXml += ch;
        }
    }
    return strXml;
}
}  // namespace

std::string EscapeCarried(std::string_view utf8)
{
    std::string strText;
    for (size_t n = 0; n < utf8.size(); ++n)
    {
        if (IsHighControl(utf8, n))
            AppendEscape(strText, static_cast<unsigned char>(utf8[++n]));
        else if (IsControl(utf8, n) || utf8[n] == '\\')
            AppendEscape(strText, static_cast<unsigned char>(utf8[n]));
        else
            strText += utf8[n];
    }
    return strText;
}

std::string UnescapeCarried(std::string_view text)
{
    std::string strText;
    for (size_t n = 0; n < text.size(); ++n)
    {
        const bool bEscape = text.substr(n, 2) == "\\x" && n + 3 < text.size() &&
                             HexDigit(text[n + 2]) >= 0 && HexDigit(text[n + 3]) >= 0;
        if (!bEscape)
        {
            strText += text[n];
            continue;
        }
        const int nCode = HexDigit(text[n + 2]) * 16 + HexDigit(text[n + 3]);
        AppendUtf8(strText, static_cast<char32_t>(nCode));
        n += 3;
    }
    return strText;
}

std::string SvgCarriedText(const std::string& strSource, const std::string& strTitle)
{
    std::string strXml;
    if (!strTitle.empty())
        strXml += "<title>" + XmlText(strTitle) + "</title>\n";
    if (!strSource.empty())
    {
        strXml += std::string("<metadata><source xmlns=\"urn:") + CARRIED_NAME +
                  "\" xml:space=\"preserve\">" + XmlText(EscapeCarried(strSource)) +
                  "</source></metadata>\n";
    }
    return strXml;
}
