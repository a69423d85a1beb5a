// A walk over the tree that was placed.
#include "picture/node_boxes.h"

#include "nodes/node.h"
#include "platform/gdi/dc.h"
#include "tree/bin_tree.h"

namespace
{
// A node and where its subtree lies.
struct CPlacedNode
{
    CNode* pNode;
    CPoint origin;
};

CRect ExtentOf(const CNode* pNode)
{
    return pNode == nullptr ? CRect(0, 0, 0, 0) : CRect(CPoint(0, 0), pNode->GetMeasured().size);
}
}  // namespace

std::vector<CNodeBox> FindBoxes(CBinTree& tree, CDC* pDC)
{
    std::vector<CNodeBox> boxes;
    if (tree.GetRootNode() == nullptr)
        return boxes;
    tree.MeasureTree(pDC);
    std::vector<CPlacedNode> open = { { tree.GetRootNode(), CPoint(0, 0) } };
    while (!open.empty())
    {
        const CPlacedNode placed = open.back();
        open.pop_back();
        CNode* pNode = placed.pNode;
        // The node places its parts itself, from what has just been measured.
        CRect rect(placed.origin, CSize(0, 0));
        CRect left = ExtentOf(pNode->GetLeft());
        CRect right = ExtentOf(pNode->GetRight());
        CRect own(CPoint(0, 0), pNode->GetMeasured().own);
        pNode->Arrange(rect, left, right, own);
        boxes.push_back({ pNode, rect, pNode->m_rect, rect.top + pNode->m_nBaseline });
        if (pNode->GetRight() != nullptr)
            open.push_back({ pNode->GetRight(), right.TopLeft() });
        if (pNode->GetLeft() != nullptr)
            open.push_back({ pNode->GetLeft(), left.TopLeft() });
    }
    return boxes;
}
