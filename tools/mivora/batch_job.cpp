#include "batch_job.h"

#include <cstdio>
#include <new>

#include "greek_text.h"
#include "platform/base/exception.h"
#include "report.h"
#include "text_input.h"

namespace
{
std::string PathOf(unsigned long long nLine, const CBatchOptions& options)
{
    char szNumber[32];
    std::snprintf(szNumber, sizeof szNumber, "/%06llu.", nLine);
    return options.strDirectory + szNumber + options.pFormat->pszExtension;
}

CLineResult Draw(CFormulaOut& formula, const std::string& strLine, const std::string& strPath,
                 const CBatchOptions& options)
{
    CParseReport report;
    const std::string strTyped = options.bGreek ? WithGreekWritten(strLine) : strLine;
    if (!FormTreeReporting(formula, TextFromUtf8(strTyped), report))
        throw CFailure{ TakeLibraryMessages() };
    WritePicture(formula, *options.pFormat, strPath, options.picture);
    const std::vector<CFinding> findings = FindingsOf(report, strTyped);
    if (findings.empty())
        return {};
    return { report.HasError() ? OUTCOME_SYNTAX_ERROR : OUTCOME_LEFT_OUT, Joined(findings) };
}
}  // namespace

CLineResult DrawLine(CFormulaOut& formula, const std::string& strLine, unsigned long long nLine,
                     const CBatchOptions& options)
{
    std::string strReason;
    try
    {
        return Draw(formula, strLine, PathOf(nLine, options), options);
    }
    catch (const CFailure& failure)
    {
        strReason = failure.strMessage;
    }
    catch (CException* pException)
    {
        char szText[256] = "";
        pException->GetErrorMessage(szText, sizeof szText);
        pException->Delete();
        strReason = szText;
    }
    catch (const std::bad_alloc&)
    {
        strReason = "out of memory";
    }
    TakeLibraryMessages();
    return { OUTCOME_FAILED, strReason };
}
