// The window in memory: messages to the control, and what it asks of its window.
#include "control/memory/memory_window.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "control/memory/memory_edit_box.h"
#include "platform/base/system.h"
#include "platform/gdi/dc.h"

namespace
{

constexpr CBarMetrics s_Metrics = { 17, 17, 1, 1 };

std::vector<BYTE> BytesOf(HGLOBAL hData)
{
    const auto* pBytes = static_cast<const BYTE*>(GlobalLock(hData));
    std::vector<BYTE> bytes(pBytes, pBytes + GlobalSize(hData));
    GlobalUnlock(hData);
    return bytes;
}

// Some bytes as a block, or nothing.
class CMemoryData : public CTransferData
{
public:
    explicit CMemoryData(const std::vector<BYTE>* pBytes)
    {
        if (pBytes == nullptr)
            return;
        m_hData = GlobalAlloc(GMEM_MOVEABLE, pBytes->size());
        if (m_hData == nullptr || pBytes->empty())
            return;
        std::memcpy(GlobalLock(m_hData), pBytes->data(), pBytes->size());
        GlobalUnlock(m_hData);
    }
    ~CMemoryData() override
    {
        if (m_hData != nullptr)
            GlobalFree(m_hData);
    }
    CMemoryData(const CMemoryData&) = delete;
    CMemoryData& operator=(const CMemoryData&) = delete;

    bool IsDataAvailable() override { return m_hData != nullptr; }
    HGLOBAL GetGlobalData() override { return m_hData; }

private:
    HGLOBAL m_hData = nullptr;
};

class CMemorySource : public CTransferSource
{
public:
    CMemorySource(CMemoryClipboard& clipboard, CMemoryWindow& window, std::vector<BYTE> bytes)
        : m_Clipboard(clipboard), m_Window(window), m_bytes(std::move(bytes))
    {
    }

    bool SetClipboard() override
    {
        m_Clipboard.Set(m_bytes);
        return true;
    }

    DROPEFFECT DoDragDrop(DROPEFFECT dwEffects) override
    {
        CMemoryData data(&m_bytes);
        return m_Window.m_pfnDrag ? m_Window.m_pfnDrag(data) & dwEffects : DROPEFFECT_NONE;
    }

private:
    CMemoryClipboard& m_Clipboard;
    CMemoryWindow& m_Window;
    std::vector<BYTE> m_bytes;
};

}  // namespace

CMemoryWindow::CMemoryWindow(CMemoryClipboard& clipboard, CSize size, UINT nWheelLines)
    : m_Clipboard(clipboard), m_sizeOuter(size), m_Control(*this, nWheelLines)
{
}

CMemoryWindow::~CMemoryWindow() = default;

void CMemoryWindow::Start()
{
    m_Control.OnSize();
    Invalidate(true);
    Settle();
}

CMemoryEditBox* CMemoryWindow::GetBox() const
{
    return m_boxes.empty() ? nullptr : m_boxes.back().get();
}

CRect CMemoryWindow::GetClientRect() const
{
    CSize size = m_sizeOuter;
    if (m_VBar.IsShown() && size.cx >= s_Metrics.cxVScroll)
        size.cx -= s_Metrics.cxVScroll;
    if (m_HBar.IsShown() && size.cy > s_Metrics.cyHScroll)
        size.cy -= s_Metrics.cyHScroll;
    return CRect(CPoint(0, 0), size);
}

CBarMetrics CMemoryWindow::GetBarMetrics() const
{
    return s_Metrics;
}

void CMemoryWindow::TellClientSize(const CRect& before)
{
    if (GetClientRect() == before)
        return;
    Invalidate(true);
    m_Control.OnSize();
}

void CMemoryWindow::Resize(CSize size)
{
    const CRect before = GetClientRect();
    m_sizeOuter = size;
    TellClientSize(before);
}

void CMemoryWindow::ShowBars(bool bHorizontal, bool bVertical)
{
    const CRect before = GetClientRect();
    m_HBar.Show(bHorizontal);
    m_VBar.Show(bVertical);
    TellClientSize(before);
}

void CMemoryWindow::EnableScrollBarCtrl(int nBar, BOOL bShow)
{
    ShowBars(nBar == SB_VERT ? m_HBar.IsShown() : bShow != FALSE,
             nBar == SB_HORZ ? m_VBar.IsShown() : bShow != FALSE);
}

int CMemoryWindow::GetScrollPosition(int nBar, BOOL bTrack) const
{
    return bTrack ? GetBar(nBar).GetTrackPos() : GetBar(nBar).GetPos();
}

void CMemoryWindow::SetScrollPosition(int nBar, int nPos, BOOL /*bRedraw*/)
{
    Bar(nBar).SetPos(nPos);
}

void CMemoryWindow::SetScrollPage(int nBar, int nPage)
{
    if (const auto bShow = Bar(nBar).SetPage(nPage))
        EnableScrollBarCtrl(nBar, *bShow);
}

void CMemoryWindow::SetScrollRange(int nBar, int nMax)
{
    if (const auto bShow = Bar(nBar).SetRange(nMax))
        EnableScrollBarCtrl(nBar, *bShow);
}

void CMemoryWindow::SendScroll(int nBar, UINT nCode, int nTrackPos)
{
    Bar(nBar).SetTrackPos(nTrackPos);
    if (nBar == SB_HORZ)
        m_Control.OnHScroll(nCode);
    else
        m_Control.OnVScroll(nCode);
    Bar(nBar).SetTrackPos(0);
}

// Nothing of an empty window can be invalid.
void CMemoryWindow::Invalidate(bool /*bErase*/)
{
    m_bInvalid = !GetClientRect().IsRectEmpty();
}

// What is invalid counts as painted from the beginning of the paint on; what becomes invalid
// during it is painted next.
void CMemoryWindow::PaintNow()
{
    m_bInvalid = false;
    m_frames.clear();
    m_nPaints++;
    CClientDC screen(nullptr);
    m_Control.OnPaint(&screen);
}

void CMemoryWindow::Repaint()
{
    Invalidate(true);
    if (m_bInvalid)
        PaintNow();
}

void CMemoryWindow::Settle()
{
    while (m_bInvalid || !m_posted.empty())
    {
        while (!m_posted.empty())
        {
            const UINT nCode = m_posted.front();
            m_posted.pop_front();
            m_Control.OnVScroll(nCode);
        }
        if (m_bInvalid)
            PaintNow();
    }
}

std::unique_ptr<CDC> CMemoryWindow::GetClientDC()
{
    return std::make_unique<CClientDC>(nullptr);
}

void CMemoryWindow::DrawFocusRect(CDC* /*pDC*/, const CRect& rect)
{
    const auto frame = std::ranges::find(m_frames, rect);
    if (frame != m_frames.end())
        m_frames.erase(frame);
    else
        m_frames.push_back(rect);
}

LRESULT CMemoryWindow::NotifyParent(int nCode)
{
    if (nCode == FCN_CHANGED)
        m_nChanges++;
    if (m_pfnNotify)
        m_pfnNotify(nCode);
    return 0;
}

void CMemoryWindow::SendKeyDown(const CKey& key)
{
    if (CMemoryEditBox* pBox = GetBox())
        pBox->OnKeyDown(key);
    else
        m_Control.OnKeyDown(key);
}

void CMemoryWindow::SendChar(UINT nChar)
{
    if (CMemoryEditBox* pBox = GetBox())
        pBox->OnChar(nChar);
}

void CMemoryWindow::Blur()
{
    FocusBox(nullptr);
}

CInPlaceEdit* CMemoryWindow::OpenEditor(const CRect& rect, CNode* pNode, UINT nFirstChar)
{
    CMemoryEditBox* pBox =
        m_boxes.emplace_back(std::make_unique<CMemoryEditBox>(*this, pNode, nFirstChar)).get();
    pBox->Open(rect);
    return &pBox->GetEdit();
}

// The box that loses the focus ends, and is gone then.
void CMemoryWindow::FocusBox(CMemoryEditBox* pBox)
{
    CMemoryEditBox* pOld = std::exchange(m_pFocus, pBox);
    if (pOld != nullptr && pOld != pBox)
        pOld->OnKillFocus();
}

void CMemoryWindow::CloseBox(CMemoryEditBox* pBox)
{
    m_Control.OnEndInPlaceEdit();
    if (m_pFocus == pBox)
        m_pFocus = nullptr;
    std::erase_if(m_boxes, [&](const auto& pOne) { return pOne.get() == pBox; });
    Invalidate(false);
}

std::unique_ptr<CTransferSource> CMemoryWindow::MakeSource(HGLOBAL hData)
{
    auto pSource = std::make_unique<CMemorySource>(m_Clipboard, *this, BytesOf(hData));
    GlobalFree(hData);
    return pSource;
}

std::unique_ptr<CTransferData> CMemoryWindow::AttachClipboard()
{
    return std::make_unique<CMemoryData>(m_Clipboard.Get());
}
