// Draws a line of a batch: in the program itself, or in one of its workers.
#include "batch/batch_job.h"

#include <cstdio>

#include "facade/greek_text.h"
#include "report.h"
#include "texts/text_input.h"
#include "words/arguments.h"

namespace
{
CLineResult Draw(CFormulaOut& formula, const std::string& strLine, const std::string& strPath,
                 const CBatchOptions& options)
{
    CParseReport report;
    const std::string strTyped = options.bGreek ? WithGreekWritten(strLine) : strLine;
    if (!FormTreeReporting(formula, TextFromUtf8(strTyped), report))
        throw CFailure{ TakeLibraryMessages() };
    CLineResult result;
    result.size = WriteFormula(formula, options.format, strPath, options.draw);
    const std::vector<CFinding> findings = FindingsOf(report, strTyped);
    if (!findings.empty())
    {
        result.nOutcome = report.HasError() ? OUTCOME_SYNTAX_ERROR : OUTCOME_LEFT_OUT;
        result.strMessage = Joined(findings);
    }
    return result;
}
}  // namespace

CBatchOptions BatchOptionsOf(const CArguments& arguments)
{
    const CFileFormat format = CFileFormat::OfName(arguments.Value(OPT_FORMAT, "wmf"));
    CBatchOptions options = { arguments.Value(OPT_DIRECTORY),
                              format,
                              DrawOptionsOf(arguments, format),
                              {},
                              arguments.Has(OPT_GREEK) };
    for (const EOption nId : arguments.Command().aOptions)
    {
        if (!arguments.Has(nId))
            continue;
        options.astrWords.push_back(std::string("--") + OptionOf(nId).pszLong);
        if (OptionOf(nId).nValue != VALUE_NONE)
            options.astrWords.push_back(arguments.Value(nId));
    }
    return options;
}

std::string FileNameOf(unsigned long long nLine, const CBatchOptions& options)
{
    char szNumber[32];
    std::snprintf(szNumber, sizeof szNumber, "%06llu.", nLine);
    return std::string(szNumber) + options.format.Extension();
}

CLineResult DrawLine(CFormulaOut& formula, const std::string& strLine, unsigned long long nLine,
                     const CBatchOptions& options)
{
    try
    {
        return Draw(formula, strLine, options.strDirectory + '/' + FileNameOf(nLine, options),
                    options);
    }
    catch (...)
    {
        const std::string strReason = CaughtReason();
        TakeLibraryMessages();
        return { OUTCOME_FAILED, strReason, {} };
    }
}
