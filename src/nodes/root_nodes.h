// Roots: a radical sign that grows with its radicand, and the line over it.
#pragma once

#include "nodes/node.h"

// Radicand left, degree right: the degree stands in front of the sign, at full top.
// The sign is one character, stretched by the height and width of its font.
class CNthRootNode : public CNode
{
public:
    CNthRootNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    // Leaves the width of the painted sign in the font, so that a later GetOwnSize can differ
    // from the first; Arrange replaces the width in any case.
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    explicit CNthRootNode(ENodeType nType);
};

class CSquareRootNode : public CNthRootNode
{
public:
    CSquareRootNode();
};
