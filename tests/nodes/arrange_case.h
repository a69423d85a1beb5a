// Layouts as rows of a table: what goes into Arrange and what comes out, worked out by hand.
#pragma once

#include "nodes/node_fixture.h"

// A measured child. A part without a node stands for a missing child.
struct CPart
{
    int cx = 0;
    int cy = 0;
    int nBaseline = 0;
    bool bNode = true;
};

constexpr CPart NONE{ 0, 0, 0, false };

struct CArrangeCase
{
    const char* pszName;
    int nKind;
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

// Gives the side a node with the part's base line; a range that is there already is kept.
inline void HangPart(CNode& node, bool bLeft, const CPart& part)
{
    CNode*& pChild = bLeft ? node.m_pLeft : node.m_pRight;
    if (!part.bNode)
        return;
    if (pChild == nullptr)
    {
        pChild = new CNode;
        pChild->SetParent(&node);
    }
    pChild->m_nBaseline = part.nBaseline;
}

inline void ExpectArranged(const char* pszType, const CArrangeCase& row)
{
    SCOPED_TRACE(testing::Message() << pszType << ": " << row.pszName);
    const CNodePtr pNode = Node(pszType);
    if (auto* pTyped = dynamic_cast<CTypedNode*>(pNode.get()))
        pTyped->SetKind(row.nKind);
    HangPart(*pNode, true, row.left);
    HangPart(*pNode, false, row.right);
    const CArranged result = ArrangeParts(*pNode, row.origin, CSize(row.left.cx, row.left.cy),
                                          CSize(row.right.cx, row.right.cy), row.own);
    EXPECT_EQ(result.left, row.leftPlaced) << "left";
    EXPECT_EQ(result.right, row.rightPlaced) << "right";
    EXPECT_EQ(result.own, row.ownPlaced) << "own";
    EXPECT_EQ(result.rect, row.rect) << "rect";
    EXPECT_EQ(result.nBaseline, row.nBaseline) << "base line";
}

template <std::size_t N>
void ExpectAllArranged(const char* pszType, const CArrangeCase (&aRows)[N])
{
    for (const CArrangeCase& row : aRows)
        ExpectArranged(pszType, row);
}

// A point of a painted formula, and the node that a click there finds.
struct CHitCase
{
    CPoint point;
    const CNode* pFound;
    CRect rect;
};

template <std::size_t N>
void ExpectHits(CNode& root, CPoint origin, const CHitCase (&aRows)[N])
{
    CTestDC dc;
    for (const CHitCase& row : aRows)
    {
        SCOPED_TRACE(testing::Message() << "at " << row.point.x << ", " << row.point.y);
        CRect rect(origin, origin);
        EXPECT_EQ(root.HitTest(&dc, rect, row.point), row.pFound);
        EXPECT_EQ(rect, row.rect);
    }
}

// Paints at a point, so that every m_rect tells its place, and gives the extent.
inline CRect PaintAt(CNode& root, CPoint origin)
{
    CTestDC dc;
    CRect rect(origin, origin);
    root.Paint(&dc, rect, nullptr, 0);
    return rect;
}
