// The control's rules in a real window: each request goes to the window, each operation that may be
// replaced through the control's own slot.
#pragma once

#include "control/win32/formula_ctrl.h"
#include "platform/win/ole_data_object.h"
#include "platform/win/ole_data_source.h"

class CFormulaCtrl::CRules : private CControlWindow, public CFormulaControl
{
public:
    explicit CRules(CFormulaCtrl& ctrl);

    // The operations themselves, for the slots of the control.
    std::unique_ptr<CTransferSource> MakeSelectionSource()
    {
        return CFormulaControl::CreateDataSource();
    }

    void DeleteSelection() override { m_Ctrl.DeleteSelection(); }
    std::unique_ptr<CTransferSource> CreateDataSource() override;
    BOOL PasteData(CNode* pTarget, CTransferData& data) override;
    void BeginDrag() override { m_Ctrl.BeginDrag(); }
    DROPEFFECT OnDragEnter(CTransferData& data, DWORD dwKeyState, CPoint point) override;
    DROPEFFECT OnDragOver(CTransferData& data, DWORD dwKeyState, CPoint point) override;
    void OnDragLeave() override { m_Ctrl.OnDragLeave(); }
    BOOL OnDrop(CTransferData& data, DROPEFFECT dropEffect, CPoint point) override;
    void Cut() override { m_Ctrl.Cut(); }
    void Copy() override { m_Ctrl.Copy(); }
    void Paste() override { m_Ctrl.Paste(); }
    void SelectAll() override { m_Ctrl.SelectAll(); }
    void OnDraw(CDC* pDC) override { m_Ctrl.OnDraw(pDC); }

private:
    bool IsWindow() const override { return ::IsWindow(m_Ctrl.m_hWnd) != FALSE; }
    CRect GetClientRect() const override;
    CBarMetrics GetBarMetrics() const override;
    LRESULT Default() override { return m_Ctrl.Default(); }
    void SetFocus() override { m_Ctrl.SetFocus(); }
    void Invalidate(bool bErase) override;
    void PaintNow() override { m_Ctrl.SendMessage(WM_PAINT); }
    std::unique_ptr<CDC> GetClientDC() override;
    void DrawFocusRect(CDC* pDC, const CRect& rect) override;
    int GetScrollPosition(int nBar, BOOL bTrack) const override;
    void SetScrollPosition(int nBar, int nPos, BOOL bRedraw) override;
    void SetScrollPage(int nBar, int nPage) override;
    void SetScrollRange(int nBar, int nMax) override;
    void EnableScrollBarCtrl(int nBar, BOOL bShow) override;
    void PostVScroll(UINT nCode) override { m_Ctrl.PostMessage(WM_VSCROLL, nCode, 0); }
    LRESULT NotifyParent(int nCode) override;
    CInPlaceEdit* OpenEditor(const CRect& rect, CNode* pNode, UINT nFirstChar) override;
    std::unique_ptr<CTransferSource> MakeSource(HGLOBAL hData) override;
    std::unique_ptr<CTransferData> AttachClipboard() override;

    CFormulaCtrl& m_Ctrl;
};

// A data object that somebody else has.
class COleTransferData : public CTransferData
{
public:
    COleTransferData(COleDataObject* pObject, UINT nFormat) : m_pObject(pObject), m_nFormat(nFormat)
    {
    }

    bool IsDataAvailable() override;
    // A copy, which nobody frees: what a data object gives is not ours to take away.
    HGLOBAL GetGlobalData() override;
    COleDataObject* GetObject() const { return m_pObject; }

private:
    COleDataObject* m_pObject;  // not owned
    UINT m_nFormat;
};

// A source of our own, until the clipboard takes it over.
class COleTransferSource : public CTransferSource
{
public:
    explicit COleTransferSource(COleDataSource* pSource) : m_pSource(pSource) {}

    bool SetClipboard() override;
    DROPEFFECT DoDragDrop(DROPEFFECT dwEffects) override;
    COleDataSource* Release() { return m_pSource.release(); }

private:
    std::unique_ptr<COleDataSource> m_pSource;
};
