// Operators that stand in a row between their operands.
#pragma once

#include "nodes/typed_node.h"

class CPlusNode : public COpNode
{
public:
    CPlusNode();
};

class CMinusNode : public COpNode
{
public:
    CMinusNode();
};

class CCrossNode : public COpNode
{
public:
    CCrossNode();
};

class COperatorNode : public COpNode
{
public:
    COperatorNode();
};

// The width of the sign goes by g_nTimesGap: a negative gap moves the factors of a product without
// a sign together.
class CTimesNode : public COpNode
{
public:
    CTimesNode();

    CRect GetOwnSize(CDC* pDC) override;
};

// Equal sign and relations, by kind.
class CEquationNode : public COpNode
{
public:
    CEquationNode();

    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

// Arrows, by kind. Only stored formulas bring them.
class CArrowNode : public COpNode
{
public:
    CArrowNode();

    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
