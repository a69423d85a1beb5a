// Messages, those of the library among them, and reasons of failures.
#include "report.h"

#include <cstdio>
#include <new>

#include "platform/base/app.h"
#include "platform/base/code_page.h"
#include "platform/base/system.h"
#include "service/caught_exception.h"
#include "system/system_calls.h"

namespace
{
std::string s_strMessages;

int KeepMessage(const char* pszText, unsigned, void*)
{
    if (!s_strMessages.empty())
    {
        s_strMessages += "; ";
    }
    s_strMessages += AfxGetMessageCodePage() == 936 ? CodePage936ToUtf8(pszText) : pszText;
    return IDOK;
}

bool IsControl(char ch)
{
    const auto nCode = static_cast<unsigned char>(ch);
    return nCode < 0x20 || nCode == 0x7F;
}
}  // namespace

std::string CaughtReason()
{
    try
    {
        throw;
    }
    catch (const CFailure& failure)
    {
        return failure.strMessage;
    }
    catch (CException* pException)
    {
        const CCaughtException pOwned(pException);
        char szText[256] = "";
        pException->GetErrorMessage(szText, sizeof szText);
        return szText;
    }
    catch (const std::bad_alloc&)
    {
        return "out of memory";
    }
}

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

void Warn(const CFinding& finding, const std::string& strTyped)
{
    const std::string strExcerpt = ExcerptOf(finding, strTyped);
    Tell("warning: " + finding.strText + (strExcerpt.empty() ? "" : "\n" + strExcerpt));
}

bool WarnOfFindings(const CParseReport& report, const std::string& strTyped)
{
    const std::vector<CFinding> findings = FindingsOf(report, strTyped);
    for (const CFinding& finding : findings)
        Warn(finding, strTyped);
    return !findings.empty();
}
