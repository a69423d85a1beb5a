// Operators that stand in a row between their operands.
#include "nodes/operator_nodes.h"

#include "format/tree_format.h"
#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
// Kinds are stored in archives: a row keeps its number. A question mark is what these kinds show.
constexpr CKindRow s_aRelations[] = {
    // sign    face      text
    { "=", "Symbol", "=" },        //  0
    { "\xA3", "Symbol", ".LE." },  //  1
    { "\xB3", "Symbol", ".GE." },  //  2
    { "<", "Symbol", ".LT." },     //  3
    { ">", "Symbol", ".GT." },     //  4
    { "\xB9", "Symbol", ".NE." },  //  5
    { "?", "Symbol", "=" },        //  6
    { "?", "Symbol", "=" },        //  7
    { "@", "Symbol", "=" },        //  8
    { "?", "Symbol", "=" },        //  9
    { "?", "Symbol", "=" },        // 10
    { "?", "Symbol", "=" },        // 11
    { "?", "Symbol", "=" },        // 12
    { "?", "Symbol", "=" },        // 13
    { "?", "Symbol", "=" },        // 14
    { "?", "Symbol", "=" },        // 15
    { "?", "Symbol", "=" },        // 16
    { "'", "Symbol", "=" },        // 17
    { "$", "Symbol", "=" },        // 18
    { "\"", "Symbol", "=" },       // 19
};

constexpr CKindRow s_aArrows[] = {
    { "?", "Symbol" },    //  0
    { "?", "Symbol" },    //  1
    { "?", "Symbol" },    //  2
    { "?", "Symbol" },    //  3
    { "?", "Symbol" },    //  4
    { "b", "MT Extra" },  //  5
    { "?", "Symbol" },    //  6
    { "?", "Symbol" },    //  7
    { "?", "Symbol" },    //  8
    { "?", "Symbol" },    //  9
    { "?", "Symbol" },    // 10
    { "c", "MT Extra" },  // 11
};

const CKindTable& RelationKinds()
{
    static const CKindTable s_table(s_aRelations);
    return s_table;
}

const CKindTable& ArrowKinds()
{
    static const CKindTable s_table(s_aArrows);
    return s_table;
}
}  // namespace

CPlusNode::CPlusNode() : COpNode(NTI_PLUS) {}

CMinusNode::CMinusNode() : COpNode(NTI_MINUS) {}

CCrossNode::CCrossNode() : COpNode(NTI_CROSS) {}

COperatorNode::COperatorNode() : COpNode(NTI_OPERATOR)
{
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(1);
}

CTimesNode::CTimesNode() : COpNode(NTI_TIMES) {}

CRect CTimesNode::GetOwnSize(CDC* pDC)
{
    const CSize sign = MeasureSign(pDC);
    return CRect(0, 0, WrapAdd(sign.cx, g_nTimesGap), sign.cy);
}

CEquationNode::CEquationNode() : COpNode(NTI_EQUATION)
{
    TakeKinds(RelationKinds());
}

CRect CEquationNode::GetOwnSize(CDC* pDC)
{
    SelectKind();
    return COpNode::GetOwnSize(pDC);
}

void CEquationNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    SelectKind();
    DrawSign(pDC, rect, SIGN_FORMAT | DT_CENTER | DT_VCENTER);
}

CArrowNode::CArrowNode() : COpNode(NTI_ARROWS)
{
    TakeKinds(ArrowKinds());
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(1);
}

CRect CArrowNode::GetOwnSize(CDC* pDC)
{
    SelectKind();
    return COpNode::GetOwnSize(pDC);
}

void CArrowNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    SelectKind();
    DrawSign(pDC, rect, SIGN_FORMAT | DT_CENTER | DT_BOTTOM);
}
