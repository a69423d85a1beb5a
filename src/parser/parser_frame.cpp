// What all levels of the parser share: the text and its characters, the nodes that a parse makes,
// the entry and its messages.
#include "parser/formula_parser.h"

#include <algorithm>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "parser/failure.h"
#include "parser/keywords.h"
#include "parser/token.h"
#include "platform/base/exception.h"
#include "tree/bin_tree.h"

namespace
{

constexpr int s_nMaxPosition = 0xFFFF;
constexpr int s_nGapWide = 2;
constexpr int s_nGapAtStart = -6;

constexpr std::size_t s_nFirstNodes = 256;
constexpr std::size_t s_nNodesAtOnce = 3;  // a node, and the children that its constructor makes

struct CBracketPair
{
    const char* pszLeft;
    const char* pszRight;
    int nKind;
};

// The shapes that a text can ask for; the others come from stored formulas.
constexpr CBracketPair s_aBracketPairs[] = {
    { "", "", 0 },   { "[", "]", 1 }, { "{", "}", 2 }, { "<", ">", 3 }, { "|", "|", 4 },
    { "[", "[", 6 }, { "]", "]", 7 }, { "]", "[", 8 }, { "[", "", 9 },  { "", "]", 10 },
    { "{", "", 15 }, { "", "}", 16 }, { "|", "", 19 }, { "", "|", 20 },
};

const CString s_strGreekFace = CString::Immortal("Symbol");

}  // namespace

CFormulaParser::CFormulaParser()
    : m_dArgument(0.0), m_adFunctConst{}, m_pTree(nullptr), m_pResult(nullptr), m_bWideTimes(0)
{
    m_astrKeywords.Copy(KeywordNames());
}

CFormulaParser::~CFormulaParser() = default;

void CFormulaParser::SetFormula(CString strText)
{
    m_strSource = strText;
}

CString CFormulaParser::GetFormula() const
{
    return m_strSource;
}

int CFormulaParser::Parse(CString strText, WORD* pErrorPos, CString* pMessage)
{
    m_strError.Empty();
    m_pResult = nullptr;
    m_nGreek = 0;
    m_bEnded = false;
    m_apBrackets.clear();
    m_aDropped.clear();
    g_nTimesGap = m_bWideTimes != 0 ? s_nGapWide : s_nGapAtStart;

    if (RunAndReport(pMessage, [&] { ParseText(strText, pErrorPos, pMessage); }))
        return 1;
    FreeAll();
    return 0;
}

// Nothing is given out before all that can fail is done.
void CFormulaParser::ParseText(const CString& strText, WORD* pErrorPos, CString* pMessage)
{
    WORD nPos;
    CString strToken;
    SetText(strText, &nPos, &strToken);
    CNode* pResult = ParseExpression(&nPos, &strToken);
    if (IsToken(&strToken, '\0') && nPos < m_strText.GetLength())  // ended by a NUL of the text
        NoteDropped(nPos, static_cast<WORD>(m_strText.GetLength()));
    WORD nErrorPos;
    CString strMessage;
    ReportEnd(nPos, strToken, "Error at Position %d", m_strError, &nErrorPos, &strMessage);
    pResult->ApplyFormat(&g_DefaultFormat);
    FreeDropped(pResult);
    m_pResult = pResult;
    *pErrorPos = nErrorPos;
    *pMessage = strMessage;
}

void CFormulaParser::SetText(CString strText, WORD* pPos, CString* pToken)
{
    strText.TrimLeft();
    strText.TrimRight();
    if (strText.GetLength() >= s_nMaxPosition)
        AfxThrowTextTooLongException();
    m_strText = strText + CharStr('\0');
    *pPos = 0;
    pToken->Empty();
    NextChar(pPos, pToken);
}

// Behind the end the position counts on, but never past 16 bits and so never back into the text.
void CFormulaParser::NextChar(WORD* pPos, CString* pToken)
{
    const char* pszText = m_strText;
    const int nLength = m_strText.GetLength();
    char ch;
    do
    {
        if (*pPos < s_nMaxPosition)
            ++*pPos;
        ch = *pPos > nLength ? '\0' : pszText[*pPos - 1];
    } while (ch == ' ');
    *pToken = CharStr(ch);
}

CString CFormulaParser::TextBetween(WORD nStart, WORD nEnd) const
{
    if (nEnd - nStart == 1)
        return CharStr(m_strText[nStart - 1]);
    return m_strText.Mid(nStart - 1, nEnd - nStart);
}

// list := expression { "," expression }
int CFormulaParser::ParseList(WORD* pPos, CString* pToken, CArray<CNode*, CNode*>* pList)
{
    pList->RemoveAll();
    pList->Add(ParseExpression(pPos, pToken));
    while (IsToken(pToken, ','))
    {
        NextChar(pPos, pToken);
        pList->Add(ParseExpression(pPos, pToken));
    }
    return 1;
}

int CFormulaParser::BracketType(CString strLeft, CString strRight)
{
    for (const CBracketPair& pair : s_aBracketPairs)
    {
        if (strLeft.Compare(pair.pszLeft) == 0 && strRight.Compare(pair.pszRight) == 0)
            return pair.nKind;
    }
    return 0;
}

CNode* CFormulaParser::NewNode(ENodeType nType, CSpan span)
{
    if (m_aMade.capacity() - m_aMade.size() < s_nNodesAtOnce)
        m_aMade.reserve(std::max(s_nFirstNodes, 2 * m_aMade.capacity()));
    CNode* pNode = m_pTree->CreateBareNode(nType);
    m_aMade.push_back({ pNode, span });
    if (pNode->GetLeft() != nullptr)
        m_aMade.push_back({ pNode->GetLeft(), { 0, 0 } });
    if (pNode->GetRight() != nullptr)
        m_aMade.push_back({ pNode->GetRight(), { 0, 0 } });
    return pNode;
}

CNode* CFormulaParser::NewNode(ENodeType nType, const CString& strSymbol, CSpan span)
{
    CNode* pNode = NewNode(nType, span);
    pNode->SetSymbol(strSymbol);
    // The face is the mark of a Greek name: formatting leaves it alone.
    if (m_nGreek > 0 && nType == NTI_VARIABLE)
        pNode->SetFontName(s_strGreekFace);
    return pNode;
}

CNode* CFormulaParser::NewNode(ENodeType nType, CNode* pLeft, CNode* pRight)
{
    CNode* pNode = NewNode(nType);
    if (pLeft != nullptr)
        pNode->LinkLeft(pLeft);
    if (pRight != nullptr)
        pNode->LinkRight(pRight);
    return pNode;
}
