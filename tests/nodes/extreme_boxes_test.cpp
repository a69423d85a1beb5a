// Stored formulas can hold any number: sizes, base lines and font heights of either extreme are
// placed and painted without undefined arithmetic. The sanitizers are what notices.
#include <algorithm>
#include <climits>

#include "format/node_types.h"
#include "format/tree_format.h"
#include "nodes/node_fixture.h"

namespace
{
constexpr int s_anExtremes[] = { INT_MIN, INT_MIN + 1, -1, 0, INT_MAX };

CNodePtr Extreme(ENodeType nType, int nKind, int n)
{
    CNodePtr pNode = Node(NodeTypeName(nType).GetString());
    if (auto* pTyped = dynamic_cast<CTypedNode*>(pNode.get()))
        pTyped->SetKind(nKind);
    for (CNode** ppChild : { &pNode->m_pLeft, &pNode->m_pRight })
    {
        if (*ppChild == nullptr)
            *ppChild = new CNode;
        (*ppChild)->m_nBaseline = n;
    }
    return pNode;
}
}  // namespace

TEST(ExtremeBoxes, ArePlacedAndPainted)
{
    CTestDC dc;
    int nPlaced = 0;
    for (int nType = 0; nType < NTI_COUNT; ++nType)
    {
        for (int nKind = 0; nKind < 6; ++nKind)
        {
            for (const int n : s_anExtremes)
            {
                for (const int m : s_anExtremes)
                {
                    const CNodePtr pNode = Extreme(static_cast<ENodeType>(nType), nKind, m);
                    const CArranged placed =
                        ArrangeParts(*pNode, { m, n }, { n, n }, { m, n }, { n, m });
                    pNode->GetLogFont()->lfHeight = n;
                    pNode->GetOwnSize(&dc);
                    pNode->PaintOwn(&dc, placed.own, PF_NODE);
                    pNode->PaintOwn(&dc, CRect(n, m, m, n), 0);
                    ++nPlaced;
                }
            }
        }
    }
    EXPECT_EQ(nPlaced, NTI_COUNT * 6 * 25);
}

// Sizes of a table and levels of a node are stored numbers too.
TEST(ExtremeBoxes, AreFormatted)
{
    for (int nType = 0; nType < NTI_COUNT; ++nType)
    {
        for (const int n : s_anExtremes)
        {
            const CNodePtr pNode = Extreme(static_cast<ENodeType>(nType), 0, n);
            pNode->m_nLeftLevelStep = n;
            pNode->m_nRightLevelStep = INT_MIN;
            pNode->SetLevel(n);
            CBinTreeFormat format;
            std::fill(std::begin(format.m_nSizes), std::end(format.m_nSizes), n);
            pNode->ApplyFormat(&format);
            EXPECT_EQ(pNode->GetLogFont()->lfHeight, static_cast<int>(n * 10LL));
        }
    }
}
