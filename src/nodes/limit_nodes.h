// Limits and derivatives. Only stored formulas bring them.
#pragma once

#include "nodes/node.h"

// What tends to what left, under the word "lim"; the expression right, on the word's axis.
class CLimesNode : public CNode
{
public:
    CLimesNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
};

// The variable left, in the denominator of a small fraction of two symbols; the expression right,
// on the fraction's bar. The own rectangle holds the whole small fraction, the variable included.
class CPartialDerivativeNode : public CNode
{
public:
    CPartialDerivativeNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    explicit CPartialDerivativeNode(ENodeType nType);
};

class CDerivativeNode : public CPartialDerivativeNode
{
public:
    CDerivativeNode();
};
