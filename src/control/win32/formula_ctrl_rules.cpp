// What the rules ask of a real window: bars, painting, clipboard, the editor.
#include "control/win32/formula_ctrl_rules.h"

#include "control/win32/formula_in_place_edit.h"
#include "control/win32/wheel_lines.h"
#include "nodes/node.h"
#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "platform/win/ole_init.h"
#include "platform/win/system_call.h"

namespace
{

// All data that come to the rules of this window have come from it.
COleDataObject* ObjectOf(CTransferData& data)
{
    return static_cast<COleTransferData&>(data).GetObject();
}

// The clipboard as it is now.
class CClipboardData : public COleTransferData
{
public:
    explicit CClipboardData(UINT nFormat) : COleTransferData(&m_Object, nFormat) {}
    bool Attach() { return m_Object.AttachClipboard() != FALSE; }

private:
    COleDataObject m_Object;
};

}  // namespace

bool COleTransferData::IsDataAvailable()
{
    return m_pObject->IsDataAvailable(static_cast<CLIPFORMAT>(m_nFormat)) != FALSE;
}

HGLOBAL COleTransferData::GetGlobalData()
{
    return m_pObject->GetGlobalData(static_cast<CLIPFORMAT>(m_nFormat));
}

// The source is the system's whatever happens.
bool COleTransferSource::SetClipboard()
{
    try
    {
        m_pSource.release()->SetClipboard();
        return true;
    }
    catch (COleException* pException)
    {
        pException->Delete();
        return false;
    }
}

DROPEFFECT COleTransferSource::DoDragDrop(DROPEFFECT dwEffects)
{
    return m_pSource->DoDragDrop(dwEffects);
}

CFormulaCtrl::CRules::CRules(CFormulaCtrl& ctrl)
    : CFormulaControl(*static_cast<CControlWindow*>(this), ReadWheelScrollLines()), m_Ctrl(ctrl)
{
}

std::unique_ptr<CTransferSource> CFormulaCtrl::CRules::CreateDataSource()
{
    COleDataSource* pSource = m_Ctrl.CreateDataSource();
    return pSource != nullptr ? std::make_unique<COleTransferSource>(pSource) : nullptr;
}

BOOL CFormulaCtrl::CRules::PasteData(CNode* pTarget, CTransferData& data)
{
    return m_Ctrl.PasteData(pTarget, ObjectOf(data));
}

DROPEFFECT CFormulaCtrl::CRules::OnDragEnter(CTransferData& data, DWORD dwKeyState, CPoint point)
{
    return m_Ctrl.OnDragEnter(ObjectOf(data), dwKeyState, point);
}

DROPEFFECT CFormulaCtrl::CRules::OnDragOver(CTransferData& data, DWORD dwKeyState, CPoint point)
{
    return m_Ctrl.OnDragOver(ObjectOf(data), dwKeyState, point);
}

BOOL CFormulaCtrl::CRules::OnDrop(CTransferData& data, DROPEFFECT dropEffect, CPoint point)
{
    return m_Ctrl.OnDrop(ObjectOf(data), dropEffect, point);
}

// Without a window the system would take it for all windows there are.
void CFormulaCtrl::CRules::Invalidate(bool bErase)
{
    if (IsWindow())
        m_Ctrl.Invalidate(bErase);
}

CRect CFormulaCtrl::CRules::GetClientRect() const
{
    CRect rect;
    m_Ctrl.GetClientRect(&rect);
    return rect;
}

CBarMetrics CFormulaCtrl::CRules::GetBarMetrics() const
{
    return { ::GetSystemMetrics(SM_CXVSCROLL), ::GetSystemMetrics(SM_CYHSCROLL),
             ::GetSystemMetrics(SM_CXBORDER), ::GetSystemMetrics(SM_CYBORDER) };
}

std::unique_ptr<CDC> CFormulaCtrl::CRules::GetClientDC()
{
    return std::make_unique<CClientDC>(&m_Ctrl);
}

void CFormulaCtrl::CRules::DrawFocusRect(CDC* pDC, const CRect& rect)
{
    ::DrawFocusRect(pDC->GetSafeHdc(), &rect);
}

int CFormulaCtrl::CRules::GetScrollPosition(int nBar, BOOL bTrack) const
{
    return m_Ctrl.GetScrollPosition(nBar, bTrack);
}

void CFormulaCtrl::CRules::SetScrollPosition(int nBar, int nPos, BOOL bRedraw)
{
    m_Ctrl.SetScrollPosition(nBar, nPos, bRedraw);
}

void CFormulaCtrl::CRules::SetScrollPage(int nBar, int nPage)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_PAGE;
    info.nPage = static_cast<UINT>(nPage);
    m_Ctrl.SetScrollInfo(nBar, &info, FALSE);
}

void CFormulaCtrl::CRules::SetScrollRange(int nBar, int nMax)
{
    m_Ctrl.SetScrollRange(nBar, 0, nMax, TRUE);
}

void CFormulaCtrl::CRules::EnableScrollBarCtrl(int nBar, BOOL bShow)
{
    m_Ctrl.EnableScrollBarCtrl(nBar, bShow);
}

// A host that throws is heard when the gesture is at its end.
LRESULT CFormulaCtrl::CRules::NotifyParent(int nCode)
{
    return GuardCallback<LRESULT>(
        0, [=, this] { return m_Ctrl.NotifyParent(static_cast<UINT>(nCode)); });
}

// The box deletes itself with its window.
CInPlaceEdit* CFormulaCtrl::CRules::OpenEditor(const CRect& rect, CNode* pNode, UINT nFirstChar)
{
    CRect place(rect);
    auto* pBox = new CFormulaInPlaceEdit(&m_Ctrl, place, ES_CENTER, FORMULA_EDIT_ID, pNode,
                                         pNode->GetSymbol(), nFirstChar);
    return &pBox->GetEdit();
}

std::unique_ptr<CTransferSource> CFormulaCtrl::CRules::MakeSource(HGLOBAL hData)
{
    auto pSource = std::make_unique<COleDataSource>();
    pSource->CacheGlobalData(static_cast<CLIPFORMAT>(m_Ctrl.m_nClipboardFormat), hData);
    return std::make_unique<COleTransferSource>(pSource.release());
}

std::unique_ptr<CTransferData> CFormulaCtrl::CRules::AttachClipboard()
{
    auto pData = std::make_unique<CClipboardData>(m_Ctrl.m_nClipboardFormat);
    return pData->Attach() ? std::move(pData) : nullptr;
}
