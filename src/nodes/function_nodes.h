// Names of functions in front of their arguments.
#pragma once

#include "nodes/typed_node.h"

// A function of the table, by kind; the argument stands right, as a bracket. With kind -1 the node
// shows the symbol it holds.
class CFuncNode : public CFunctionNode
{
public:
    CFuncNode();

    // The format's face for functions goes into all named rows of the table of faces; the gamma
    // function stays in "Symbol".
    void ApplyFormat(CBinTreeFormat* pFormat) override;
    CRect GetOwnSize(CDC* pDC) override;
    void PaintOwn(CDC* pDC, CRect rect, UINT nFlags) override;
};

// A function with a name of its own, which can be edited. Only stored formulas bring this class
// and the next one.
class CUserFuncNode : public CFunctionNode
{
public:
    CUserFuncNode();
};

class CExtFuncNode : public CFunctionNode
{
public:
    CExtFuncNode();
};
