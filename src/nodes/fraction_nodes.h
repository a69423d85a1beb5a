// Division: a fraction with a bar, or with a slash.
// The parser makes fractions with a bar; the slash comes from stored formulas.
#pragma once

#include "nodes/typed_node.h"

// Numerator left, denominator right; the own part is the bar (kind 0) or the slash (kind 1).
// With any other kind nothing is placed: the rectangle stays without extent.
class CDivisionNode : public COpNode
{
public:
    CDivisionNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
