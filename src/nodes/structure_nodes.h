// Arrangements of two parts without a sign: binomials, matrices, their lines and elements. Only
// stored formulas bring them. All but the element leave m_nBaseline as it was.
#pragma once

#include "nodes/node.h"

// Upper part left, lower part right, one height of the font apart.
class CBinomialNode : public CNode
{
public:
    CBinomialNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

// Upper part left, lower part right, one unit apart.
class CMatrixNode : public CNode
{
public:
    CMatrixNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    int m_nRows = 0;
    int m_nColumns = 0;
};

// Lower part left, upper part right, without a gap.
class CLineNode : public CNode
{
public:
    CLineNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    int m_nRow = 0;
    int m_nColumns = 0;
};

// Two parts in a row, each centred on the height of the higher one.
class CElementNode : public CNode
{
public:
    CElementNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    int m_nColumn = 0;
};
