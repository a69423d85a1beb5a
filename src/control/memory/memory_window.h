// A formula control in a window that exists in memory only: gestures without a display, with the
// metrics of the virtual screen. It has no border, bars of 17 pixels and three lines a wheel notch.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "control/formula_control.h"
#include "control/memory/memory_scroll_bar.h"

class CMemoryEditBox;

// What stands under the control's format on the clipboard; windows can share one.
class CMemoryClipboard
{
public:
    void Set(std::vector<BYTE> bytes) { m_pBytes = std::make_unique<std::vector<BYTE>>(bytes); }
    void Empty() { m_pBytes.reset(); }
    // Null if there is nothing of that format.
    const std::vector<BYTE>* Get() const { return m_pBytes.get(); }

private:
    std::unique_ptr<std::vector<BYTE>> m_pBytes;
};

class CMemoryWindow : private CControlWindow
{
public:
    // The clipboard stays the caller's.
    CMemoryWindow(CMemoryClipboard& clipboard, CSize size, UINT nWheelLines = DEFAULT_WHEEL_LINES);
    ~CMemoryWindow();

    CMemoryWindow(const CMemoryWindow&) = delete;
    CMemoryWindow& operator=(const CMemoryWindow&) = delete;

    // The first size message and paint. A tree is set before.
    void Start();

    CFormulaControl& GetControl() { return m_Control; }
    const CFormulaControl& GetControl() const { return m_Control; }
    CMemoryEditBox* GetBox() const;
    const CMemoryScrollBar& GetBar(int nBar) const { return nBar == SB_HORZ ? m_HBar : m_VBar; }
    CRect GetClientRect() const override;
    // How often the parent was told of a change, and the window was painted.
    int GetChangeCount() const { return m_nChanges; }
    int GetPaintCount() const { return m_nPaints; }
    // Dotted frames that stand on the picture.
    const std::vector<CRect>& GetFrames() const { return m_frames; }

    // Called when the parent is told something.
    std::function<void(int nCode)> m_pfnNotify;
    // Runs a drag of the control's own; without it such a drag ends at once.
    std::function<DROPEFFECT(CTransferData& data)> m_pfnDrag;

    // Messages. Those of keys go to the editor while it is open.
    void Resize(CSize size);
    void SendKeyDown(const CKey& key);
    void SendChar(UINT nChar);
    void SendScroll(int nBar, UINT nCode, int nTrackPos);
    // Another window takes the focus.
    void Blur();

    // Handles what was posted and paints until nothing is left to be done.
    void Settle();

    void Invalidate(bool bErase) override;
    std::unique_ptr<CTransferData> AttachClipboard() override;

    // For the box
    void FocusBox(CMemoryEditBox* pBox);
    void CloseBox(CMemoryEditBox* pBox);
    void Repaint();

private:
    bool IsWindow() const override { return true; }
    CBarMetrics GetBarMetrics() const override;
    LRESULT Default() override { return 0; }
    void SetFocus() override { FocusBox(nullptr); }
    void PaintNow() override;
    std::unique_ptr<CDC> GetClientDC() override;
    void DrawFocusRect(CDC* pDC, const CRect& rect) override;
    int GetScrollPosition(int nBar, BOOL bTrack) const override;
    void SetScrollPosition(int nBar, int nPos, BOOL bRedraw) override;
    void SetScrollPage(int nBar, int nPage) override;
    void SetScrollRange(int nBar, int nMax) override;
    void EnableScrollBarCtrl(int nBar, BOOL bShow) override;
    void PostVScroll(UINT nCode) override { m_posted.push_back(nCode); }
    LRESULT NotifyParent(int nCode) override;
    CInPlaceEdit* OpenEditor(const CRect& rect, CNode* pNode, UINT nFirstChar) override;
    std::unique_ptr<CTransferSource> MakeSource(HGLOBAL hData) override;

    CMemoryScrollBar& Bar(int nBar) { return nBar == SB_HORZ ? m_HBar : m_VBar; }
    void ShowBars(bool bHorizontal, bool bVertical);
    void TellClientSize(const CRect& before);

    CMemoryClipboard& m_Clipboard;
    CSize m_sizeOuter;
    CMemoryScrollBar m_HBar;
    CMemoryScrollBar m_VBar;
    bool m_bInvalid = false;
    std::deque<UINT> m_posted;  // codes for OnVScroll
    std::vector<CRect> m_frames;
    int m_nChanges = 0;
    int m_nPaints = 0;
    std::vector<std::unique_ptr<CMemoryEditBox>> m_boxes;  // one, but while a second one opens
    CMemoryEditBox* m_pFocus = nullptr;                    // null: the control or another window
    CFormulaControl m_Control;                             // goes first: it cuts an open editor off
};
