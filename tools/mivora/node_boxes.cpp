#include "node_boxes.h"

#include <vector>

#include "nodes/node.h"
#include "platform/gdi/dc.h"

namespace
{
constexpr double s_fLineWidth = 0.5;
constexpr double s_fAxisOverhang = 2;

// A node and where its subtree lies.
struct CPlacedNode
{
    CNode* pNode;
    CPoint origin;
};

CRect ExtentOf(const CNode* pNode)
{
    return pNode == nullptr ? CRect(0, 0, 0, 0) : CRect(CPoint(0, 0), pNode->GetMeasuredSize());
}

void StrokeRect(cairo_t* pCairo, const CRect& rect)
{
    cairo_rectangle(pCairo, rect.left + s_fLineWidth / 2, rect.top + s_fLineWidth / 2,
                    rect.Width() - s_fLineWidth, rect.Height() - s_fLineWidth);
    cairo_stroke(pCairo);
}

void StrokeNode(cairo_t* pCairo, const CNode& node, const CRect& subtree)
{
    cairo_set_source_rgba(pCairo, 0.4, 0.4, 0.4, 0.5);
    StrokeRect(pCairo, subtree);
    cairo_set_source_rgba(pCairo, 0, 0.2, 1, 0.8);
    StrokeRect(pCairo, node.m_rect);
    cairo_set_source_rgba(pCairo, 1, 0, 0, 0.6);
    const double y = subtree.top + node.m_nBaseline;
    cairo_move_to(pCairo, subtree.left - s_fAxisOverhang, y);
    cairo_line_to(pCairo, subtree.right + s_fAxisOverhang, y);
    cairo_stroke(pCairo);
}
}  // namespace

void DrawBoxes(cairo_t* pCairo, CBinTree& tree, CDC* pDC)
{
    if (tree.GetRootNode() == nullptr)
        return;
    cairo_save(pCairo);
    cairo_set_line_width(pCairo, s_fLineWidth);
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
        CRect own(CPoint(0, 0), pNode->GetMeasuredOwn());
        pNode->Arrange(rect, left, right, own);
        StrokeNode(pCairo, *pNode, rect);
        if (pNode->GetLeft() != nullptr)
            open.push_back({ pNode->GetLeft(), left.TopLeft() });
        if (pNode->GetRight() != nullptr)
            open.push_back({ pNode->GetRight(), right.TopLeft() });
    }
    cairo_restore(pCairo);
}
