// mathml, latex and speak.
#include <cstdio>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "nodes/node.h"
#include "platform/base/code_page.h"
#include "stored/stored_formula.h"
#include "texts/formula_texts.h"

namespace
{
using CWriter = std::string (*)(const CNode* pRoot);

template <CWriter Write>
CAnswer AnswerInForm(CFormulaOut& formula, const CString& strText, bool)
{
    CAnswer answer;
    answer.bRefused = !ParseIntoTree(formula, strText, answer.report);
    if (answer.bRefused)
        answer.strReason = CodePage936ToUtf8(answer.report.strMessage.View());
    else
        answer.strText = Write(formula.m_Tree.GetRootNode());
    return answer;
}

template <CWriter Write>
int WriteInForm(const CArguments& arguments)
{
    if (!arguments.Has(OPT_FML))
        return AnswerTexts(arguments, AnswerInForm<Write>);
    CFormulaOut formula;
    LoadStored(formula, arguments.Value(OPT_FML));
    const std::string strText = Write(formula.m_Tree.GetRootNode()) + "\n";
    std::fwrite(strText.data(), 1, strText.size(), stdout);
    return STATUS_DONE;
}
}  // namespace

int RunMathML(const CArguments& arguments)
{
    return WriteInForm<MathMLText>(arguments);
}

int RunLatex(const CArguments& arguments)
{
    return WriteInForm<LatexText>(arguments);
}

int RunSpeak(const CArguments& arguments)
{
    return WriteInForm<SpokenText>(arguments);
}
