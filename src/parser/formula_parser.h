// Reads one line of formula text: into nodes of a tree, or to a number. A recursive descent over
// single characters; docs/language.md tells the language.
#pragma once

#include <vector>

#include "format/node_types.h"
#include "parser/dropped_text.h"
#include "platform/base/collections.h"
#include "platform/base/cstring.h"
#include "platform/base/types.h"

class CBinTree;
class CNode;
struct CKeyword;
struct CRewind;

class CFormulaParser
{
public:
    CFormulaParser();
    virtual ~CFormulaParser();

    CFormulaParser(const CFormulaParser&) = delete;
    CFormulaParser& operator=(const CFormulaParser&) = delete;

    void SetFormula(CString strText);
    CString GetFormula() const;

    // Reads a text into m_pResult: nodes of m_pTree, linked, formatted, and the caller's. Text
    // that cannot be used is no failure: *pErrorPos is then the 1-based position in the trimmed
    // text where reading ended, else 0, and m_pResult is what was understood. 0 only if an
    // exception stopped the parse: *pMessage tells it, *pErrorPos stays, m_pResult is null.
    // Sets g_nTimesGap.
    int Parse(CString strText, WORD* pErrorPos, CString* pMessage);

    // What the last Parse read and no node of its result shows, in the order of the text. The
    // arguments of BRACE that choose brackets do not count, and nothing is told twice: not what
    // lies behind the place where reading ended.
    const std::vector<CDroppedText>& GetDropped() const { return m_aDropped; }

    // The value of a text; position and message as for Parse, in German. A division by zero or a
    // refused power leaves a message without a position. x is stored; no text can name it.
    double Calculation(CString strText, double x, WORD* pErrorPos, CString* pMessage);

    // nIndex 1 to 9; others are answered with a message box. No text can name the constants.
    void SetFunctConst(int nIndex, double dValue);

protected:
    // The levels of the grammar. The token is the first character of the construct when a level
    // is entered, and the first one behind it when the level returns.
    void NextChar(WORD* pPos, CString* pToken);
    CNode* ParseExpression(WORD* pPos, CString* pToken);
    CNode* ParseTerm(WORD* pPos, CString* pToken);
    CNode* ParsePower(WORD* pPos, CString* pToken);
    CNode* ParseUnary(WORD* pPos, CString* pToken);
    CNode* ParsePrimary(WORD* pPos, CString* pToken);
    int ParseList(WORD* pPos, CString* pToken, CArray<CNode*, CNode*>* pList);
    int BracketType(CString strLeft, CString strRight);

    double CalcExpression(WORD* pPos, CString* pToken);
    double CalcTerm(WORD* pPos, CString* pToken);
    double CalcPower(WORD* pPos, CString* pToken);
    double CalcUnary(WORD* pPos, CString* pToken);
    double CalcPrimary(WORD* pPos, CString* pToken);

    CString m_strSource;  // as given to SetFormula
    CString m_strText;    // trimmed input and the end mark
    CString m_strError;   // detail of a failed calculation
    double m_dArgument;
    double m_adFunctConst[10];  // 1 to 9
    CStringArray m_astrKeywords;
    CString m_strReserved;

public:
    CBinTree* m_pTree;  // makes the nodes; set before each Parse, not owned
    CNode* m_pResult;   // top node of the last Parse; the caller's

protected:
    int m_bWideTimes;  // chooses the g_nTimesGap that a parse starts with

private:
    void ParseText(const CString& strText, WORD* pErrorPos, CString* pMessage);
    double CalculateText(const CString& strText, WORD* pErrorPos, CString* pMessage);
    void SetText(CString strText, WORD* pPos, CString* pToken);
    CString TextBetween(WORD nStart, WORD nEnd) const;
    const CKeyword* TakeKeyword(WORD* pPos) const;

    // The positions of a text that a node shows, and behind it; both 0: it has none of its own.
    struct CSpan
    {
        WORD nStart;
        WORD nEnd;
    };

    CNode* NewNode(ENodeType nType) { return NewNode(nType, CSpan{ 0, 0 }); }
    CNode* NewNode(ENodeType nType, CSpan span);
    CNode* NewNode(ENodeType nType, const CString& strSymbol, CSpan span = { 0, 0 });
    CNode* NewNode(ENodeType nType, CNode* pLeft, CNode* pRight);
    CNode* Wrapped(CNode* pNode);

    CNode* ReadPrimary(WORD* pPos, CString* pToken);
    CNode* ReadNumber(WORD* pPos, CString* pToken);
    CNode* ReadGroup(WORD* pPos, CString* pToken);
    CNode* ReadName(WORD* pPos, CString* pToken);
    void ReadCallForm(WORD* pPos, CString* pToken, CNode* pNode);
    CNode* ReadKeyword(const CKeyword& keyword, WORD* pPos, CString* pToken);
    CNode* ReadFunction(const CKeyword& keyword, WORD* pPos, CString* pToken);
    CNode* ReadGreek(WORD* pPos, CString* pToken);
    CNode* ReadListForm(const CKeyword& keyword, WORD* pPos, CString* pToken);
    CNode* LinkItems(const CKeyword& keyword, CNode* pFirst, CNode* pSecond, CNode* pThird);
    CNode* ReadText(const CKeyword& keyword, WORD* pPos, CString* pToken);
    CNode* ReadBrace(const CKeyword& keyword, WORD* pPos, CString* pToken);
    CNode* Fail(const CRewind& rewind, WORD* pPos, CString* pToken);

    double ReadCalcPrimary(WORD* pPos, CString* pToken);

    void NoteDropped(WORD nStart, WORD nEnd);
    void TellDropped(bool bNodes);
    void FreeDropped(CNode* pTop);
    void FreeAll();

    struct CMadeNode
    {
        CNode* pNode;
        CSpan span;
    };

    std::vector<CMadeNode> m_aMade;        // all nodes of the running parse
    std::vector<CNode*> m_apReached;       // working space of FreeDropped
    std::vector<CNode*> m_apBrackets;      // what was read as the brackets of BRACE
    std::vector<CDroppedText> m_aDropped;  // until the end of the parse: what no node stands for
    int m_nGreek = 0;                      // operands of GREEK around the present place
    bool m_bEnded = false;                 // a keyword has failed: nothing more is read
    WORD m_nStopped = 0;                   // where the outermost such keyword begins
};
