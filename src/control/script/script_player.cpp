// The loop of a script, and the inner one that runs while something is dragged.
#include "control/script/script_player.h"

#include <utility>

CScriptPlayer::CScriptPlayer(CScriptedControl& control, CReader pfnRead, CTeller pfnTell)
    : m_Control(control), m_pfnRead(std::move(pfnRead)), m_pfnTell(std::move(pfnTell))
{
    m_Control.m_pfnDrag = [this]
    {
        return RunDrag();
    };
}

void CScriptPlayer::Play()
{
    Tell();
    while (const auto event = Read())
    {
        m_bTold = false;
        Handle(*event);
        if (!m_bTold)
            Tell();
    }
}

std::optional<CScriptEvent> CScriptPlayer::Read()
{
    return m_Unread ? std::exchange(m_Unread, std::nullopt) : m_pfnRead();
}

void CScriptPlayer::Tell()
{
    m_Control.Settle();
    CControlState state = m_Control.GetState();
    state.bDragging = m_bDragging;
    m_pfnTell(StateLine(state, std::exchange(m_strAnswer, "-")));
    m_bTold = true;
}

void CScriptPlayer::Handle(const CScriptEvent& event)
{
    if (IsDragEvent(event.nType))
        HandleDrag(event);
    else
        m_Control.Send(event);
}

void CScriptPlayer::HandleDrag(const CScriptEvent& event)
{
    const DWORD dwKeys = event.bControl ? MK_CONTROL : 0;
    const CPoint point(event.nFirst, event.nSecond);
    if (event.nType == EVENT_DROP)
    {
        HandleDrop(event);
        return;
    }
    if (event.nType == EVENT_LEAVE)
    {
        m_Control.DragLeave();
        m_dwAnswer = DROPEFFECT_NONE;
        return;
    }
    m_dwAnswer = event.nType == EVENT_ENTER ? m_Control.DragEnter(dwKeys, point)
                                            : m_Control.DragOver(dwKeys, point);
    m_strAnswer = std::to_string(m_dwAnswer);
}

// What the last step was answered with decides whether the drop is asked for at all.
void CScriptPlayer::HandleDrop(const CScriptEvent& event)
{
    if (m_dwAnswer == DROPEFFECT_NONE)
    {
        m_Control.DragLeave();
        return;
    }
    const bool bTaken = m_Control.Drop(m_dwAnswer, CPoint(event.nFirst, event.nSecond)) != FALSE;
    m_strAnswer = bTaken ? "TRUE" : "FALSE";
    if (!bTaken || !m_bDragging)
        m_dwAnswer = DROPEFFECT_NONE;
}

// The event that started the drag is told first. Any event that is none of the drag's ends it, and
// is played afterwards.
DROPEFFECT CScriptPlayer::RunDrag()
{
    m_bDragging = true;
    m_dwAnswer = DROPEFFECT_NONE;
    Tell();
    bool bDropped = false;
    while (!bDropped)
    {
        const auto event = Read();
        if (!event || !IsDragEvent(event->nType))
        {
            m_Unread = event;
            m_dwAnswer = DROPEFFECT_NONE;
            break;
        }
        m_bTold = false;
        HandleDrag(*event);
        bDropped = event->nType == EVENT_DROP;
        if (!bDropped)
            Tell();
    }
    m_bDragging = false;
    m_strAnswer += ' ' + std::to_string(m_dwAnswer);
    return std::exchange(m_dwAnswer, DROPEFFECT_NONE);
}
