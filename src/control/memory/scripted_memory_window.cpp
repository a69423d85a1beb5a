// Events of a script as calls of the window in memory, and its state.
#include "control/memory/scripted_memory_window.h"

#include <algorithm>

#include "control/memory/memory_edit_box.h"

namespace
{

constexpr int s_nMaxSide = 32767;  // coordinates of messages have 16 bits

CBarState StateOf(const CMemoryScrollBar& bar)
{
    return { bar.GetPos(), bar.GetMax(), bar.GetPage() };
}

}  // namespace

CScriptedMemoryWindow::CScriptedMemoryWindow(CMemoryWindow& window, CMemoryClipboard& clipboard)
    : m_Window(window), m_Clipboard(clipboard)
{
    m_Window.m_pfnDrag = [this](CTransferData& data)
    {
        m_pDragged = &data;
        const DROPEFFECT dwEffect = m_pfnDrag ? m_pfnDrag() : DROPEFFECT_NONE;
        m_pDragged = nullptr;
        return dwEffect;
    };
}

// What falls on the open editor is the editor's, which leaves everything as it is.
void CScriptedMemoryWindow::SendMouse(const CScriptEvent& event)
{
    CFormulaControl& control = m_Window.GetControl();
    const CPoint point(event.nFirst, event.nSecond);
    if (const CMemoryEditBox* pBox = m_Window.GetBox(); pBox && pBox->GetRect().PtInRect(point))
        return;
    if (event.nType == EVENT_PRESS)
        control.OnLButtonDown(point);
    else if (event.nType == EVENT_RELEASE)
        control.OnLButtonUp(point);
    else
        control.OnLButtonDblClk(point);
}

void CScriptedMemoryWindow::Send(const CScriptEvent& event)
{
    CFormulaControl& control = m_Window.GetControl();
    const UINT nCode = static_cast<UINT>(event.nFirst);
    switch (event.nType)
    {
        case EVENT_SIZE:
            m_Window.Resize(CSize(std::clamp(event.nFirst, 0, s_nMaxSide),
                                  std::clamp(event.nSecond, 0, s_nMaxSide)));
            break;
        case EVENT_PAINT:
            m_Window.Invalidate(true);
            break;
        case EVENT_MOVE:
            control.OnMouseMove(event.bLeft ? MK_LBUTTON : 0, CPoint(event.nFirst, event.nSecond));
            break;
        case EVENT_PRESS:
        case EVENT_RELEASE:
        case EVENT_DOUBLE:
            SendMouse(event);
            break;
        case EVENT_KEY:
            m_Window.SendKeyDown({ nCode, event.bControl, event.bShift });
            break;
        case EVENT_CHAR:
            m_Window.SendChar(nCode);
            break;
        case EVENT_BLUR:
            m_Window.Blur();
            break;
        case EVENT_HSCROLL:
            m_Window.SendScroll(SB_HORZ, nCode, event.nSecond);
            break;
        case EVENT_VSCROLL:
            m_Window.SendScroll(SB_VERT, nCode, event.nSecond);
            break;
        case EVENT_WHEEL:
            control.OnMouseWheel(static_cast<short>(event.nFirst));
            break;
        case EVENT_CLIP:
            if (event.bytes)
                m_Clipboard.Set(*event.bytes);
            else
                m_Clipboard.Empty();
            break;
        default:
            SendCommand(control, event);
            break;
    }
}

DROPEFFECT CScriptedMemoryWindow::DragEnter(DWORD dwKeyState, CPoint point)
{
    const auto pClipboard = m_Window.AttachClipboard();
    return m_Window.GetControl().OnDragEnter(m_pDragged ? *m_pDragged : *pClipboard, dwKeyState,
                                             point);
}

DROPEFFECT CScriptedMemoryWindow::DragOver(DWORD dwKeyState, CPoint point)
{
    const auto pClipboard = m_Window.AttachClipboard();
    return m_Window.GetControl().OnDragOver(m_pDragged ? *m_pDragged : *pClipboard, dwKeyState,
                                            point);
}

BOOL CScriptedMemoryWindow::Drop(DROPEFFECT dwEffect, CPoint point)
{
    const auto pClipboard = m_Window.AttachClipboard();
    return m_Window.GetControl().OnDrop(m_pDragged ? *m_pDragged : *pClipboard, dwEffect, point);
}

CControlState CScriptedMemoryWindow::GetState() const
{
    CControlState state{};
    state.pControl = &m_Window.GetControl();
    if (const CMemoryEditBox* pBox = m_Window.GetBox())
    {
        CEditorState& editor = state.editor.emplace();
        editor.strText = pBox->GetString();
        pBox->GetSel(editor.nStart, editor.nEnd);
        editor.rect = pBox->GetRect();
    }
    state.horizontal = StateOf(m_Window.GetBar(SB_HORZ));
    state.vertical = StateOf(m_Window.GetBar(SB_VERT));
    state.client = m_Window.GetClientRect().Size();
    state.nChanges = m_Window.GetChangeCount();
    return state;
}
