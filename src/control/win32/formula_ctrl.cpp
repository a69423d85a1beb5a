// Messages and commands of the window, handed on to the rules.
#include "control/win32/formula_ctrl.h"

#include "control/win32/formula_ctrl_rules.h"
#include "control/win32/resource.h"
#include "menu/win32/new_menu.h"
#include "platform/base/app.h"
#include "platform/base/exception.h"
#include "platform/win/command_ids.h"
#include "platform/win/message_map.h"
#include "platform/win/module.h"
#include "platform/win/ole_init.h"
#include "platform/win/window_dc.h"
#include "tree/bin_tree.h"

IMPLEMENT_DYNCREATE(CFormulaCtrl, CWnd)

// The three update handlers have nothing to say: that they are there keeps the commands enabled.
BEGIN_MESSAGE_MAP(CFormulaCtrl, CWnd)
ON_WM_PAINT()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_ERASEBKGND()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_KEYDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_SIZE()
ON_WM_MOUSEWHEEL()
ON_WM_RBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_NOTIFY(FCN_CHANGED, FORMULA_EDIT_ID, OnEndInPlaceEdit)
ON_COMMAND(ID_EDIT_COPY, OnEditCopy)
ON_UPDATE_COMMAND_UI(ID_EDIT_COPY, OnUpdateEditCopy)
ON_COMMAND(ID_EDIT_CUT, OnEditCut)
ON_UPDATE_COMMAND_UI(ID_EDIT_CUT, OnUpdateEditCut)
ON_COMMAND(ID_EDIT_PASTE, OnEditPaste)
ON_UPDATE_COMMAND_UI(ID_EDIT_PASTE, OnUpdateEditPaste)
END_MESSAGE_MAP()

CFormulaCtrl::CFormulaCtrl() : m_nClipboardFormat(0)
{
    RegisterWindowClass();
    if (!AfxOleIsInitialized() && !AfxOleInit())
    {
        AfxMessageBox(
            "OLE initialization failed. Make sure that the OLE libraries are the correct "
            "version");
    }
    m_nClipboardFormat = ::RegisterClipboardFormatA(FORMULA_CLASS);
    m_pRules = std::make_unique<CRules>(*this);
}

CFormulaCtrl::~CFormulaCtrl()
{
    if (COleDataSource::GetClipboardOwner() != nullptr)
        COleDataSource::FlushClipboard();
}

void CFormulaCtrl::RegisterWindowClass()
{
    const HINSTANCE hInstance = AfxGetInstanceHandle();
    WNDCLASSA wndClass{};
    if (::GetClassInfoA(hInstance, FORMULA_CLASS, &wndClass))
        return;
    wndClass = {};
    wndClass.style = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
    wndClass.lpfnWndProc = ::DefWindowProcA;
    wndClass.hInstance = hInstance;
    wndClass.hCursor = ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    wndClass.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
    wndClass.lpszClassName = FORMULA_CLASS;
    if (!AfxRegisterClass(&wndClass))
        AfxThrowResourceException();
}

BOOL CFormulaCtrl::Create(CWnd* pParent, const RECT& rect, UINT nID, DWORD dwStyle)
{
    return CWnd::Create(FORMULA_CLASS, "", dwStyle, rect, pParent, nID);
}

void CFormulaCtrl::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
}

BOOL CFormulaCtrl::PreTranslateMessage(MSG* pMsg)
{
    const bool bArrow = pMsg->wParam >= VK_LEFT && pMsg->wParam <= VK_DOWN;
    if (pMsg->message != WM_KEYDOWN || (!bArrow && pMsg->wParam != VK_DELETE))
        return CWnd::PreTranslateMessage(pMsg);
    ::TranslateMessage(pMsg);
    ::DispatchMessageA(pMsg);
    return TRUE;
}

// ---- What a host asks

CFormulaControl& CFormulaCtrl::GetControl()
{
    return *m_pRules;
}

const CFormulaControl& CFormulaCtrl::GetControl() const
{
    return *m_pRules;
}

void CFormulaCtrl::SetTree(CBinTree* pTree)
{
    m_pRules->SetTree(pTree);
}

CBinTree* CFormulaCtrl::GetTree() const
{
    return m_pRules->GetTree();
}

void CFormulaCtrl::SetReadOnly(BOOL bReadOnly)
{
    m_pRules->SetReadOnly(bReadOnly);
}

CRect CFormulaCtrl::GetMeasuredRect() const
{
    return m_pRules->GetMeasuredRect();
}

void CFormulaCtrl::ClientToFormula(CPoint& point) const
{
    m_pRules->ClientToFormula(point);
}

CRect CFormulaCtrl::FormulaToClient(CRect rect) const
{
    return m_pRules->FormulaToClient(rect);
}

int CFormulaCtrl::GetScrollPosition(int nBar, BOOL bTrack) const
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = bTrack ? SIF_TRACKPOS : SIF_POS;
    if (!::GetScrollInfo(m_hWnd, nBar, &info))
        return 0;
    return bTrack ? info.nTrackPos : info.nPos;
}

void CFormulaCtrl::SetScrollPosition(int nBar, int nPos, BOOL bRedraw)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = nPos;
    SetScrollInfo(nBar, &info, bRedraw);
}

BOOL CFormulaCtrl::IsHBarOn() const
{
    return m_pRules->IsHBarOn();
}

BOOL CFormulaCtrl::IsVBarOn() const
{
    return m_pRules->IsVBarOn();
}

void CFormulaCtrl::ShowBar(int nBar, BOOL bShow)
{
    m_pRules->ShowBar(nBar, bShow);
}

void CFormulaCtrl::RecalcScrollBars()
{
    m_pRules->RecalcScrollBars();
}

LRESULT CFormulaCtrl::NotifyParent(UINT nCode)
{
    if (!::IsWindow(m_hWnd))
        return 0;
    NMHDR header{ m_hWnd, static_cast<UINT_PTR>(GetDlgCtrlID()), nCode };
    CWnd* pReceiver = GetOwner();
    if (pReceiver == nullptr || !::IsWindow(pReceiver->GetSafeHwnd()))
        return 0;
    return pReceiver->SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

// ---- The slots, each the rule of its name

void CFormulaCtrl::DeleteSelection()
{
    m_pRules->CFormulaControl::DeleteSelection();
}

COleDataSource* CFormulaCtrl::CreateDataSource()
{
    const auto pSource = m_pRules->MakeSelectionSource();
    return pSource != nullptr ? static_cast<COleTransferSource&>(*pSource).Release() : nullptr;
}

BOOL CFormulaCtrl::PasteData(CNode* pTarget, COleDataObject* pData)
{
    COleTransferData data(pData, m_nClipboardFormat);
    return m_pRules->CFormulaControl::PasteData(pTarget, data);
}

void CFormulaCtrl::BeginDrag()
{
    m_pRules->CFormulaControl::BeginDrag();
}

DROPEFFECT CFormulaCtrl::OnDragEnter(COleDataObject* pData, DWORD dwKeyState, CPoint point)
{
    COleTransferData data(pData, m_nClipboardFormat);
    return m_pRules->CFormulaControl::OnDragEnter(data, dwKeyState, point);
}

DROPEFFECT CFormulaCtrl::OnDragOver(COleDataObject* pData, DWORD dwKeyState, CPoint point)
{
    COleTransferData data(pData, m_nClipboardFormat);
    return m_pRules->CFormulaControl::OnDragOver(data, dwKeyState, point);
}

void CFormulaCtrl::OnDragLeave()
{
    m_pRules->CFormulaControl::OnDragLeave();
}

BOOL CFormulaCtrl::OnDrop(COleDataObject* pData, DROPEFFECT dropEffect, CPoint point)
{
    COleTransferData data(pData, m_nClipboardFormat);
    return m_pRules->CFormulaControl::OnDrop(data, dropEffect, point);
}

void CFormulaCtrl::Cut()
{
    m_pRules->CFormulaControl::Cut();
}

void CFormulaCtrl::Copy()
{
    m_pRules->CFormulaControl::Copy();
}

void CFormulaCtrl::Paste()
{
    m_pRules->CFormulaControl::Paste();
}

void CFormulaCtrl::SelectAll()
{
    m_pRules->CFormulaControl::SelectAll();
}

void CFormulaCtrl::OnDraw(CDC* pDC)
{
    m_pRules->CFormulaControl::OnDraw(pDC);
}

// ---- Messages

LRESULT CFormulaCtrl::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage == WM_DESTROY)
        m_pRules->OnDestroy();
    return CWnd::WindowProc(nMessage, wParam, lParam);
}

void CFormulaCtrl::OnPaint()
{
    CPaintDC dc(this);
    m_pRules->OnPaint(&dc);
}

void CFormulaCtrl::OnHScroll(UINT nCode, UINT /*nPos*/, CScrollBar* /*pBar*/)
{
    m_pRules->OnHScroll(nCode);
}

void CFormulaCtrl::OnVScroll(UINT nCode, UINT /*nPos*/, CScrollBar* /*pBar*/)
{
    m_pRules->OnVScroll(nCode);
}

// The paint covers everything.
BOOL CFormulaCtrl::OnEraseBkgnd(CDC* /*pDC*/)
{
    return TRUE;
}

void CFormulaCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    m_pRules->OnMouseMove(nFlags, point);
}

void CFormulaCtrl::OnLButtonDown(UINT /*nFlags*/, CPoint point)
{
    m_pRules->OnLButtonDown(point);
}

void CFormulaCtrl::OnLButtonUp(UINT /*nFlags*/, CPoint point)
{
    m_pRules->OnLButtonUp(point);
}

void CFormulaCtrl::OnLButtonDblClk(UINT /*nFlags*/, CPoint point)
{
    m_pRules->OnLButtonDblClk(point);
}

void CFormulaCtrl::OnKeyDown(UINT nChar, UINT /*nRepCnt*/, UINT /*nFlags*/)
{
    m_pRules->OnKeyDown({ nChar, ::GetKeyState(VK_CONTROL) < 0, ::GetKeyState(VK_SHIFT) < 0 });
}

void CFormulaCtrl::OnSize(UINT /*nType*/, int /*cx*/, int /*cy*/)
{
    if (!::IsWindow(m_hWnd))
        return;
    m_DropTarget.RegisterOwner(this);
    m_pRules->OnSize();
}

BOOL CFormulaCtrl::OnMouseWheel(UINT /*nFlags*/, short zDelta, CPoint /*point*/)
{
    return m_pRules->OnMouseWheel(zDelta) != 0;
}

// Not even the default processing, which would ask for another menu.
void CFormulaCtrl::OnRButtonUp(UINT /*nFlags*/, CPoint /*point*/) {}

// The same menu wherever the click fell; it changes no selection.
void CFormulaCtrl::OnRButtonDown(UINT /*nFlags*/, CPoint point)
{
    CRect window;
    GetWindowRect(&window);
    CNewMenu menu;
    if (menu.LoadMenu(IDR_FORMULA_MENU))
    {
        if (CNewMenu* pPopup = menu.GetNewSubMenu(0))
        {
            pPopup->LoadToolBar(IDR_FORMULA_TOOLBAR);
            pPopup->TrackPopupMenu(0, point.x + window.left, point.y + window.top, this);
        }
    }
    Default();
}

void CFormulaCtrl::OnEndInPlaceEdit(NMHDR* /*pHeader*/, LRESULT* pResult)
{
    m_pRules->OnEndInPlaceEdit();
    *pResult = 0;
}

void CFormulaCtrl::OnEditCopy()
{
    Copy();
}

void CFormulaCtrl::OnUpdateEditCopy(CCmdUI* /*pUI*/) {}

void CFormulaCtrl::OnEditCut()
{
    Cut();
}

void CFormulaCtrl::OnUpdateEditCut(CCmdUI* /*pUI*/) {}

void CFormulaCtrl::OnEditPaste()
{
    Paste();
}

void CFormulaCtrl::OnUpdateEditPaste(CCmdUI* /*pUI*/) {}
