// What the formula control does: it shows one tree, scrolls it, selects in it and edits it. It
// knows no window: events come in as operations, and what it needs goes out through CControlWindow.
//
// Formula coordinates have the formula's top left at the origin, as layout and hit test have it;
// client coordinates are those of the window. They differ by the two scroll positions.
#pragma once

#include "control/control_window.h"

class CBinTree;
class CInPlaceEdit;
class CNode;

// The one notification: a node was deleted by key, or the edit of a text has ended. Cut, paste and
// drop send none.
constexpr int FCN_CHANGED = -106;

constexpr UINT FORMULA_EDIT_ID = 8;  // of the in-place editor, as a child of the control

// What the control asks for when it begins: m_nWheelLines, WHEEL_PAGESCROLL for a page.
constexpr UINT DEFAULT_WHEEL_LINES = 3;

// A key with what is held down beside it.
struct CKey
{
    UINT nChar;  // VK_...
    bool bControl;
    bool bShift;
};

class CFormulaControl
{
public:
    CFormulaControl(CControlWindow& window, UINT nWheelLines);
    // An editor that is still open is cut off: it takes no text and tells nobody.
    virtual ~CFormulaControl();

    CFormulaControl(const CFormulaControl&) = delete;
    CFormulaControl& operator=(const CFormulaControl&) = delete;

    // The tree is lent: it stays the caller's, and must live until another one, or null, is set.
    // Repaints nothing. An open editor ends first.
    void SetTree(CBinTree* pTree);
    CBinTree* GetTree() const { return m_pTree; }

    // Stops the mouse, the keys of the first stage, deletion, cut and drop; paste, copy, scrolling
    // and the editor that a letter opens go on.
    void SetReadOnly(BOOL bReadOnly);

    // The tree as the last paint measured it.
    CRect GetMeasuredRect() const { return m_rcMeasured; }

    void ClientToFormula(CPoint& point) const;
    CRect FormulaToClient(CRect rect) const;

    BOOL IsHBarOn() const { return (m_nScrollBars & HBAR_ON) != 0; }
    BOOL IsVBarOn() const { return (m_nScrollBars & VBAR_ON) != 0; }
    // nBar: SB_HORZ, SB_VERT or SB_BOTH. A bar that is as wanted is left alone.
    void ShowBar(int nBar, BOOL bShow);
    // Decides about both bars in one pass, from the client area and the measured tree.
    void RecalcScrollBars();

    // What a derived control may replace; the rules call them through these slots.

    // Puts a placeholder in the place of the selected node. No undo step, no notification.
    virtual void DeleteSelection();
    // The selected node with all below it; null if there is none, or no memory.
    virtual std::unique_ptr<CTransferSource> CreateDataSource();
    // Puts what data holds in the place of a node. FALSE, and the tree as it was, if it holds
    // nothing of ours or something damaged.
    virtual BOOL PasteData(CNode* pTarget, CTransferData& data);
    virtual void BeginDrag();
    virtual DROPEFFECT OnDragEnter(CTransferData& data, DWORD dwKeyState, CPoint point);
    virtual DROPEFFECT OnDragOver(CTransferData& data, DWORD dwKeyState, CPoint point);
    virtual void OnDragLeave();
    virtual BOOL OnDrop(CTransferData& data, DROPEFFECT dropEffect, CPoint point);
    virtual void Cut();
    virtual void Copy();
    virtual void Paste();
    virtual void SelectAll();
    virtual void OnDraw(CDC* pDC);

    // Events, as the window gets them.

    // pDC is the window's; what was invalid has been taken as painted.
    void OnPaint(CDC* pDC);
    void OnSize();
    void OnHScroll(UINT nCode);
    void OnVScroll(UINT nCode);
    LRESULT OnMouseWheel(short zDelta);
    // nFlags: MK_...
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnLButtonDown(CPoint point);
    void OnLButtonUp(CPoint point);
    void OnLButtonDblClk(CPoint point);
    void OnKeyDown(const CKey& key);
    void OnEndInPlaceEdit();
    // The window is about to go, with all in it: an editor that is open ends, its text taken.
    void OnDestroy();

    int m_nScrollBars;  // HBAR_ON, VBAR_ON
    int m_nVScrollMax;  // upper ends of the ranges, pixels
    int m_nHScrollMax;
    UINT m_nWheelLines;  // lines a notch
    CRect m_rcMeasured;
    CInPlaceEdit* m_pInPlaceEdit;  // null while none is open; belongs to itself
    CBinTree* m_pTree;             // not owned; null: the window is empty
    BOOL m_bReadOnly;
    BOOL m_bCanDrag;          // a move may drag the selection away
    BOOL m_bClickedSelected;  // the next release on the selected node may open the editor
    CNode* m_pHoverNode;      // has the dotted frame; not owned

    static constexpr int HBAR_ON = 1;
    static constexpr int VBAR_ON = 2;

private:
    struct CScrollState;
    struct CScrollRule;
    struct CSelectionKey;
    struct CControlKey;

    void DecideBars();
    void Scroll(int nBar, UINT nCode, int nMax, int nPage);
    void PaintFormula(CDC* pDC, const CRect& area, const CRect& client);

    bool BeginGesture(CPoint& point);
    CNode* HitTest(CDC* pDC, CPoint point);
    void MoveHover(CDC* pDC, CNode* pNode);
    CNode* GetHoverNode();

    void OnSelectionKey(const CKey& key);
    bool OnEditingKey(const CKey& key);
    void OnTypedKey(UINT nChar);
    void SelectRight();
    void SelectLeft();
    void SelectParent();
    void ToggleMode();
    void DeleteByKey();
    void Select(CNode* pNode);

    void OpenEditor(CNode* pNode, UINT nFirstChar);
    void EndEditorBelow(const CNode* pTop);
    void ForgetBelow(const CNode* pTop);
    CNode* ReplaceByPlaceholder(CNode* pNode);

    bool IsDropTarget(const CNode* pNode) const;
    DROPEFFECT DragTo(DWORD dwKeyState, CPoint point);
    HGLOBAL StoreSelection();
    bool PasteArchive(CNode* pTarget, HGLOBAL hData);

    CControlWindow& m_Window;
    int m_nRecalcDepth;     // calls of RecalcScrollBars within each other
    bool m_bRecalcStopped;  // they have become too many: those within return at once
    bool m_bSwitched;       // there was one within another: a bar was switched
    int m_nRestless;        // decisions in a row that switched a bar, for one size and formula
    CNode* m_pDragged;      // while a drag of our own runs: its top, not owned
};
