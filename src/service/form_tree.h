// The steps of CFormulaOut::FormTree, for callers that also want what the parser says.
#pragma once

#include "platform/base/cstring.h"
#include "platform/base/types.h"

class CFormulaOut;

// Where and why a parse ended early.
struct CParseReport
{
    WORD nPosition = 0;  // 1-based in the trimmed text; 0: all of it was understood
    CString strMessage;  // empty if all was understood
};

// Puts the nodes of a text below a new root of formula.m_Tree, without measuring anything. 0, with
// the tree empty and the reason in the report, if an exception stopped it; shows no message box
// and leaves m_strFormula alone.
int ParseIntoTree(CFormulaOut& formula, const CString& strText, CParseReport& report);

// FormTree, with its message box, that also tells where the parse ended.
int FormTreeReporting(CFormulaOut& formula, const CString& strText, CParseReport& report);
