// How a drag begins, goes on and ends, at the side the data come from.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/geometry.h"
#include "platform/win/ole_types.h"

class CWnd;

class COleDropSource : public CCmdTarget
{
    DECLARE_DYNAMIC(COleDropSource)

public:
    COleDropSource() = default;
    // A drag that goes on without its source is cancelled.
    ~COleDropSource() override;

    // Called when a drag may begin: 0 if it does not. This one waits, pWnd having the mouse, until
    // the cursor leaves m_rectStartDrag or has rested for the system's drag delay (then it begins),
    // or a mouse button or Escape is pressed or the button let go (then it does not, and the
    // message of the button stays in the queue). Without a window, or with an empty rectangle, it
    // waits for nothing.
    virtual BOOL OnBeginDrag(CWnd* pWnd);

    // Called for each event of a drag: DRAGDROP_S_CANCEL for Escape and for the other button,
    // DRAGDROP_S_DROP when the button that dragged is let go, otherwise S_OK. dwKeyState has the
    // MK_... bits.
    virtual SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState);

    // Shows what would happen to the data here. DRAGDROP_S_USEDEFAULTCURSORS leaves it to the
    // system.
    virtual SCODE GiveFeedback(DROPEFFECT dropEffect);

    // What the system sees of the source. With bAddRef the caller has a reference to release.
    IDropSource* GetIDropSource(BOOL bAddRef);

    CRect m_rectStartDrag;                // screen coordinates
    BOOL m_bDragStarted = FALSE;          // by OnBeginDrag
    DWORD m_dwButtonDrop = MK_LBUTTON;    // the button that drags, also MK_RBUTTON
    DWORD m_dwButtonCancel = MK_RBUTTON;  // the other one

private:
    class CFeedback;

    bool TakeButtons();

    CFeedback* m_pFeedback = nullptr;  // one reference; made when it is asked for
};
