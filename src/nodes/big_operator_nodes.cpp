// Sums, products and integrals: a large sign with limits, in front of what it acts on.
#include "nodes/big_operator_nodes.h"

#include "format/tree_format.h"
#include "nodes/big_operator_archive.h"
#include "nodes/moves.h"
#include "nodes/range_node.h"
#include "nodes/sign_drawing.h"

namespace
{
// Signs in "Symbol". Kinds are stored in archives: a row keeps its number, so that rows which
// repeat another one stay. A question mark is what these kinds show.
constexpr CKindRow s_aIntegrals[] = {
    // sign            face
    { "\xF2", "Symbol" },       // 0
    { "?", "Symbol" },          // 1
    { "?", "Symbol" },          // 2
    { "\xF2\xF2", "Symbol" },   // 3
    { "\xF2\xF2", "Symbol" },   // 4
    { "\xF2\xF2", "Symbol" },   // 5
    { "\xF2\xF2?", "Symbol" },  // 6
    { "\xF2\xF2?", "Symbol" },  // 7
    { "\xF2\xF2?", "Symbol" },  // 8
};

const CKindTable& IntegralKinds()
{
    static const CKindTable s_table(s_aIntegrals);
    return s_table;
}

// What the two classes of big operators have in common beyond CNode.
void ConstructBigOperator(CNode& node)
{
    node.m_pLeft = new CRangeNode(&node);
    node.m_logFont.lfHeight = g_DefaultFormat.GetBigHeight(0);
}

// The range's base line tells where its gap begins, and the sign drops into it. Sign and summand
// line up on their axes: the one that reaches less high over its axis is moved down.
void ArrangeBigOperator(CNode& node, CRect& rect, CRect& left, CRect& right, CRect& own)
{
    CNode* pRange = node.m_pLeft;  // null only if a host unlinked it
    int nGap = pRange != nullptr ? pRange->m_nBaseline : 0;
    const int nAxisRight = AxisOf(node.m_pRight, right);
    const int nAxisSign = Sum(own.Height() / 2, nGap);
    const int nSignDown = Excess(nAxisRight, nAxisSign);
    const int nRightDown = Excess(nAxisSign, nAxisRight);

    nGap = Sum(nGap, nSignDown);
    if (pRange != nullptr)
        pRange->m_nBaseline = nGap;

    int x = rect.left;
    own.OffsetRect(x, Sum(rect.top, nGap));
    PlaceInRow(left, x, Sum(rect.top, nSignDown));
    CentreHorizontally(own, left);
    PlaceInRow(right, x, Sum(rect.top, nRightDown));
    rect.right = x;
    rect.bottom = Sum(rect.top, (left | right).Height());
    node.m_nBaseline = Sum(WrapSub(own.top, rect.top), own.Height() / 2);
}
}  // namespace

CSumNode::CSumNode() : CSumNode(NTI_SUM) {}

CSumNode::CSumNode(ENodeType nType) : CNode(nType)
{
    ConstructBigOperator(*this);
}

void CSumNode::ApplyFormat(CBinTreeFormat* pFormat)
{
    CNode::ApplyFormat(pFormat);
    m_logFont.lfHeight = pFormat->GetBigHeight(m_nLevel);
}

void CSumNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    SerializeBigOperator(*this, ar, pTree, nullptr);
}

void CSumNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    ArrangeBigOperator(*this, rect, left, right, own);
}

void CSumNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    DrawSign(pDC, rect, SIGN_FORMAT | DT_CENTER | DT_BOTTOM);
}

CProdNode::CProdNode() : CSumNode(NTI_PROD) {}

CIntegralNode::CIntegralNode() : COpNode(NTI_INTEGRAL)
{
    TakeKinds(IntegralKinds());
    ConstructBigOperator(*this);
}

void CIntegralNode::ApplyFormat(CBinTreeFormat* pFormat)
{
    COpNode::ApplyFormat(pFormat);
    m_logFont.lfHeight = pFormat->GetBigHeight(m_nLevel);
}

void CIntegralNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    SerializeBigOperator(*this, ar, pTree, &m_nKind);
}

void CIntegralNode::Arrange(CRect& rect, CRect& left, CRect& right, CRect& own)
{
    ArrangeBigOperator(*this, rect, left, right, own);
}

CRect CIntegralNode::GetOwnSize(CDC* pDC)
{
    SelectKind();
    return COpNode::GetOwnSize(pDC);
}

void CIntegralNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    SelectKind();
    DrawSign(pDC, rect, SIGN_FORMAT | DT_CENTER | DT_BOTTOM);
}

CIntegrandNode::CIntegrandNode() : CNode(NTI_INTEGRAND) {}
