// Marks over an expression: bars, dots, tildes, by kind.
#include "nodes/vector_node.h"

#include "format/tree_format.h"
#include "nodes/draw_scope.h"
#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
enum EVectorKind
{
    VEC_MEAN = 3,
    VEC_NORM = 4,
    VEC_ARROW = 5
};

// Kinds are stored in archives: a row keeps its number. A question mark is what these kinds show.
constexpr CKindRow s_aMarks[] = {
    // sign          face      text
    { "?", "Symbol", "_P" },              // 0
    { "??", "Symbol", "_PP" },            // 1
    { "\xD7\xD7?", "Symbol", "_PPP" },    // 2
    { "?", "Symbol", "_MEAN" },           // 3
    { "?", "Symbol", "_NORM" },           // 4
    { "?", "Symbol", "_VEC" },            // 5
    { "~", "Symbol", "_WINDED" },         // 6
    { "?", "Symbol", "_DOUBLE_WINDED" },  // 7
};

const CKindTable& MarkKinds()
{
    static const CKindTable s_table(s_aMarks);
    return s_table;
}

constexpr int s_nFirstLine = 1;  // below the middle of the mark's rectangle
constexpr int s_nSecondLine = 5;
}  // namespace

CVectorNode::CVectorNode() : COpNode(NTI_VECTOR)
{
    TakeKinds(MarkKinds());
    m_logFont.lfHeight = g_DefaultFormat.GetSize(2);
}

void CVectorNode::Arrange(CRect& rect, CRect& left, CRect&, CRect& own)
{
    const int nAxisLeft = AxisOf(m_pLeft, left);

    int y = rect.top;
    StackDown(own, rect.left, y);
    StackDown(left, rect.left, y);
    rect.right = Sum(rect.left, WidestOf(left, own));
    rect.bottom = y;
    own.right = rect.right;
    CentreHorizontally(left, rect);
    CentreHorizontally(own, rect);
    m_nBaseline = Sum(own.Height(), nAxisLeft, 1);
}

CRect CVectorNode::GetOwnSize(CDC* pDC)
{
    SelectKind();
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(2);
    return COpNode::GetOwnSize(pDC);
}

void CVectorNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    SelectKind();
    const bool bLined = m_nKind == VEC_MEAN || m_nKind == VEC_NORM || m_nKind == VEC_ARROW;
    const CFontScope font(pDC, m_logFont);
    pDC->DrawText(m_strSymbol, &rect, SIGN_FORMAT | DT_BOTTOM | (bLined ? DT_RIGHT : DT_CENTER));

    const int yMiddle = Sum(rect.top, rect.Height() / 2);
    if (bLined)
    {
        // With heights of negative sign the line runs beyond the right edge.
        const int y = Sum(yMiddle, s_nFirstLine);
        DrawLine(pDC, CPoint(rect.left, y),
                 CPoint(WrapSub(rect.right, m_logFont.lfHeight / 10), y));
    }
    if (m_nKind == VEC_NORM)
    {
        const int y = Sum(yMiddle, s_nSecondLine);
        DrawLine(pDC, CPoint(rect.left, y), CPoint(Sum(rect.right, 1), y));
    }
}
