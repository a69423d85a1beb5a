// Layouts of parts whose sizes the rows name, worked out by hand.
#include <algorithm>
#include <climits>
#include <iterator>

#include "format/node_types.h"
#include "format/tree_format.h"
#include "nodes/node_fixture.h"

namespace
{
// A measured child.
struct CPart
{
    int cx = 0;
    int cy = 0;
    int nBaseline = 0;
    bool bNode = true;
};

constexpr CPart NONE{ 0, 0, 0, false };
constexpr int KEPT = 77;  // a base line from before, which structures do not write

struct CArrangeCase
{
    const char* pszTypes;
    const char* pszName;
    CPoint origin;
    CPart left;
    CPart right;
    CSize own;

    CRect leftPlaced;
    CRect rightPlaced;
    CRect ownPlaced;
    CRect rect;
    int nBaseline;
};

// Of a big operator the left part is a measured range: its base line tells where the gap begins.
// clang-format off
const CArrangeCase s_aRows[] = {
    { "POWERTO", "exponent overlaps", { 100, 200 }, { 10, 14, 7 }, { 6, 11, 5 }, { 0, 0 },
      { 100, 211, 110, 225 }, { 108, 208, 114, 219 }, { 100, 208, 114, 225 }, { 100, 200, 117, 225 }, 18 },
    { "POWERTO", "no exponent", { 100, 200 }, { 10, 14, 3 }, NONE, { 0, 0 },
      { 100, 200, 110, 214 }, { 108, 208, 108, 208 }, { 100, 200, 110, 214 }, { 100, 200, 111, 214 }, 7 },
    { "POWERTO", "no base", { 100, 200 }, NONE, { 6, 11, 5 }, { 0, 0 },
      { 100, 211, 100, 211 }, { 98, 208, 104, 219 }, { 98, 208, 104, 219 }, { 100, 200, 107, 211 }, 11 },
    { "INDEX", "no upper", { 100, 200 }, NONE, { 14, 7, 3 }, { 0, 0 },
      { 100, 200, 100, 200 }, { 100, 201, 114, 208 }, { 0, 0, 0, 0 }, { 100, 200, 114, 209 }, 2 },
    { "DIVISION", "denominator is wider", { 100, 200 }, { 20, 14, 6 }, { 31, 11, 5 }, { 0, 5 },
      { 107, 200, 127, 214 }, { 102, 221, 133, 232 }, { 100, 215, 135, 220 }, { 100, 200, 135, 233 }, 17 },
    { "DIVISION", "empty denominator keeps a row", { 100, 200 }, { 10, 12, 4 }, NONE, { 0, 5 },
      { 102, 200, 112, 212 }, { 107, 219, 107, 219 }, { 100, 213, 114, 218 }, { 100, 200, 114, 220 }, 15 },
    { "DIVISION[1]", "slash leans by a quarter", { 100, 200 }, { 20, 14, 6 }, { 31, 11, 8 }, { 0, 0 },
      { 100, 202, 120, 216 }, { 126, 200, 157, 211 }, { 121, 200, 125, 216 }, { 100, 200, 158, 216 }, 8 },
    { "DIVISION[2]", "other kind places nothing", { 100, 200 }, { 20, 14, 6 }, { 31, 11, 8 }, { 0, 0 },
      { 0, 0, 20, 14 }, { 0, 0, 31, 11 }, { 0, 0, 0, 0 }, { 100, 200, 100, 200 }, KEPT },
    { "NTHROOT ROOT", "degree stands ahead", { 100, 200 }, { 21, 28, 10 }, { 8, 9, 4 }, { 13, 20 },
      { 122, 202, 143, 230 }, { 100, 200, 108, 209 }, { 108, 200, 144, 230 }, { 100, 200, 144, 230 }, 15 },
    // 13 * 2 / 7 is 3.7: the sign is 8 wide
    { "NTHROOT ROOT", "sign is cut to whole units", { 100, 200 }, { 10, 13, 5 }, NONE, { 13, 20 },
      { 109, 202, 119, 215 }, { 100, 200, 100, 200 }, { 100, 200, 120, 222 }, { 100, 200, 120, 222 }, 11 },
    { "NTHROOT ROOT", "degree is highest", { 0, 0 }, { 10, 14, 5 }, { 6, 40, 4 }, { 13, 20 },
      { 16, 2, 26, 16 }, { 0, 0, 6, 40 }, { 6, 0, 27, 42 }, { 0, 0, 27, 42 }, 21 },
    { "BRACE[11] POISON[11]", "right child stays where it is", { 100, 200 }, { 20, 25, 3 }, { 5, 6, 2 }, { 14, 11 },
      { 111, 200, 131, 225 }, { 0, 0, 5, 6 }, { 100, 200, 142, 225 }, { 100, 200, 143, 225 }, 12 },
    { "BRACE POISON", "turned over content", { 0, 0 }, { -11, -7, 2 }, NONE, { 14, 11 },
      { 5, 0, -6, -7 }, { 0, 0, 0, 0 }, { 0, 0, -1, -7 }, { 0, 0, 0, -7 }, -3 },
    { "VECTOR", "mark spans the expression", { 100, 200 }, { 20, 14, 6 }, NONE, { 6, 8 },
      { 100, 209, 120, 223 }, { 0, 0, 0, 0 }, { 100, 200, 120, 208 }, { 100, 200, 120, 224 }, 15 },
    { "VECTOR", "mark is wider", { 100, 200 }, { 10, 14, 6 }, { 5, 6, 2 }, { 22, 8 },
      { 106, 209, 116, 223 }, { 0, 0, 5, 6 }, { 100, 200, 122, 208 }, { 100, 200, 122, 224 }, 15 },
    { "RANGE", "gap is widest", { 0, 0 }, { 9, 10, 4 }, { 14, 7, 3 }, { 20, 16 },
      { 5, 0, 14, 10 }, { 3, 28, 17, 35 }, { 0, 0, 0, 0 }, { 0, 0, 20, 36 }, 11 },
    { "RANGE", "base line holds the top", { 100, 200 }, { 9, 10, 4 }, { 14, 7, 3 }, { 12, 16 },
      { 102, 200, 111, 210 }, { 100, 228, 114, 235 }, { 0, 0, 0, 0 }, { 100, 200, 114, 236 }, 211 },
    { "RANGE", "no limits", { 0, 0 }, NONE, NONE, { 12, 16 },
      { 6, 0, 6, 0 }, { 6, 18, 6, 18 }, { 0, 0, 0, 0 }, { 0, 0, 12, 19 }, 1 },
    { "SUM PROD INTEGRAL", "high summand pushes the sign down", { 100, 200 }, { 14, 36, 11 }, { 30, 50, 30 }, { 12, 16 },
      { 100, 211, 114, 247 }, { 115, 200, 145, 250 }, { 101, 222, 113, 238 }, { 100, 200, 146, 250 }, 30 },
    { "SUM PROD INTEGRAL", "summand without height has no axis", { 100, 200 }, { 14, 36, 11 }, { 30, 0, 50 }, { 12, 16 },
      { 100, 200, 114, 236 }, { 115, 219, 145, 219 }, { 101, 211, 113, 227 }, { 100, 200, 146, 236 }, 19 },
    { "LIMES", "high expression pushes down", { 100, 200 }, { 25, 9, 4 }, { 20, 30, 15 }, { 18, 11 },
      { 100, 222, 125, 231 }, { 126, 200, 146, 230 }, { 103, 210, 121, 221 }, { 100, 200, 146, 231 }, 15 },
    { "LIMES", "no expression", { 100, 200 }, { 25, 9, 4 }, NONE, { 18, 11 },
      { 100, 212, 125, 221 }, { 126, 205, 126, 205 }, { 103, 200, 121, 211 }, { 100, 200, 126, 221 }, 5 },
    { "LIMES", "flat expression has no axis", { 100, 200 }, { 9, 9, 4 }, { 20, 0, 50 }, { 18, 11 },
      { 104, 212, 113, 221 }, { 119, 205, 139, 205 }, { 100, 200, 118, 211 }, { 100, 200, 139, 221 }, 5 },
    { "PARTDERIVE DERIVE", "high expression pushes down", { 100, 200 }, { 6, 9, 4 }, { 20, 30, 15 }, { 8, 11 },
      { 109, 219, 115, 228 }, { 116, 200, 136, 230 }, { 100, 202, 114, 228 }, { 100, 200, 137, 230 }, 15 },
    { "PARTDERIVE DERIVE", "no expression", { 100, 200 }, { 6, 9, 4 }, NONE, { 8, 11 },
      { 109, 217, 115, 226 }, { 116, 213, 116, 213 }, { 100, 200, 114, 226 }, { 100, 200, 117, 226 }, 13 },
    // The free row between the parts counts in height only.
    { "BINOMIAL", "one font height apart", { 100, 200 }, { 9, 10, 4 }, { 14, 7, 3 }, { 40, 11 },
      { 102, 200, 111, 210 }, { 100, 223, 114, 230 }, { 0, 0, 0, 0 }, { 100, 200, 114, 231 }, KEPT },
    { "MATRIX", "one unit apart", { 100, 200 }, { 9, 10, 4 }, { 14, 7, 3 }, { 0, 0 },
      { 102, 200, 111, 210 }, { 100, 211, 114, 218 }, { 0, 0, 0, 0 }, { 100, 200, 114, 219 }, KEPT },
    { "LINE", "own part stays", { 100, 200 }, { 9, 10, 4 }, { 14, 7, 3 }, { 20, 3 },
      { 105, 207, 114, 217 }, { 103, 200, 117, 207 }, { 0, 0, 20, 3 }, { 100, 200, 120, 217 }, KEPT },
    { "ELEMENT", "base line holds the top", { 100, 200 }, { 9, 10, 4 }, { 14, 7, 3 }, { 0, 0 },
      { 100, 200, 109, 210 }, { 111, 201, 125, 208 }, { 0, 0, 0, 0 }, { 100, 200, 125, 210 }, 205 },
    { "ELEMENT", "own part counts", { 0, 0 }, { 9, 10, 4 }, { 14, 7, 3 }, { 3, 12 },
      { 0, 1, 9, 11 }, { 14, 2, 28, 9 }, { 0, 0, 0, 0 }, { 0, 0, 28, 12 }, 6 },
};
// clang-format on

// A child that is there already, the range of a big operator, is kept.
void Hang(CNode*& pChild, const CPart& part)
{
    if (!part.bNode)
        return;
    if (pChild == nullptr)
        pChild = new CNode;
    pChild->m_nBaseline = part.nBaseline;
}
}  // namespace

TEST(Arrange, PlacesParts)
{
    for (const CArrangeCase& row : s_aRows)
    {
        for (const std::string& strType : Words(row.pszTypes))
        {
            SCOPED_TRACE(strType + ": " + row.pszName);
            const CNodePtr pNode = Sketch("(" + strType + ")");
            Hang(pNode->m_pLeft, row.left);
            Hang(pNode->m_pRight, row.right);
            pNode->m_nBaseline = KEPT;
            CRect rect(row.origin, row.origin);
            CRect left(0, 0, row.left.cx, row.left.cy);
            CRect right(0, 0, row.right.cx, row.right.cy);
            CRect own(CPoint(), row.own);
            pNode->Arrange(rect, left, right, own);
            EXPECT_EQ(left, row.leftPlaced) << "left";
            EXPECT_EQ(right, row.rightPlaced) << "right";
            EXPECT_EQ(own, row.ownPlaced) << "own";
            EXPECT_EQ(rect, row.rect) << "rect";
            EXPECT_EQ(pNode->m_nBaseline, row.nBaseline) << "base line";
            // Only a big operator moves a child's: the gap of its range goes with the sign.
            const bool bBig = std::string(row.pszTypes).starts_with("SUM");
            if (row.left.bNode)
            {
                EXPECT_EQ(pNode->m_pLeft->m_nBaseline,
                          row.left.nBaseline + (bBig ? left.top - row.origin.y : 0));
            }
        }
    }
}

// Stored formulas can hold any number: sizes, base lines, font heights, levels and sizes of a
// table, all of either extreme, are placed, painted and formatted without undefined arithmetic.
// The sanitizers are what notices.
TEST(Arrange, TakesExtremeNumbers)
{
    constexpr int s_anExtremes[] = { INT_MIN, INT_MIN + 1, -1, 0, INT_MAX };
    CTestDC dc;
    for (int n = 0; n < NTI_COUNT * 6 * 25; ++n)
    {
        const int x = s_anExtremes[n % 5];
        const int y = s_anExtremes[n / 5 % 5];
        CNodePtr pNode(CBinTree().CreateNode(NodeTypeName(static_cast<ENodeType>(n / 150))));
        if (auto* pTyped = dynamic_cast<CTypedNode*>(pNode.get()))
            pTyped->SetKind(n / 25 % 6);
        Hang(pNode->m_pLeft, { 0, 0, y });
        Hang(pNode->m_pRight, { 0, 0, y });
        CRect rect(y, x, y, x);
        CRect left(0, 0, x, x);
        CRect right(0, 0, y, x);
        CRect own(0, 0, x, y);
        pNode->Arrange(rect, left, right, own);
        pNode->GetLogFont()->lfHeight = x;
        pNode->GetOwnSize(&dc);
        pNode->PaintOwn(&dc, own, PF_NODE);
        pNode->PaintOwn(&dc, CRect(x, y, y, x), 0);

        pNode->m_nLeftLevelStep = x;
        pNode->m_nRightLevelStep = INT_MIN;
        pNode->SetLevel(x);
        CBinTreeFormat format;
        std::fill(std::begin(format.m_nSizes), std::end(format.m_nSizes), x);
        pNode->ApplyFormat(&format);
        EXPECT_EQ(pNode->GetLogFont()->lfHeight, static_cast<int>(x * 10LL));
    }
}
