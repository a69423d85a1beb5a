// The seam between the rules of the formula control and the window that it lives in. Each system of
// windows implements these classes; the rules know nothing else of it. Points and rectangles are
// client coordinates in pixels.
#pragma once

#include <memory>

#include "platform/base/cstring.h"
#include "platform/base/geometry.h"
#include "platform/base/input_codes.h"
#include "platform/base/types.h"

class CDC;
class CInPlaceEdit;
class CNode;

// What is on its way out of a control: the archive of a subtree in global memory.
class CTransferSource
{
public:
    virtual ~CTransferSource() = default;

    // Hands the data to the clipboard, which keeps them when this object is gone. False: it cannot
    // be had at present.
    virtual bool SetClipboard() = 0;

    // Runs a drag to its end; dwEffects are those that are allowed. Gives the one that came about.
    virtual DROPEFFECT DoDragDrop(DROPEFFECT dwEffects) = 0;
};

// What the clipboard or a drag offers to a control.
class CTransferData
{
public:
    virtual ~CTransferData() = default;

    // Whether there is something under the control's own format.
    virtual bool IsDataAvailable() = 0;

    // The block under that format, or null. The rules only read it; who frees it is the window's
    // affair.
    virtual HGLOBAL GetGlobalData() = 0;
};

// Thickness of the window's own scroll bars and of a thin border, pixels.
struct CBarMetrics
{
    int cxVScroll;
    int cyHScroll;
    int cxBorder;
    int cyBorder;
};

class CControlWindow
{
public:
    // False before the window is made and after it is gone.
    virtual bool IsWindow() const = 0;
    virtual CRect GetClientRect() const = 0;
    virtual CBarMetrics GetBarMetrics() const = 0;
    // What the system itself does with the event that is being handled, and its answer.
    virtual LRESULT Default() = 0;
    virtual void SetFocus() = 0;

    // The whole window is to be painted, soon or at once.
    virtual void Invalidate(bool bErase) = 0;
    virtual void PaintNow() = 0;
    // Never null.
    virtual std::unique_ptr<CDC> GetClientDC() = 0;
    // Inverts a dotted frame: the second call with the same rectangle takes it away.
    virtual void DrawFocusRect(CDC* pDC, const CRect& rect) = 0;

    // The bars keep the positions; nBar is SB_HORZ or SB_VERT. The tracking position is that of a
    // thumb while it is dragged.
    virtual int GetScrollPosition(int nBar, BOOL bTrack) const = 0;
    virtual void SetScrollPosition(int nBar, int nPos, BOOL bRedraw) = 0;
    virtual void SetScrollPage(int nBar, int nPage) = 0;
    virtual void SetScrollRange(int nBar, int nMax) = 0;
    // Shows or hides a bar, or both with SB_BOTH. The new client area is told at once.
    virtual void EnableScrollBarCtrl(int nBar, BOOL bShow) = 0;
    // A message for OnVScroll, handled after the present one.
    virtual void PostVScroll(UINT nCode) = 0;

    // Tells the owner or parent; gives its answer.
    virtual LRESULT NotifyParent(int nCode) = 0;

    // Opens the box over a node, see CInPlaceEdit::Open. It belongs to itself. Null without memory.
    virtual CInPlaceEdit* OpenEditor(const CRect& rect, CNode* pNode, UINT nFirstChar) = 0;

    // Takes over the block. Null if there is no source to be had; the block is gone then.
    virtual std::unique_ptr<CTransferSource> MakeSource(HGLOBAL hData) = 0;
    // Null if the clipboard cannot be opened.
    virtual std::unique_ptr<CTransferData> AttachClipboard() = 0;

protected:
    ~CControlWindow() = default;
};

// The text box of the in-place editor: what its rules need of it. Positions count characters.
class CEditBox
{
public:
    // A box with one centred line in the face of the node; false if there is none to be had. The
    // height of lf counts tenths of a point.
    virtual bool Create(const CRect& rect, const LOGFONTA& lf) = 0;
    virtual void Default() = 0;

    virtual CString GetText() const = 0;
    // Every change of the text, by hand or by this, is told to CInPlaceEdit::OnUpdate.
    virtual void SetText(const CString& strText) = 0;
    // From nStart to nEnd, the end of the text for -1; the caret is at the end and in view.
    virtual void SetSel(int nStart, int nEnd) = 0;
    virtual void GetSel(int& nStart, int& nEnd) const = 0;
    // As if it had been typed.
    virtual void SendChar(UINT nChar) = 0;

    virtual void MoveWindow(const CRect& rect) = 0;
    virtual void SetFocus() = 0;
    // The control takes the focus, and the box loses it before this returns.
    virtual void FocusParent() = 0;
    // Paints the control anew, at once.
    virtual void RedrawParent() = 0;
    // Tells the control that the edit has ended and closes the box, which deletes itself.
    virtual void NotifyAndClose() = 0;

protected:
    ~CEditBox() = default;
};
