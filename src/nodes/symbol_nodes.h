// Single symbols: the two differential operators, the label, and the box of an empty place.
#pragma once

#include "nodes/node.h"

// The sign with a small arrow along its top.
class CNablaNode : public CNode
{
public:
    CNablaNode();

    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

class CLaplaceNode : public CNode
{
public:
    CLaplaceNode();
};

class CLabelNode : public CNode
{
public:
    CLabelNode();
};

// An empty place of a formula: a hatched box. With sizes of negative sign, as the default format
// has them, its rectangle is negative: the box is drawn up and to the left of its place, the
// neighbours close up over it, and it cannot be hit.
class CPlaceHolderNode : public CNode
{
public:
    CPlaceHolderNode();

    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
