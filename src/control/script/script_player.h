// Plays a script of gestures on a formula control, in whatever window it lives, and tells its state
// after each.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "control/formula_control.h"
#include "control/script/control_state.h"
#include "control/script/script_event.h"

// A control that a script can be played on.
class CScriptedControl
{
public:
    virtual ~CScriptedControl() = default;

    // Any event but those of drags. A move can start a drag of the control's own: it runs
    // m_pfnDrag, and this returns when the drag has ended.
    virtual void Send(const CScriptEvent& event) = 0;

    // A drag over the control, that offers what the own drag takes along while one runs, and what
    // stands on the clipboard otherwise.
    virtual DROPEFFECT DragEnter(DWORD dwKeyState, CPoint point) = 0;
    virtual DROPEFFECT DragOver(DWORD dwKeyState, CPoint point) = 0;
    virtual void DragLeave() = 0;
    virtual BOOL Drop(DROPEFFECT dwEffect, CPoint point) = 0;

    // Does what is posted and paints what is invalid.
    virtual void Settle() = 0;

    // bDragging is the player's to fill.
    virtual CControlState GetState() const = 0;

    std::function<DROPEFFECT()> m_pfnDrag;
};

// Events that are a command of the control or of its window; the others do nothing.
template <class TControl>
void SendCommand(TControl& control, const CScriptEvent& event)
{
    switch (event.nType)
    {
        case EVENT_CUT:
            control.Cut();
            break;
        case EVENT_COPY:
            control.Copy();
            break;
        case EVENT_PASTE:
            control.Paste();
            break;
        case EVENT_ALL:
            control.SelectAll();
            break;
        case EVENT_DELETE:
            control.DeleteSelection();
            break;
        case EVENT_READONLY:
            control.SetReadOnly(event.nFirst);
            break;
        default:
            break;
    }
}

class CScriptPlayer
{
public:
    // Gives the next event, no value at the end; throws what it likes for a line that is none.
    using CReader = std::function<std::optional<CScriptEvent>()>;
    // Takes the state after each event.
    using CTeller = std::function<void(const std::string& strStateLine)>;

    CScriptPlayer(CScriptedControl& control, CReader pfnRead, CTeller pfnTell);

    // Tells the state at the beginning, and plays to the end.
    void Play();

private:
    std::optional<CScriptEvent> Read();
    void Tell();
    void Handle(const CScriptEvent& event);
    void HandleDrag(const CScriptEvent& event);
    void HandleDrop(const CScriptEvent& event);
    DROPEFFECT RunDrag();

    CScriptedControl& m_Control;
    CReader m_pfnRead;
    CTeller m_pfnTell;
    std::optional<CScriptEvent> m_Unread;
    std::string m_strAnswer = "-";
    bool m_bTold = true;                      // the state after the last event has been told
    bool m_bDragging = false;                 // a drag of the control's own
    DROPEFFECT m_dwAnswer = DROPEFFECT_NONE;  // to the last step of a drag
};
