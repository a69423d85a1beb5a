// Marks over an expression: bars, dots, tildes, by kind.
#pragma once

#include "nodes/typed_node.h"

// The expression left, under the mark; a right child is not placed. The mark has the same size on
// every level.
class CVectorNode : public COpNode
{
public:
    CVectorNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
