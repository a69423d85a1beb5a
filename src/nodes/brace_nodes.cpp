// Brackets around a formula, as high as what they enclose.
#include "nodes/brace_nodes.h"

#include "nodes/draw_scope.h"
#include "nodes/moves.h"
#include "nodes/sign_drawing.h"

namespace
{
// Left and right glyph in "Symbol"; a blank draws nothing that shows. Kinds are stored in
// archives: a row keeps its number, so that rows which repeat another one stay. A question mark
// is what these kinds show.
constexpr CKindRow s_aBraces[] = {
    { "()", "Symbol" },        //  0 round
    { "[]", "Symbol" },        //  1 square
    { "{}", "Symbol" },        //  2 curly
    { "\xE1\xF1", "Symbol" },  //  3 angle
    { "||", "Symbol" },        //  4 bars
    { "||", "Symbol" },        //  5
    { "[[", "Symbol" },        //  6
    { "]]", "Symbol" },        //  7
    { "][", "Symbol" },        //  8
    { "[)", "Symbol" },        //  9 half open
    { "(]", "Symbol" },        // 10
    { "( ", "Symbol" },        // 11 one side only
    { " )", "Symbol" },        // 12
    { "[ ", "Symbol" },        // 13
    { " ]", "Symbol" },        // 14
    { "{ ", "Symbol" },        // 15
    { " }", "Symbol" },        // 16
    { "?", "Symbol" },         // 17 no right glyph
    { " ?", "Symbol" },        // 18
    { "| ", "Symbol" },        // 19
    { " |", "Symbol" },        // 20
    { "| ", "Symbol" },        // 21
    { " |", "Symbol" },        // 22
    { "|?", "Symbol" },        // 23
    { "\xE1|", "Symbol" },     // 24
};

const CKindTable& BraceKinds()
{
    static const CKindTable s_table(s_aBraces);
    return s_table;
}

constexpr UINT s_nGlyphFormat = SIGN_FORMAT | DT_BOTTOM | DT_EXTERNALLEADING;

// Of one bracket around content of this height.
int BracketWidth(int nHeight)
{
    return nHeight / 5 + 5;
}

// Tenths of a point: the glyph is taller than the height that the font is asked for.
int BracketFontHeight(int nHeight)
{
    return TruncToInt(WrapSub(nHeight, 2) * 100.0 / 12.0);
}

// The end mark of a row of one character draws nothing.
void DrawBracket(CDC* pDC, char chGlyph, CRect rect, UINT nFormat)
{
    if (chGlyph != '\0')
        pDC->DrawText(&chGlyph, 1, &rect, nFormat);
}
}  // namespace

CBraceNode::CBraceNode() : CBraceNode(NTI_BRACE) {}

CBraceNode::CBraceNode(ENodeType nType) : COpNode(nType)
{
    TakeKinds(BraceKinds());
}

void CBraceNode::Arrange(CRect& rect, CRect& left, CRect&, CRect& own)
{
    const int nWidth = BracketWidth(left.Height());

    own.OffsetRect(rect.left, rect.top);
    int x = Sum(rect.left, nWidth, 1);
    PlaceInRow(left, x, rect.top);
    own.right = Sum(x, nWidth);
    own.bottom = Sum(own.top, left.Height());
    rect.right = Sum(x, nWidth, 1);
    rect.bottom = Sum(rect.top, own.Height());
    m_nBaseline = own.Height() / 2;  // the content's axis is not handed on
}

CRect CBraceNode::GetOwnSize(CDC* pDC)
{
    SelectKind();
    return COpNode::GetOwnSize(pDC);
}

void CBraceNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    SelectKind();
    const int nWidth = BracketWidth(rect.Height());
    m_logFont.lfHeight = BracketFontHeight(rect.Height());
    m_logFont.lfWidth = nWidth;

    const CFontScope font(pDC, m_logFont);
    DrawBracket(pDC, m_strSymbol[0],
                CRect(rect.left, rect.top, Sum(rect.left, nWidth), rect.bottom), s_nGlyphFormat);
    DrawBracket(pDC, m_strSymbol[1],
                CRect(WrapSub(rect.right, nWidth), rect.top, rect.right, rect.bottom),
                s_nGlyphFormat | DT_RIGHT);
}

CPoisonNode::CPoisonNode() : CBraceNode(NTI_POISON) {}

void CPoisonNode::PaintOwn(CDC* pDC, CRect rect, UINT nFlags)
{
    CBraceNode::PaintOwn(pDC, rect, nFlags);
}
