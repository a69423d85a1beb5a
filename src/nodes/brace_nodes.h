// Brackets around a formula, as high as what they enclose.
#pragma once

#include "nodes/typed_node.h"

// Content left; a right child, which only a stored formula brings, is not placed. Each bracket is
// one character, stretched by the height and width of its font. The own part spans both brackets
// and what is between them.
class CBraceNode : public COpNode
{
public:
    CBraceNode();

    void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own) override;
    CRect GetOwnSize(CDC* pDC) override;
    // Leaves height and width of the painted glyphs in the font.
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;

protected:
    explicit CBraceNode(ENodeType nType);
};

// The same brackets under another type name and priority.
class CPoisonNode : public CBraceNode
{
public:
    CPoisonNode();

    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};
