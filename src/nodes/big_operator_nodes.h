// Sums, products and integrals: a large sign with limits, in front of what it acts on.
#pragma once

#include "nodes/typed_node.h"

// A range left, which the constructor makes, the summand right. The sign stands in the gap of the
// range, and the summand lines up on the sign's axis.
class CSumNode : public CNode
{
public:
    CSumNode();

    void ApplyFormat(CBinTreeFormat* pFormat) override;
    // The record has no font: face, italic and bold are those of the format after loading.
    void SerializeNode(CArchive& ar, CBinTree* pTree) override;
    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    explicit CSumNode(ENodeType nType);
};

class CProdNode : public CSumNode
{
public:
    CProdNode();
};

// As a sum; the kind tells how many signs stand side by side.
class CIntegralNode : public COpNode
{
public:
    CIntegralNode();

    void ApplyFormat(CBinTreeFormat* pFormat) override;
    void SerializeNode(CArchive& ar, CBinTree* pTree) override;
    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

// Integrand left, variable right, in a row around a "d". Only stored formulas bring it.
class CIntegrandNode : public CNode
{
public:
    CIntegrandNode();
};
