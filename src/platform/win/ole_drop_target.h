// A window that data can be dropped on.
//
//     class CPageTarget : public COleDropTarget
//     {
//         DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) override;
//         DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) override;
//         BOOL OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) override;
//     };
//     m_target.Register(this);        // in OnCreate
//
// Handlers get the window, the dragged data (valid during the call), the state of keys and mouse
// buttons (MK_... bits; MK_RBUTTON: dragged with the right button) and a point in client
// coordinates. What they throw ends in the drop target, as a refusal.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/geometry.h"
#include "platform/win/ole_types.h"

class COleDataObject;
class CWnd;
template <class T>
class CHandleMap;

class COleDropTarget : public CCmdTarget
{
    DECLARE_DYNAMIC(COleDropTarget)

public:
    COleDropTarget() = default;
    ~COleDropTarget() override;  // revokes

    // FALSE if the target has a window already, or the window a target, or the system refuses.
    BOOL Register(CWnd* pWnd);

    // Called before the window goes, if it has an object of its own (windows of a temporary CWnd
    // must be revoked by hand). The target can be registered again.
    virtual void Revoke();

    // The drag comes in. The answer tells what a drop here would do; the base refuses. Effects that
    // the source does not allow are none, but for a move, which becomes a copy where only that is
    // allowed.
    virtual DROPEFFECT OnDragEnter(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                                   CPoint point);
    // The drag moves, or a key has changed; once more before a drop.
    virtual DROPEFFECT OnDragOver(CWnd* pWnd, COleDataObject* pDataObject, DWORD dwKeyState,
                                  CPoint point);
    // Takes the data, if OnDropEx did not and dropEffect, the last OnDragOver's answer, is not
    // none. FALSE: nothing was taken.
    virtual BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect,
                        CPoint point);
    // Asked first: what was done with the data, or -1 to leave them to OnDrop. dropDefault is the
    // last OnDragOver's answer, dropList what the source allows: drops with the right button show
    // a menu here.
    virtual DROPEFFECT OnDropEx(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropDefault,
                                DROPEFFECT dropList, CPoint point);
    // The drag goes, or ends here with nothing taken and no OnDrop.
    virtual void OnDragLeave(CWnd* pWnd);
    // Asked before OnDragEnter and OnDragOver; an answer with DROPEFFECT_SCROLL stands instead of
    // theirs. The base scrolls nothing.
    virtual DROPEFFECT OnDragScroll(CWnd* pWnd, DWORD dwKeyState, CPoint point);

private:
    friend class CHandleMap<COleDropTarget>;
    class CEvents;

    void RevokeWindow();
    HWND MapKey() const { return m_hWnd; }

    HWND m_hWnd = nullptr;                   // null: not registered
    CEvents* m_pEvents = nullptr;            // one reference, while registered
    COleDropTarget* m_pNextInMap = nullptr;  // registered targets
};
