// The loop of --lines, and the single TEXT.
#include "texts/formula_texts.h"

#include <cstdio>

#include "facade/greek_text.h"
#include "report.h"
#include "texts/text_input.h"

namespace
{
void Print(const std::string& strLine)
{
    std::fwrite(strLine.data(), 1, strLine.size(), stdout);
    std::fputc('\n', stdout);
}

// What the answer itself does not tell, to standard error. False if there was nothing to be told.
bool TellFindings(const CAnswer& answer, const std::string& strTyped)
{
    const std::string strMessages = TakeLibraryMessages();
    if (answer.bRefused && !answer.strReason.empty())
        Tell(answer.strReason);
    else if (!strMessages.empty())
        Tell(strMessages);
    if (answer.bRefused)
        return true;
    const std::vector<CFinding> findings = FindingsOf(answer.report, strTyped);
    for (const CFinding& finding : findings)
    {
        if (!finding.bError || !answer.bTold)
            Warn(finding, strTyped);
    }
    return !findings.empty();
}

int AnswerOne(const CArguments& arguments, CAnswerFunction pfnAnswer)
{
    const std::string strTyped = TypedText(arguments);
    const CString strText = TextFromUtf8(strTyped);
    CFormulaOut formula;
    const CAnswer answer = pfnAnswer(formula, strText, false);
    if (!answer.bRefused || !answer.strText.empty())
        Print(answer.strText);
    std::fflush(stdout);
    const bool bFound = TellFindings(answer, strTyped);
    return answer.bRefused || (bFound && arguments.Has(OPT_STRICT)) ? STATUS_FAILED : STATUS_DONE;
}

// Answers a line; false if that is "!" and a reason.
bool AnswerLine(const CArguments& arguments, CAnswerFunction pfnAnswer, CFormulaOut& formula,
                const std::string& strLine, bool& bFound)
{
    try
    {
        const CString strText = arguments.Has(OPT_HEX)     ? TextFromHex(strLine)
                                : arguments.Has(OPT_GREEK) ? TextFromUtf8(WithGreekWritten(strLine))
                                                           : TextFromUtf8(strLine);
        const CAnswer answer = pfnAnswer(formula, strText, true);
        TakeLibraryMessages();  // each line's answer is all there is to it
        bFound = bFound || answer.report.HasError() || !answer.report.dropped.empty();
        if (answer.bRefused && answer.strText.empty())
            throw CFailure{ answer.strReason };
        Print(answer.strText);
        return true;
    }
    catch (const CFailure& failure)
    {
        Print("!\t" + failure.strMessage);
        return false;
    }
}
}  // namespace

int AnswerTexts(const CArguments& arguments, CAnswerFunction pfnAnswer)
{
    if (!arguments.Has(OPT_LINES))
        return AnswerOne(arguments, pfnAnswer);
    CFormulaOut formula;
    CLineReader reader("-");
    std::string strLine;
    bool bFailed = false;
    bool bFound = false;
    for (unsigned long long nLine = 1; reader.Next(strLine); ++nLine)
    {
        if (!AnswerLine(arguments, pfnAnswer, formula, strLine, bFound))
            bFailed = true;
        if (strLine.find('\0') != std::string::npos)
        {
            bFound = true;
            Tell("line " + std::to_string(nLine) + ": " + Joined(FindingsOf({}, strLine)));
        }
    }
    return bFailed || (bFound && arguments.Has(OPT_STRICT)) ? STATUS_FAILED : STATUS_DONE;
}
