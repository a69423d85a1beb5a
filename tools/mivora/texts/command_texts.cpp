// measure, tree, layout, text and calc.
#include <cmath>
#include <cstdio>
#include <string_view>

#include "facade/layout_form.h"
#include "nodes/node.h"
#include "platform/base/code_page.h"
#include "platform/gdi/dc.h"
#include "report.h"
#include "texts/formula_texts.h"
#include "texts/text_input.h"
#include "tree/tree_form.h"

namespace
{
// How the message of a calculation begins that an exception stopped.
constexpr std::string_view s_strStopped = "Error in Calculation() ";

std::string RectText(const CRect& rect)
{
    return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " +
           std::to_string(rect.right) + " " + std::to_string(rect.bottom);
}

std::string PositionAndMessage(const CParseReport& report)
{
    return std::to_string(report.nPosition) + "\t" + CodePage936ToUtf8(report.strMessage.View());
}

// Forms the tree, measured; false, and the reason in the answer, if the text is refused.
bool Form(CFormulaOut& formula, const CString& strText, CAnswer& answer)
{
    answer.bRefused = !FormTreeReporting(formula, strText, answer.report);
    if (answer.bRefused)
        answer.strReason = CodePage936ToUtf8(answer.report.strMessage.View());
    return !answer.bRefused;
}

CAnswer AnswerMeasure(CFormulaOut& formula, const CString& strText, bool)
{
    CAnswer answer;
    if (!Form(formula, strText, answer))
        return answer;
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    answer.strText = RectText(rect) + "\t" + RectText(formula.m_Tree.m_rectFormula) + "\t" +
                     std::to_string(formula.m_Tree.GetRootNode()->m_nBaseline);
    return answer;
}

// Nothing is measured here: signs that come by kind are shown as the parse left them.
CAnswer AnswerTree(CFormulaOut& formula, const CString& strText, bool)
{
    CAnswer answer;
    answer.bRefused = !ParseIntoTree(formula, strText, answer.report);
    answer.bTold = true;
    const CString strForm = TreeForm(formula.m_Tree.GetRootNode());
    answer.strText.assign(strForm.View());
    answer.strText += "\t" + PositionAndMessage(answer.report) + "\t" + std::to_string(g_nTimesGap);
    return answer;
}

CAnswer AnswerLayout(CFormulaOut& formula, const CString& strText, bool)
{
    CAnswer answer;
    Form(formula, strText, answer);
    answer.strText = LayoutForm(formula, answer.bRefused ? CParseReport() : answer.report);
    return answer;
}

CAnswer AnswerText(CFormulaOut& formula, const CString& strText, bool bOneLine)
{
    CAnswer answer;
    if (!Form(formula, strText, answer))
        return answer;
    CString strFormula = formula.m_Tree.GetFormulaText(0);
    if (bOneLine)
        strFormula = EscapeSymbol(strFormula);
    answer.strText = bOneLine ? std::string(strFormula.View()) : Utf8FromText(strFormula);
    return answer;
}

// As "%.17g", a not-a-number without its sign.
std::string NumberText(double dValue)
{
    if (std::isnan(dValue))
        return "nan";
    char szText[40];
    std::snprintf(szText, sizeof szText, "%.17g", dValue);
    return szText;
}

CAnswer AnswerCalc(CFormulaOut& formula, const CString& strText, bool)
{
    CAnswer answer;
    const double dValue = formula.m_Parser.Calculation(strText, 0.0, &answer.report.nPosition,
                                                       &answer.report.strMessage);
    answer.bTold = true;
    answer.bRefused = answer.report.strMessage.View().starts_with(s_strStopped);
    answer.strText = NumberText(dValue) + "\t" + PositionAndMessage(answer.report);
    return answer;
}
}  // namespace

int RunMeasure(const CArguments& arguments)
{
    return arguments.Has(OPT_JSON) ? MeasureAsJson(arguments)
                                   : AnswerTexts(arguments, AnswerMeasure);
}

int RunTree(const CArguments& arguments)
{
    return AnswerTexts(arguments, AnswerTree);
}

int RunLayout(const CArguments& arguments)
{
    return arguments.Has(OPT_FML) ? LayOutStored(arguments) : AnswerTexts(arguments, AnswerLayout);
}

int RunText(const CArguments& arguments)
{
    return AnswerTexts(arguments, AnswerText);
}

int RunCalc(const CArguments& arguments)
{
    return AnswerTexts(arguments, AnswerCalc);
}
