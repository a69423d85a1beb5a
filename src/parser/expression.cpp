// The operators of the formula language: one operation for each level, from the loosest down.
#include "parser/formula_parser.h"

#include "nodes/node.h"
#include "nodes/typed_node.h"
#include "parser/token.h"

namespace
{

constexpr int s_nGapWithSign = 2;
constexpr int s_nGapWithoutSign = -5;

struct CRelation
{
    char chOperator;
    bool bEqualSign;  // "=" behind it
    ENodeType nType;
    int nKind;
    const char* pszSymbol;  // null keeps the constructor's
};

// clang-format off
constexpr CRelation s_aRelations[] = {
    { '=', false, NTI_EQUATION, 0, nullptr },
    { '<', true,  NTI_EQUATION, 1, nullptr },
    { '>', true,  NTI_EQUATION, 2, nullptr },
    { '<', false, NTI_EQUATION, 3, nullptr },
    { '>', false, NTI_EQUATION, 4, nullptr },
    { '!', true,  NTI_EQUATION, 5, nullptr },
    { '+', false, NTI_PLUS,     0, nullptr },
    { '-', false, NTI_MINUS,    0, nullptr },
    { '!', false, NTI_STANDARD, 0, "!" },
};
// clang-format on

const CRelation* FindRelation(char chOperator, bool bEqualSign)
{
    for (const CRelation& relation : s_aRelations)
    {
        if (relation.chOperator == chOperator && relation.bEqualSign == bEqualSign)
            return &relation;
    }
    return nullptr;
}

}  // namespace

// expression := term { operator term }
// operator   := "=" | "+" | "-" | "<" | ">" | "!" | "<=" | ">=" | "!="
// "==", "+=" and "-=" are read over.
CNode* CFormulaParser::ParseExpression(WORD* pPos, CString* pToken)
{
    CNode* pResult = ParseTerm(pPos, pToken);
    while (IsRelation(pToken))
    {
        const char chOperator = TokenChar(*pToken);
        const WORD nStart = *pPos;
        NextChar(pPos, pToken);
        const bool bEqualSign = IsToken(pToken, '=');
        if (bEqualSign)
            NextChar(pPos, pToken);
        const CRelation* pRelation = FindRelation(chOperator, bEqualSign);
        if (pRelation == nullptr)
        {
            NoteDropped(nStart, *pPos);
            continue;
        }

        CNode* pNode = NewNode(pRelation->nType, pResult, nullptr);
        if (pRelation->nKind != 0)
            static_cast<CTypedNode*>(pNode)->SetKind(pRelation->nKind);
        if (pRelation->pszSymbol != nullptr)
            pNode->SetSymbol(CharStr(chOperator));
        pNode->LinkRight(ParseTerm(pPos, pToken));
        pResult = pNode;
    }
    return pResult;
}

// term := power { ( "*" | "**" | "/" ) power }
// One star is a product without a sign, two stars one with a sign. The last one of a text decides
// the gap of all products.
CNode* CFormulaParser::ParseTerm(WORD* pPos, CString* pToken)
{
    CNode* pResult = ParsePower(pPos, pToken);
    while (IsToken(pToken, '*') || IsToken(pToken, '/'))
    {
        const bool bDivision = IsToken(pToken, '/');
        NextChar(pPos, pToken);
        if (bDivision)
        {
            CNode* pRight = ParsePower(pPos, pToken);
            pResult = NewNode(NTI_DIVISION, pResult, pRight);
            continue;
        }
        CNode* pTimes = NewNode(NTI_TIMES);
        if (IsToken(pToken, '*'))
        {
            g_nTimesGap = s_nGapWithSign;
            NextChar(pPos, pToken);
        }
        else
        {
            pTimes->SetSymbol(CString());
            g_nTimesGap = s_nGapWithoutSign;
        }
        pTimes->LinkLeft(Wrapped(pResult));
        pTimes->LinkRight(Wrapped(ParsePower(pPos, pToken)));
        pResult = pTimes;
    }
    return pResult;
}

// A sum or difference as a factor or as an item of a list stands in brackets; brackets of the
// text itself make no node.
CNode* CFormulaParser::Wrapped(CNode* pNode)
{
    if (pNode->IsLeaf())
        return pNode;
    const CString& strType = pNode->m_strType;
    if (strType == NodeTypeName(NTI_PLUS) || strType == NodeTypeName(NTI_MINUS))
        return NewNode(NTI_BRACE, pNode, nullptr);
    return pNode;
}

// power := unary { "^" unary } { "~" unary } { "`" unary }
// The base keeps its value: a further "^" or "~" begins anew with it, and what stood there before
// drops out. "~" is the power without brackets, "`" hangs an index on the right of the result.
CNode* CFormulaParser::ParsePower(WORD* pPos, CString* pToken)
{
    CNode* const pBase = ParseUnary(pPos, pToken);
    CNode* pResult = pBase;
    while (IsToken(pToken, '^'))
    {
        NextChar(pPos, pToken);
        CNode* pOperand = ParseUnary(pPos, pToken);
        CNode* pLeft = pBase->IsLeaf() ? pBase : NewNode(NTI_BRACE, pBase, nullptr);
        pResult = NewNode(NTI_POWERTO, pLeft, pOperand);
    }
    while (IsToken(pToken, '~'))
    {
        NextChar(pPos, pToken);
        CNode* pOperand = ParseUnary(pPos, pToken);
        pResult = NewNode(NTI_POWERTO, pBase, pOperand);
    }
    while (IsToken(pToken, '`'))
    {
        NextChar(pPos, pToken);
        CNode* pOperand = ParseUnary(pPos, pToken);
        pResult->LinkRight(NewNode(NTI_INDEX, nullptr, pOperand));
    }
    return pResult;
}

// unary := [ "-" ] primary
CNode* CFormulaParser::ParseUnary(WORD* pPos, CString* pToken)
{
    if (!IsToken(pToken, '-'))
        return ParsePrimary(pPos, pToken);
    NextChar(pPos, pToken);
    CNode* pMinus = NewNode(NTI_MINUS, NewNode(NTI_STANDARD), nullptr);
    pMinus->LinkRight(ParsePrimary(pPos, pToken));
    return pMinus;
}
