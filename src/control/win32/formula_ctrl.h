// The formula control: a child window that shows one tree and lets the user edit it.
//
//   CFormulaCtrl m_formula;                                        // a member of the parent
//   m_formula.SetTree(&formula.m_Tree);                            // lent, see SetTree
//   m_formula.Create(this, rect, nID, WS_CHILD | WS_VISIBLE);      // or, in a dialog whose
//   template m_formula.SubclassDlgItem(nID, this);                          // names the class
//   FORMULA_CLASS
//
// - The parent, or the owner that was set, gets WM_NOTIFY with the code FCN_CHANGED when a node was
//   deleted by key and when the edit of a text has ended; not for cut, paste and drop.
// - What the control decides stands in CFormulaControl, which GetControl gives; this class hands
//   messages to it, and is the window that it asks.
// - Rectangles are client coordinates, pixels.
#pragma once

#include <memory>

#include "control/formula_control.h"
#include "control/win32/formula_drop_target.h"
#include "platform/win/ole_types.h"
#include "platform/win/window.h"

class COleDataObject;
class COleDataSource;

// The window class; the clipboard format has the same name.
constexpr const char* FORMULA_CLASS = "MFCFormulaCtrl";

class CFormulaCtrl : public CWnd
{
    DECLARE_DYNCREATE(CFormulaCtrl)
    DECLARE_MESSAGE_MAP()

public:
    // Registers the window class and initialises OLE on this thread if need be. CResourceException
    // if the class cannot be registered; a message box if OLE is not to be had.
    CFormulaCtrl();
    // Leaves what the control has put on the clipboard there. The tree stays with its owner.
    ~CFormulaCtrl() override;

    using CWnd::Create;
    // FALSE if there is no window to be had.
    BOOL Create(CWnd* pParent, const RECT& rect, UINT nID, DWORD dwStyle);

    // Not owned: it must live as long as the control has it. Repaints nothing.
    void SetTree(CBinTree* pTree);
    CBinTree* GetTree() const;
    void SetReadOnly(BOOL bReadOnly);
    CRect GetMeasuredRect() const;

    // Between formula and client coordinates, by the two scroll positions.
    void ClientToFormula(CPoint& point) const;
    CRect FormulaToClient(CRect rect) const;
    // With bTrack that of a thumb that is dragged; 0 where the window has no such bar.
    int GetScrollPosition(int nBar, BOOL bTrack) const;
    void SetScrollPosition(int nBar, int nPos, BOOL bRedraw);
    BOOL IsHBarOn() const;
    BOOL IsVBarOn() const;
    void ShowBar(int nBar, BOOL bShow);
    void RecalcScrollBars();

    // Sends WM_NOTIFY to the owner or parent and gives its answer, 0 if there is none.
    LRESULT NotifyParent(UINT nCode);

    // What a derived class may replace; see CFormulaControl for what each does.

    virtual void DeleteSelection();
    // The caller's; null when nothing is selected or on failure.
    virtual COleDataSource* CreateDataSource();
    virtual BOOL PasteData(CNode* pTarget, COleDataObject* pData);
    virtual void BeginDrag();
    virtual DROPEFFECT OnDragEnter(COleDataObject* pData, DWORD dwKeyState, CPoint point);
    virtual DROPEFFECT OnDragOver(COleDataObject* pData, DWORD dwKeyState, CPoint point);
    virtual void OnDragLeave();
    virtual BOOL OnDrop(COleDataObject* pData, DROPEFFECT dropEffect, CPoint point);
    virtual void Cut();
    virtual void Copy();
    virtual void Paste();
    virtual void SelectAll();
    virtual void OnDraw(CDC* pDC);

    void PreSubclassWindow() override;
    // Takes arrows and the delete key before a dialog's navigation sees them.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    CFormulaControl& GetControl();
    const CFormulaControl& GetControl() const;

    UINT m_nClipboardFormat;

protected:
    // Ends an edit before the windows go: the box would hear of it too late, or not at all.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

    void OnPaint();
    void OnHScroll(UINT nCode, UINT nPos, CScrollBar* pBar);
    void OnVScroll(UINT nCode, UINT nPos, CScrollBar* pBar);
    BOOL OnEraseBkgnd(CDC* pDC);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnLButtonDblClk(UINT nFlags, CPoint point);
    void OnSize(UINT nType, int cx, int cy);
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint point);
    void OnRButtonUp(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnEndInPlaceEdit(NMHDR* pHeader, LRESULT* pResult);
    void OnEditCopy();
    void OnUpdateEditCopy(CCmdUI* pUI);
    void OnEditCut();
    void OnUpdateEditCut(CCmdUI* pUI);
    void OnEditPaste();
    void OnUpdateEditPaste(CCmdUI* pUI);

private:
    class CRules;

    static void RegisterWindowClass();

    std::unique_ptr<CRules> m_pRules;
    CFormulaDropTarget m_DropTarget;
};
