// Powers and indices: small parts set up and down beside another.
#pragma once

#include "nodes/node.h"

// Base left, exponent right; the exponent overlaps the base's upper right corner.
// The own part is the union of both: it is not drawn and serves the selection's fill.
class CPowerToNode : public CNode
{
public:
    CPowerToNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

// Upper index left, lower index right, in a left-aligned column without an own part. Hangs as
// the right child of the node that carries the index.
class CIndexNode : public CNode
{
public:
    explicit CIndexNode(CNode* pParent);

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
