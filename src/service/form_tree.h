// The steps of CFormulaOut::FormTree, for callers that also want what the parser says.
#pragma once

#include <vector>

#include "parser/dropped_text.h"
#include "platform/base/cstring.h"
#include "platform/base/types.h"

class CFormulaOut;

// Where and why a parse ended early, and what it left out.
struct CParseReport
{
    // A keyword that fails goes back from its place, to 0 or around to a number behind the text, so
    // that the message alone tells whether there is an error.
    bool HasError() const { return !strMessage.IsEmpty(); }

    WORD nPosition = 0;  // 1-based in the trimmed text
    CString strMessage;  // empty if all was understood
    std::vector<CDroppedText> dropped;
};

// Puts the nodes of a text below a new root of formula.m_Tree, without measuring anything. 0, with
// the tree empty and the reason in the report, if an exception stopped it; shows no message box
// and leaves m_strFormula alone.
int ParseIntoTree(CFormulaOut& formula, const CString& strText, CParseReport& report);

// FormTree, with its message box, that also tells where the parse ended.
int FormTreeReporting(CFormulaOut& formula, const CString& strText, CParseReport& report);
