// The window in memory as something that a script can be played on.
#pragma once

#include "control/memory/memory_window.h"
#include "control/script/script_player.h"

class CScriptedMemoryWindow : public CScriptedControl
{
public:
    // Both stay the caller's.
    CScriptedMemoryWindow(CMemoryWindow& window, CMemoryClipboard& clipboard);

    void Send(const CScriptEvent& event) override;
    DROPEFFECT DragEnter(DWORD dwKeyState, CPoint point) override;
    DROPEFFECT DragOver(DWORD dwKeyState, CPoint point) override;
    void DragLeave() override { m_Window.GetControl().OnDragLeave(); }
    BOOL Drop(DROPEFFECT dwEffect, CPoint point) override;
    void Settle() override { m_Window.Settle(); }
    CControlState GetState() const override;

private:
    void SendMouse(const CScriptEvent& event);

    CMemoryWindow& m_Window;
    CMemoryClipboard& m_Clipboard;
    CTransferData* m_pDragged = nullptr;  // what a drag of the control's own takes along
};
