// From a message to the handler that the message maps name.
#include "platform/gdi/dc.h"
#include "platform/win/menu.h"
#include "platform/win/message_map.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

namespace
{
CWnd* WindowOf(LPARAM lParam)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(lParam));
}

CMenu* MenuOf(LPARAM lParam)
{
    return CMenu::FromHandle(reinterpret_cast<HMENU>(lParam));
}

template <class T>
T* PointerOf(LPARAM lParam)
{
    return reinterpret_cast<T*>(lParam);
}

CPoint PointOf(LPARAM lParam)
{
    return { static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)) };
}

// Whether a command would be shown enabled; nobody said anything: it is.
class CEnabledTest : public CCmdUI
{
public:
    void Enable(BOOL bOn) override { m_bEnabled = bOn; }
    BOOL m_bEnabled = TRUE;
};
}  // namespace

BOOL CWnd::OnWndMsg(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (nMessage == WM_COMMAND)
    {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        lResult = 1;
    }
    else if (nMessage == WM_NOTIFY)
    {
        if (lParam == 0 || !OnNotify(wParam, lParam, &lResult))
            return FALSE;
    }
    else
    {
        const AFX_MSGMAP_ENTRY* pEntry = AfxFindMessageEntry(GetMessageMap(), nMessage, 0, 0);
        if (pEntry == nullptr)
            return FALSE;
        lResult = CallWndHandler(*pEntry, wParam, lParam);
    }
    if (pResult != nullptr)
        *pResult = lResult;
    return TRUE;
}

// One row a form: how the two arguments of a message become those of the handler. The object may be
// gone when the handler returns.
LRESULT CWnd::CallWndHandler(const AFX_MSGMAP_ENTRY& entry, WPARAM wParam, LPARAM lParam)
{
    const AFX_PMSG pfn = entry.pfn;
    const auto nFirst = static_cast<UINT>(wParam);
    const UINT nLow = LOWORD(lParam);
    const UINT nHigh = HIWORD(lParam);
    // clang-format off
    switch (entry.nSig)
    {
        // A result
        case AfxSigCreate:        return (this->*AfxHandler<AfxSigCreate>(pfn))(PointerOf<CREATESTRUCTA>(lParam));
        case AfxSigCursor:        return (this->*AfxHandler<AfxSigCursor>(pfn))(FromHandle(reinterpret_cast<HWND>(wParam)), nLow, nHigh);
        case AfxSigDC:            return (this->*AfxHandler<AfxSigDC>(pfn))(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
        case AfxSigMenuChar:      return (this->*AfxHandler<AfxSigMenuChar>(pfn))(LOWORD(wParam), HIWORD(wParam), MenuOf(lParam));
        case AfxSigMessage:       return (this->*AfxHandler<AfxSigMessage>(pfn))(wParam, lParam);
        case AfxSigMouseActivate: return (this->*AfxHandler<AfxSigMouseActivate>(pfn))(FromHandle(reinterpret_cast<HWND>(wParam)), nLow, nHigh);
        case AfxSigResult:        return static_cast<LRESULT>((this->*AfxHandler<AfxSigResult>(pfn))());
        case AfxSigWheel:         return (this->*AfxHandler<AfxSigWheel>(pfn))(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), PointOf(lParam));
        // None
        case AfxSigActivate:      (this->*AfxHandler<AfxSigActivate>(pfn))(LOWORD(wParam), WindowOf(lParam), HIWORD(wParam)); break;
        case AfxSigBool:          (this->*AfxHandler<AfxSigBool>(pfn))(static_cast<BOOL>(wParam)); break;
        case AfxSigDrawItem:      (this->*AfxHandler<AfxSigDrawItem>(pfn))(static_cast<int>(wParam), PointerOf<DRAWITEMSTRUCT>(lParam)); break;
        case AfxSigInitMenu:      (this->*AfxHandler<AfxSigInitMenu>(pfn))(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam))); break;
        case AfxSigInitPopup:     (this->*AfxHandler<AfxSigInitPopup>(pfn))(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), nLow, static_cast<BOOL>(nHigh)); break;
        case AfxSigInts:          (this->*AfxHandler<AfxSigInts>(pfn))(PointOf(lParam).x, PointOf(lParam).y); break;
        case AfxSigKey:           (this->*AfxHandler<AfxSigKey>(pfn))(nFirst, nLow, nHigh); break;
        case AfxSigMeasureItem:   (this->*AfxHandler<AfxSigMeasureItem>(pfn))(static_cast<int>(wParam), PointerOf<MEASUREITEMSTRUCT>(lParam)); break;
        case AfxSigMenuSelect:    (this->*AfxHandler<AfxSigMenuSelect>(pfn))(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam)); break;
        case AfxSigMouse:         (this->*AfxHandler<AfxSigMouse>(pfn))(nFirst, PointOf(lParam)); break;
        case AfxSigPoint:         (this->*AfxHandler<AfxSigPoint>(pfn))(FromHandle(reinterpret_cast<HWND>(wParam)), PointOf(lParam)); break;
        case AfxSigScroll:        (this->*AfxHandler<AfxSigScroll>(pfn))(LOWORD(wParam), HIWORD(wParam), static_cast<CScrollBar*>(WindowOf(lParam))); break;
        case AfxSigShow:          (this->*AfxHandler<AfxSigShow>(pfn))(static_cast<BOOL>(wParam), static_cast<UINT>(lParam)); break;
        case AfxSigSize:          (this->*AfxHandler<AfxSigSize>(pfn))(nFirst, LOWORD(lParam), HIWORD(lParam)); break;
        case AfxSigSysCommand:    (this->*AfxHandler<AfxSigSysCommand>(pfn))(nFirst, lParam); break;
        case AfxSigTimer:         (this->*AfxHandler<AfxSigTimer>(pfn))(wParam); break;
        case AfxSigVoid:          (this->*AfxHandler<AfxSigVoid>(pfn))(); break;
        case AfxSigWindowFirst:   (this->*AfxHandler<AfxSigWindowFirst>(pfn))(FromHandle(reinterpret_cast<HWND>(wParam))); break;
        case AfxSigWindowSecond:  (this->*AfxHandler<AfxSigWindowSecond>(pfn))(WindowOf(lParam)); break;
        case AfxSigWindowPos:     (this->*AfxHandler<AfxSigWindowPos>(pfn))(PointerOf<WINDOWPOS>(lParam)); break;
        default:                  ASSERT(!"a form without a row"); break;
    }
    // clang-format on
    return 0;
}

// ---- Commands and notifications

BOOL CWnd::IsCommandDisabled(UINT nID)
{
    CEnabledTest test;
    test.m_nID = nID;
    OnCmdMsg(nID, CN_UPDATE_COMMAND_UI, &test, nullptr);
    return !test.m_bEnabled;
}

// From a menu or an accelerator (no window in lParam) or from a control.
BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT nID = LOWORD(wParam);
    const HWND hControl = reinterpret_cast<HWND>(lParam);
    int nCode = HIWORD(wParam);
    if (hControl == nullptr)
    {
        if (nID == 0)
            return FALSE;
        if (IsCommandDisabled(nID))
            return TRUE;
        nCode = CN_COMMAND;
    }
    else if (ReflectToChild(hControl, WM_COMMAND, wParam, lParam, nullptr))
    {
        return TRUE;
    }
    else if (nID == 0)
    {
        return FALSE;
    }
    return OnCmdMsg(nID, nCode, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    auto* pHeader = PointerOf<NMHDR>(lParam);
    if (ReflectToChild(pHeader->hwndFrom, WM_NOTIFY, wParam, lParam, pResult))
        return TRUE;
    // Menus and tips that are not children of this window tell their identifier in the header.
    const int nID = ::GetDlgCtrlID(pHeader->hwndFrom);
    AFX_NOTIFY notify = { pResult, pHeader };
    return OnCmdMsg(nID != 0 ? static_cast<UINT>(nID) : static_cast<UINT>(pHeader->idFrom),
                    MAKELONG(pHeader->code, WM_NOTIFY), &notify, nullptr);
}

BOOL CWnd::ReflectToChild(HWND hChild, UINT nMessage, WPARAM wParam, LPARAM lParam,
                          LRESULT* pResult)
{
    CWnd* pChild = FromHandlePermanent(hChild);
    return pChild != nullptr && pChild->OnChildNotify(nMessage, wParam, lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (nMessage == WM_COMMAND)
    {
        return OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND), nullptr,
                        nullptr);
    }
    if (nMessage != WM_NOTIFY)
        return FALSE;
    auto* pHeader = PointerOf<NMHDR>(lParam);
    AFX_NOTIFY notify = { pResult, pHeader };
    return OnCmdMsg(0, MAKELONG(pHeader->code, WM_REFLECT_BASE + WM_NOTIFY), &notify, nullptr);
}

// ---- Items that their owner draws

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT pDraw)
{
    CMenu* pMenu = pDraw->CtlType == ODT_MENU
                       ? CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(pDraw->hwndItem))
                       : nullptr;
    if (pMenu != nullptr)
        pMenu->DrawItem(pDraw);
    else
        Default();
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT pMeasure)
{
    CMenu* pMenu =
        pMeasure->CtlType == ODT_MENU ? CMenu::FromItem(m_hWnd, pMeasure->itemID) : nullptr;
    if (pMenu != nullptr)
        pMenu->MeasureItem(pMeasure);
    else
        Default();
}
