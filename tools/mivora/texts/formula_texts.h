// The commands that answer a text with a text: one TEXT, or every line of standard input.
#pragma once

#include <string>

#include "service/form_tree.h"
#include "service/formula_out.h"
#include "words/arguments.h"

struct CAnswer
{
    std::string strText;    // without the final line break
    CParseReport report;    // of an error, and of text that is left out
    bool bTold = false;     // strText tells of the error
    bool bRefused = false;  // an exception stopped it
    std::string strReason;  // of the refusal, if strText does not tell it
};

// Answers a text; with bOneLine the answer has no line break.
using CAnswerFunction = CAnswer (*)(CFormulaOut& formula, const CString& strText, bool bOneLine);

// Answers the TEXT of a command or, with --lines, each line. Gives the exit status.
int AnswerTexts(const CArguments& arguments, CAnswerFunction pfnAnswer);
