#include "report.h"

#include <cstdio>
#include <cstring>

#include "platform/base/app.h"
#include "platform/base/code_page.h"
#include "platform/base/system.h"
#include "system_calls.h"

namespace
{
std::string s_strMessages;

int KeepMessage(const char* pszText, unsigned, void*)
{
    if (!s_strMessages.empty())
        s_strMessages += "; ";
    s_strMessages += AfxGetMessageCodePage() == 936 ? CodePage936ToUtf8(pszText) : pszText;
    return IDOK;
}

bool IsControl(char ch)
{
    const auto nCode = static_cast<unsigned char>(ch);
    return nCode < 0x20 || nCode == 0x7F;
}

// White space that the parser trims.
bool IsBlank(char ch)
{
    return std::strchr(" \t\n\v\f\r", ch) != nullptr && ch != '\0';
}

bool IsContinuation(char ch)
{
    return (static_cast<unsigned char>(ch) & 0xC0) == 0x80;
}

// Offset of the nIndex-th character (from 0); the length of the text if there is none.
size_t OffsetOf(const std::string& strText, size_t nIndex)
{
    for (size_t n = 0; n < strText.size(); ++n)
    {
        if (!IsContinuation(strText[n]) && nIndex-- == 0)
            return n;
    }
    return strText.size();
}

// As wide as the text: tabs stay, all else is a blank.
std::string Padding(const std::string& strText)
{
    std::string strPadding;
    for (char ch : strText)
    {
        if (!IsContinuation(ch))
            strPadding += ch == '\t' ? '\t' : ' ';
    }
    return strPadding;
}

std::string Harmless(std::string strText)
{
    for (char& ch : strText)
    {
        if (IsControl(ch) && ch != '\t')
            ch = ' ';
    }
    return strText;
}
}  // namespace

void Tell(const std::string& strMessage)
{
    std::string strLine = "mivora: " + strMessage;
    for (char& ch : strLine)
    {
        if (IsControl(ch) && ch != '\t' && ch != '\n')
            ch = '?';
    }
    strLine += '\n';
    std::fwrite(strLine.data(), 1, strLine.size(), stderr);
}

void KeepLibraryMessages()
{
    AfxSetMessageBoxHandler(KeepMessage, nullptr);
}

std::string TakeLibraryMessages()
{
    std::string strMessages;
    strMessages.swap(s_strMessages);
    return strMessages;
}

std::string LastErrorText()
{
    return SystemErrorText(static_cast<long>(GetLastError()));
}

std::string SyntaxWarning(const CParseReport& report, const std::string& strTyped)
{
    std::string strWarning = std::string("warning: ") + report.strMessage.GetString();
    size_t nBlanks = 0;
    while (nBlanks < strTyped.size() && IsBlank(strTyped[nBlanks]))
        ++nBlanks;
    const size_t nPlace = OffsetOf(strTyped, nBlanks + report.nPosition - 1);
    if (nPlace >= strTyped.size())
        return strWarning;
    // Of a text with line breaks, the line in question.
    const size_t nBreak = strTyped.rfind('\n', nPlace);
    const size_t nStart = nBreak == std::string::npos || nBreak == nPlace ? 0 : nBreak + 1;
    const size_t nEnd = strTyped.find('\n', nPlace);
    const std::string strLine =
        strTyped.substr(nStart, nEnd == std::string::npos || nEnd == nPlace ? nEnd : nEnd - nStart);
    return strWarning + "\n  " + Harmless(strLine) + "\n  " +
           Padding(strTyped.substr(nStart, nPlace - nStart)) + "^";
}
