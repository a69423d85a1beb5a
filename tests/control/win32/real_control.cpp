#include "control/win32/real_control.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "platform/win/ole_data_object.h"
#include "platform/win/ole_data_source.h"
#include "service/form_tree.h"

COleDataSource* Refill(COleDataSource* pMade, UINT nFormat, std::unique_ptr<COleDataSource> pSource)
{
    const std::unique_ptr<COleDataSource> pOwned(pMade);
    if (pMade == nullptr)
        return nullptr;
    COleDataObject data;
    data.Attach(pMade->GetIDataObject(TRUE));
    const auto nShort = static_cast<CLIPFORMAT>(nFormat);
    pSource->CacheGlobalData(nShort, data.GetGlobalData(nShort));
    return pSource.release();
}

class CRealControl::CParent : public CWnd
{
public:
    CParent()
    {
        CreateEx(0, nullptr, "parent", WS_POPUP | WS_VISIBLE, 10, 10, 600, 500, nullptr, nullptr);
    }

    int m_nChanges = 0;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        if (static_cast<int>(reinterpret_cast<NMHDR*>(lParam)->code) == FCN_CHANGED)
            m_nChanges++;
        return CWnd::OnNotify(wParam, lParam, pResult);
    }
};

// Drags as the script says.
class CRealControl::CCtrl : public CFormulaCtrl
{
public:
    explicit CCtrl(CRealControl& real) : m_Real(real) {}

    COleDataSource* CreateDataSource() override
    {
        return Refill(CFormulaCtrl::CreateDataSource(), m_nClipboardFormat,
                      std::make_unique<CSource>(*this));
    }

    COleDataObject* m_pDragged = nullptr;

private:
    class CSource : public COleDataSource
    {
    public:
        explicit CSource(CCtrl& ctrl) : m_Ctrl(ctrl) {}

        DROPEFFECT DoDragDrop(DWORD dwEffects, LPCRECT, COleDropSource*) override
        {
            COleDataObject data;
            data.Attach(GetIDataObject(TRUE));
            m_Ctrl.m_pDragged = &data;
            const DROPEFFECT dwEffect =
                m_Ctrl.m_Real.m_pfnDrag ? m_Ctrl.m_Real.m_pfnDrag() : DROPEFFECT_NONE;
            m_Ctrl.m_pDragged = nullptr;
            return dwEffect & dwEffects;
        }

    private:
        CCtrl& m_Ctrl;
    };

    CRealControl& m_Real;
};

CRealControl::CRealControl(const char* pszText, CSize size)
    : m_pParent(std::make_unique<CParent>()), m_pCtrl(std::make_unique<CCtrl>(*this))
{
    CParseReport report;
    if (pszText != nullptr)
        ParseIntoTree(m_Formula, pszText, report);
    FillClipboard({});
    m_pCtrl->SetTree(&m_Formula.m_Tree);
    m_pCtrl->Create(m_pParent.get(), CRect(CPoint(0, 0), size), 1, WS_CHILD | WS_VISIBLE);
    m_pCtrl->SetFocus();
    Settle();
}

CRealControl::~CRealControl() = default;

// Input of the display's own is left out: the script is all there is.
void CRealControl::Settle()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
    {
        const bool bInput = (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) ||
                            (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST);
        if (!bInput)
            ::DispatchMessageA(&message);
    }
}

CWnd* CRealControl::Editor() const
{
    return m_pCtrl->GetDlgItem(FORMULA_EDIT_ID);
}

void CRealControl::SendMouse(UINT nMessage, const CScriptEvent& event)
{
    const CPoint point(event.nFirst, event.nSecond);
    if (CWnd* pEditor = Editor(); pEditor != nullptr && nMessage != WM_MOUSEMOVE)
    {
        CRect rect;
        pEditor->GetWindowRect(&rect);
        m_pCtrl->ScreenToClient(&rect);
        if (rect.PtInRect(point))
            return;
    }
    m_pCtrl->SendMessage(nMessage, event.bLeft ? MK_LBUTTON : 0, MAKELPARAM(point.x, point.y));
}

void CRealControl::SendKey(const CScriptEvent& event)
{
    BYTE aKeys[256];
    ::GetKeyboardState(aKeys);
    aKeys[VK_CONTROL] = event.bControl ? 0x80 : 0;
    aKeys[VK_SHIFT] = event.bShift ? 0x80 : 0;
    ::SetKeyboardState(aKeys);
    CWnd* pEditor = Editor();
    (pEditor != nullptr ? pEditor : m_pCtrl.get())
        ->SendMessage(WM_KEYDOWN, static_cast<WPARAM>(event.nFirst));
    aKeys[VK_CONTROL] = aKeys[VK_SHIFT] = 0;
    ::SetKeyboardState(aKeys);
}

// As another program does.
void CRealControl::FillClipboard(const CScriptEvent& event)
{
    ::OpenClipboard(nullptr);
    ::EmptyClipboard();
    if (event.bytes)
    {
        const HGLOBAL hData = ::GlobalAlloc(GMEM_MOVEABLE, event.bytes->size());
        std::memcpy(::GlobalLock(hData), event.bytes->data(), event.bytes->size());
        ::GlobalUnlock(hData);
        ::SetClipboardData(m_pCtrl->m_nClipboardFormat, hData);
    }
    ::CloseClipboard();
}

void CRealControl::Send(const CScriptEvent& event)
{
    static const std::map<int, UINT> s_mouse = { { EVENT_MOVE, WM_MOUSEMOVE },
                                                 { EVENT_PRESS, WM_LBUTTONDOWN },
                                                 { EVENT_RELEASE, WM_LBUTTONUP },
                                                 { EVENT_DOUBLE, WM_LBUTTONDBLCLK } };
    const auto nCode = static_cast<WPARAM>(event.nFirst);
    if (s_mouse.contains(event.nType))
        return SendMouse(s_mouse.at(event.nType), event);
    switch (event.nType)
    {
        case EVENT_SIZE:
            return m_pCtrl->MoveWindow(0, 0, std::max(event.nFirst, 0), std::max(event.nSecond, 0));
        case EVENT_PAINT:
            return m_pCtrl->Invalidate(TRUE);
        case EVENT_KEY:
            return SendKey(event);
        case EVENT_CHAR:
            if (CWnd* pEditor = Editor())
                pEditor->SendMessage(WM_CHAR, nCode);
            return;
        case EVENT_BLUR:
            m_pParent->SetFocus();
            return;
        case EVENT_HSCROLL:
        case EVENT_VSCROLL:
            m_pCtrl->SendMessage(event.nType == EVENT_HSCROLL ? WM_HSCROLL : WM_VSCROLL, nCode);
            return;
        case EVENT_WHEEL:
            m_pCtrl->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, event.nFirst));
            return;
        case EVENT_CLIP:
            return FillClipboard(event);
        default:
            return SendCommand(*m_pCtrl, event);
    }
}

// What a drag over the control offers: the dragged data, or else what the clipboard holds.
COleDataObject* CRealControl::Offer()
{
    if (m_pCtrl->m_pDragged != nullptr)
        return m_pCtrl->m_pDragged;
    m_Clipboard.AttachClipboard();
    return &m_Clipboard;
}

DROPEFFECT CRealControl::DragEnter(DWORD dwKeyState, CPoint point)
{
    return m_pCtrl->OnDragEnter(Offer(), dwKeyState, point);
}

DROPEFFECT CRealControl::DragOver(DWORD dwKeyState, CPoint point)
{
    return m_pCtrl->OnDragOver(Offer(), dwKeyState, point);
}

void CRealControl::DragLeave()
{
    m_pCtrl->OnDragLeave();
}

BOOL CRealControl::Drop(DROPEFFECT dwEffect, CPoint point)
{
    return m_pCtrl->OnDrop(Offer(), dwEffect, point);
}

namespace
{

CBarState StateOf(HWND hWnd, int nBar)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(hWnd, nBar, &info);
    return { info.nPos, info.nMax, static_cast<int>(info.nPage) };
}

}  // namespace

CControlState StateOf(CFormulaCtrl& ctrl, int nChanges)
{
    CControlState state{};
    state.pControl = &ctrl.GetControl();
    if (CWnd* pEditor = ctrl.GetDlgItem(FORMULA_EDIT_ID))
    {
        CEditorState& editor = state.editor.emplace();
        CString strText;
        pEditor->GetWindowText(strText);
        editor.strText.assign(strText.View());
        DWORD nStart = 0;
        DWORD nEnd = 0;
        pEditor->SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&nStart),
                             reinterpret_cast<LPARAM>(&nEnd));
        editor.nStart = static_cast<int>(nStart);
        editor.nEnd = static_cast<int>(nEnd);
        pEditor->GetWindowRect(&editor.rect);
        ctrl.ScreenToClient(&editor.rect);
    }
    state.horizontal = StateOf(ctrl.m_hWnd, SB_HORZ);
    state.vertical = StateOf(ctrl.m_hWnd, SB_VERT);
    CRect client;
    ctrl.GetClientRect(&client);
    state.client = client.Size();
    state.nChanges = nChanges;
    return state;
}

CControlState CRealControl::GetState() const
{
    return StateOf(*m_pCtrl, m_pParent->m_nChanges);
}
