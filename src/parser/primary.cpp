// The bottom of the formula language: numbers, groups, keywords, names and the call form.
#include "parser/formula_parser.h"

#include <algorithm>
#include <string>

#include "nodes/node.h"
#include "nodes/typed_node.h"
#include "parser/keywords.h"
#include "parser/token.h"
#include "platform/base/deep_call.h"

namespace
{

using CNodeList = CArray<CNode*, CNode*>;

CNode* ItemOf(const CNodeList& list, int nIndex)
{
    return nIndex < list.GetSize() ? list[nIndex] : nullptr;
}

void SetKind(CNode* pNode, int nKind)
{
    static_cast<CTypedNode*>(pNode)->SetKind(nKind);
}

// The character that an argument of BRACE stands for. "<" and ">" are operators, and read as a
// relation of two empty operands.
CString BracketText(CNode* pItem, const char* pszRelation)
{
    if (pItem == nullptr)
        return CString();
    if (pItem->m_strType == NodeTypeName(NTI_EQUATION))
        return CString::Immortal(pszRelation);
    return pItem->GetSymbol();
}

}  // namespace

// primary := number | group | [ keyword ] [ name ] [ call form ]
// A name behind a keyword takes the place of what the keyword made.
CNode* CFormulaParser::ParsePrimary(WORD* pPos, CString* pToken)
{
    return Descend([&] { return ReadPrimary(pPos, pToken); });
}

CNode* CFormulaParser::ReadPrimary(WORD* pPos, CString* pToken)
{
    if (IsNumber(pToken))
        return ReadNumber(pPos, pToken);
    if (IsToken(pToken, '('))
        return ReadGroup(pPos, pToken);

    CNode* pNode = nullptr;
    const WORD nStart = *pPos;
    const CKeyword* pKeyword = TakeKeyword(pPos);
    if (pKeyword != nullptr)
    {
        pNode = ReadKeyword(*pKeyword, pPos, pToken);
        if (m_bEnded)
            m_nStopped = nStart;
        if (m_bEnded || pKeyword->form == EKeywordForm::List)
            return pNode;
    }
    if (IsName(pToken))
    {
        if (pKeyword != nullptr)
            NoteDropped(nStart, *pPos);
        pNode = ReadName(pPos, pToken);
    }
    if (pNode == nullptr)
        return NewNode(NTI_STANDARD);
    if (IsToken(pToken, '('))
        ReadCallForm(pPos, pToken, pNode);
    return pNode;
}

// number := ( digit | "." | "%" ) { digit | "." | "%" }
// Blanks inside it and behind it stay in its text.
CNode* CFormulaParser::ReadNumber(WORD* pPos, CString* pToken)
{
    const WORD nStart = *pPos;
    do
        NextChar(pPos, pToken);
    while (IsNumber(pToken));
    return NewNode(NTI_NUMBER, TextBetween(nStart, *pPos), { nStart, *pPos });
}

// group := "(" expression [ ")" ]
CNode* CFormulaParser::ReadGroup(WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    CNode* pNode = ParseExpression(pPos, pToken);
    if (IsToken(pToken, ')'))
        NextChar(pPos, pToken);
    return pNode;
}

// name := letter { letter }, the letters being a-z, A-Z and ' [ ] { } |
CNode* CFormulaParser::ReadName(WORD* pPos, CString* pToken)
{
    const WORD nStart = *pPos;
    do
        NextChar(pPos, pToken);
    while (IsName(pToken));
    return NewNode(NTI_VARIABLE, TextBetween(nStart, *pPos), { nStart, *pPos });
}

// call form := "(" list [ ")" ]
// Hangs on the right of the node at hand, whatever that is. Several arguments nest to the left.
void CFormulaParser::ReadCallForm(WORD* pPos, CString* pToken, CNode* pNode)
{
    NextChar(pPos, pToken);
    CNodeList list;
    ParseList(pPos, pToken, &list);
    CNode* pBrace = NewNode(NTI_BRACE);
    pNode->LinkRight(pBrace);
    CNode* pChain = list[0];
    for (int i = 1; i < list.GetSize(); i++)
    {
        CNode* pComma = NewNode(NTI_VARIABLE, CharStr(','));
        pComma->LinkLeft(pChain);
        pComma->LinkRight(list[i]);
        pChain = pComma;
    }
    pBrace->LinkLeft(pChain);
    if (IsToken(pToken, ')'))
        NextChar(pPos, pToken);
}

// The keyword at the current position, which moves to its last letter; the token stays its first.
const CKeyword* CFormulaParser::TakeKeyword(WORD* pPos) const
{
    if (*pPos == 0 || *pPos > m_strText.GetLength())
        return nullptr;
    const CKeyword* pKeyword = FindKeyword(static_cast<LPCSTR>(m_strText) + *pPos - 1);
    if (pKeyword != nullptr)
        *pPos = static_cast<WORD>(*pPos + pKeyword->GetLength() - 1);
    return pKeyword;
}

CNode* CFormulaParser::ReadKeyword(const CKeyword& keyword, WORD* pPos, CString* pToken)
{
    switch (keyword.form)
    {
        case EKeywordForm::List:
            return ReadListForm(keyword, pPos, pToken);
        case EKeywordForm::Greek:
            return ReadGreek(pPos, pToken);
        case EKeywordForm::Text:
            return ReadText(keyword, pPos, pToken);
        case EKeywordForm::Brace:
            return ReadBrace(keyword, pPos, pToken);
        case EKeywordForm::Unit:
            // Units mean something to the calculation only. The token is still the first letter, so
            // that a name follows, read from the keyword's last letter on.
            return nullptr;
        default:
            return ReadFunction(keyword, pPos, pToken);
    }
}

// direct    := "ABS" primary | "SQR" primary
// bracketed := "SINH" primary | ..., always with brackets
// light     := "SIN" primary | ..., without brackets around a leaf
CNode* CFormulaParser::ReadFunction(const CKeyword& keyword, WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    CNode* pOperand = ParsePrimary(pPos, pToken);
    CNode* pNode = NewNode(keyword.nType);
    if (keyword.nKind != 0)
        SetKind(pNode, keyword.nKind);
    if (keyword.form == EKeywordForm::Direct)
    {
        pNode->LinkLeft(pOperand);
        return pNode;
    }
    const bool bBare = keyword.form == EKeywordForm::Light && pOperand->IsLeaf();
    pNode->LinkRight(NewNode(bBare ? NTI_STANDARD : NTI_BRACE, pOperand, nullptr));
    return pNode;
}

// greek := "GREEK" primary
// Every name that is made meanwhile is in the operand, and takes the face at once.
CNode* CFormulaParser::ReadGreek(WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    m_nGreek++;
    CNode* pOperand = ParsePrimary(pPos, pToken);
    m_nGreek--;
    return pOperand;
}

// list form := ( "INT" | "SUM" | "NSQR" | "MARK" ) "(" list ")"
CNode* CFormulaParser::ReadListForm(const CKeyword& keyword, WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    if (!IsToken(pToken, '('))
        return Fail(keyword.noOpen, pPos, pToken);
    NextChar(pPos, pToken);
    CNodeList list;
    ParseList(pPos, pToken, &list);
    if (!IsToken(pToken, ')'))
        return Fail(keyword.noClose, pPos, pToken);
    CNode* pNode = LinkItems(keyword, ItemOf(list, 0), ItemOf(list, 1), ItemOf(list, 2));
    NextChar(pPos, pToken);
    return pNode;
}

// pSecond and pThird are null where the list is shorter.
CNode* CFormulaParser::LinkItems(const CKeyword& keyword, CNode* pFirst, CNode* pSecond,
                                 CNode* pThird)
{
    CNode* pNode = NewNode(keyword.nType);
    if (keyword.nType == NTI_NTHROOT)
    {
        pNode->LinkLeft(pFirst);
        if (pSecond != nullptr)
            pNode->LinkRight(Wrapped(pSecond));
        return pNode;
    }
    // An index hangs on its base and holds the limits itself; a big operator has a range for them.
    const bool bIndex = keyword.nType == NTI_INDEX;
    CNode* pResult = bIndex ? Wrapped(pFirst) : pNode;
    CNode* pLimits = bIndex ? pNode : pNode->GetLeft();
    if (pThird != nullptr)
        pLimits->LinkLeft(Wrapped(pThird));
    if (pSecond != nullptr)
        pLimits->LinkRight(Wrapped(pSecond));
    pResult->LinkRight(bIndex ? pNode : Wrapped(pFirst));
    return pResult;
}

// text := "STR" "(" { any character | "\" any character } ")"
// Blanks between two characters are kept.
CNode* CFormulaParser::ReadText(const CKeyword& keyword, WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    if (!IsToken(pToken, '('))
        return Fail(keyword.noOpen, pPos, pToken);
    NextChar(pPos, pToken);
    std::string strText;
    const WORD nStart = *pPos;
    int nNext = *pPos;  // where the next character stands if no blank comes before it
    while (!IsToken(pToken, ')') && !IsToken(pToken, '\0'))
    {
        strText.append(*pPos - nNext, ' ');
        if (IsToken(pToken, '\\'))
        {
            nNext = *pPos + 1;
            NextChar(pPos, pToken);
            if (IsToken(pToken, '\0'))
                break;
            strText.append(*pPos - nNext, ' ');
        }
        strText += TokenChar(*pToken);
        nNext = *pPos + 1;
        NextChar(pPos, pToken);
    }
    CNode* pNode = NewNode(NTI_VARIABLE, CString(strText.data(), static_cast<int>(strText.size())),
                           { nStart, *pPos });
    NextChar(pPos, pToken);
    return pNode;
}

// brace := "BRACE" "(" left "," right "," content ")"
// The list begins on its "(", which the first item reads as a group; so a single item also takes
// the ")", and the last step goes over one more character.
CNode* CFormulaParser::ReadBrace(const CKeyword& keyword, WORD* pPos, CString* pToken)
{
    NextChar(pPos, pToken);
    if (!IsToken(pToken, '('))
        return Fail(keyword.noOpen, pPos, pToken);
    CNodeList list;
    ParseList(pPos, pToken, &list);
    CNode* pBrace = NewNode(NTI_BRACE);
    SetKind(pBrace,
            BracketType(BracketText(ItemOf(list, 0), "<"), BracketText(ItemOf(list, 1), ">")));
    for (int i = 0; i < 2 && i < list.GetSize(); i++)
        m_apBrackets.push_back(list[i]);
    if (CNode* pContent = ItemOf(list, 2))
        pBrace->LinkLeft(pContent);
    if (m_bEnded)
        return pBrace;
    if (!IsToken(pToken, ')') && !IsToken(pToken, '\0'))
        NoteDropped(*pPos, static_cast<WORD>(*pPos + 1));
    NextChar(pPos, pToken);
    return pBrace;
}

// Ends the parse: nothing more is read, every level above finishes the node that it holds, and a
// list form above finds no ")" and so fails in its turn. The position wraps below 0.
CNode* CFormulaParser::Fail(const CRewind& rewind, WORD* pPos, CString* pToken)
{
    *pPos = static_cast<WORD>(*pPos - rewind.nBack);
    *pToken = CharStr(rewind.chToken);
    m_bEnded = true;
    return NewNode(NTI_STANDARD);
}
