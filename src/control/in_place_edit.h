// The rules of the box in which the text of a node is edited: how it opens, follows the typing and
// ends. The box itself is the window's.
#pragma once

#include "control/control_window.h"

class CNode;

// The text is not parsed, and the node keeps its class. Whoever makes one owns it and takes it away
// in CEditBox::NotifyAndClose.
class CInPlaceEdit
{
public:
    CInPlaceEdit(CEditBox& box, CNode* pNode, CString strInitial, UINT nFirstChar);

    CInPlaceEdit(const CInPlaceEdit&) = delete;
    CInPlaceEdit& operator=(const CInPlaceEdit&) = delete;

    // Makes the box around rect, the place of the node's sign, and gives it the focus. A typed
    // character replaces the text; EDIT_SELECT_ALL leaves all of it selected. If no box can be made
    // the object stays, with the node hidden, and nothing tells of it.
    void Open(CRect rect);

    // Puts the box around the node's new place, its selection unchanged.
    void Reposition(CRect rect);

    void OnUpdate();
    void OnKillFocus();
    void OnKeyDown(UINT nChar, bool bControl);
    void OnChar(UINT nChar);

    // Takes the text into the node and closes the box: this object may be gone afterwards.
    void EndEdit();

    // Lets go of a node that is about to die without an edit having ended.
    void Abandon() { m_pNode = nullptr; }

    CNode* GetNode() const { return m_pNode; }

    CNode* m_pNode;        // not owned
    CString m_strInitial;  // what Escape goes back to
    UINT m_nLastChar;      // the key that ended the edit
    BOOL m_bExitOnArrows;  // arrows and page keys end it

private:
    void LeaveBy(UINT nChar);

    CEditBox& m_Box;
    UINT m_nFirstChar;

    static bool s_bEnding;  // ending one box can take the focus from it, or from another one
};

// First characters that are no typed ones.
constexpr UINT EDIT_KEEP_ARROWS = 1;  // the caret at the end, arrows stay in the box
constexpr UINT EDIT_SELECT_ALL = 35;
