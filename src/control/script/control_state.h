// What can be seen of a formula control from outside, and its one line of text.
#pragma once

#include <optional>
#include <string>

#include "platform/base/geometry.h"

class CFormulaControl;
class CNode;

struct CBarState
{
    int nPos;
    int nMax;
    int nPage;
};

struct CEditorState
{
    std::string strText;
    int nStart;  // of the selection, characters
    int nEnd;
    CRect rect;  // client pixels
};

// Beside the fields of the control itself: what its window knows.
struct CControlState
{
    const CFormulaControl* pControl;
    std::optional<CEditorState> editor;
    CBarState horizontal;
    CBarState vertical;
    CSize client;
    bool bDragging;  // a drag of the control's own
    int nChanges;    // times that the parent was told of a change
};

// The letters L and R that lead from the root to a node behind a slash; "-" for null.
std::string NodePath(const CNode* pNode);

// Tree, selection, hovered node, drag switches, editor, bars, undo and changes, answer: a tab
// between two. strAnswer is what the last event was answered with.
std::string StateLine(const CControlState& state, const std::string& strAnswer);
