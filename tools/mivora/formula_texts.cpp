#include "formula_texts.h"

#include <cstdio>

#include "report.h"
#include "text_input.h"

namespace
{
void Print(const std::string& strLine)
{
    std::fwrite(strLine.data(), 1, strLine.size(), stdout);
    std::fputc('\n', stdout);
}

// What the answer itself does not tell, to standard error.
void TellFailures(const CAnswer& answer, const std::string& strTyped)
{
    const std::string strMessages = TakeLibraryMessages();
    if (answer.bRefused && !answer.strReason.empty())
        Tell(answer.strReason);
    else if (!strMessages.empty())
        Tell(strMessages);
    if (answer.report.nPosition != 0 && !answer.bTold)
        Tell(SyntaxWarning(answer.report, strTyped));
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
    TellFailures(answer, strTyped);
    if (answer.bRefused)
        return STATUS_FAILED;
    return answer.report.nPosition != 0 && arguments.Has(OPT_STRICT) ? STATUS_FAILED : STATUS_DONE;
}

// Answers a line; false if that is "!" and a reason.
bool AnswerLine(const CArguments& arguments, CAnswerFunction pfnAnswer, CFormulaOut& formula,
                const std::string& strLine, bool& bSyntaxError)
{
    try
    {
        const CString strText =
            arguments.Has(OPT_HEX) ? TextFromHex(strLine) : TextFromUtf8(strLine);
        const CAnswer answer = pfnAnswer(formula, strText, true);
        TakeLibraryMessages();  // each line's answer is all there is to it
        bSyntaxError = bSyntaxError || answer.report.nPosition != 0;
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
    bool bSyntaxError = false;
    while (reader.Next(strLine))
    {
        if (!AnswerLine(arguments, pfnAnswer, formula, strLine, bSyntaxError))
            bFailed = true;
    }
    return bFailed || (bSyntaxError && arguments.Has(OPT_STRICT)) ? STATUS_FAILED : STATUS_DONE;
}
