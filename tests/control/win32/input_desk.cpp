#include "control/win32/input_desk.h"

#include <map>
#include <sstream>

#include "control/win32/real_control.h"
#include "nodes/node.h"
#include "platform/win/dialog_template.h"
#include "platform/win/ole_data_source.h"
#include "platform/win/ole_drop_source.h"
#include "service/form_tree.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

namespace
{

constexpr UINT s_nIdText = 21;
constexpr UINT s_nIdFirst = 22;
constexpr UINT s_nIdSecond = 23;
constexpr UINT s_nWmWord = WM_APP + 1;    // lParam: the word; gives the place that it means
constexpr UINT s_nWmEffect = WM_APP + 2;  // gives that of the last drag
constexpr UINT s_nWmSpot = WM_APP + 3;    // wParam: 0 or 1; gives the place of the node LL or LR
constexpr UINT s_nWmMove = WM_APP + 4;    // moves the mouse
constexpr UINT s_nWmLock = WM_APP + 5;
constexpr UINT s_nWmHole = WM_APP + 6;
constexpr DWORD s_nPatience = 4000;  // milliseconds

// The last mark that came out of the queue. Marks are keys that nobody has a use for: what was put
// into the queue before one has been handled when it comes, also where a loop of the system's own
// takes the messages.
std::atomic<BYTE> s_nMark = 0;
constexpr WORD s_nMarkKey = VK_F24;
BYTE s_nNextMark = 0;

LRESULT CALLBACK WatchMarks(int nCode, WPARAM wParam, LPARAM lParam)
{
    const MSG& message = *reinterpret_cast<const MSG*>(lParam);
    if (nCode != HC_ACTION || wParam != PM_REMOVE)
        return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    if (message.wParam == s_nMarkKey &&
        (message.message == WM_KEYUP || message.message == WM_SYSKEYUP))
        s_nMark = LOBYTE(HIWORD(message.lParam));
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

// Tells what the user is shown while it is dragged, and when that ends.
class CToldSource : public COleDataSource
{
public:
    explicit CToldSource(CInputCtrl& ctrl) : m_Feedback(ctrl) {}
    DROPEFFECT DoDragDrop(DWORD dwEffects, LPCRECT pStartDrag, COleDropSource*) override
    {
        m_Feedback.m_Ctrl.m_bDragged = true;
        const DROPEFFECT nDone = COleDataSource::DoDragDrop(dwEffects, pStartDrag, &m_Feedback);
        m_Feedback.m_Ctrl.m_bDragged = false;
        return nDone;
    }

private:
    struct CFeedback : COleDropSource
    {
        explicit CFeedback(CInputCtrl& ctrl) : m_Ctrl(ctrl) {}
        SCODE GiveFeedback(DROPEFFECT nEffect) override
        {
            m_Ctrl.m_nEffect = nEffect;
            return COleDropSource::GiveFeedback(nEffect);
        }
        CInputCtrl& m_Ctrl;
    };
    CFeedback m_Feedback;
};

}  // namespace

// ---- The control

CInputCtrl::CInputCtrl(const char* pszText)
{
    CParseReport report;
    ParseIntoTree(m_Formula, pszText, report);
    SetTree(&m_Formula.m_Tree);
}

CPoint CInputCtrl::PlaceOf(const std::string& strPath)
{
    UpdateWindow();
    CPoint place = FormulaToClient(NodeAt(strPath)->m_rect).CenterPoint();
    ClientToScreen(&place);
    return place;
}

void CInputCtrl::MakeHole(const std::string& strPath)
{
    GetTree()->SetSelection(NodeAt(strPath), PF_SUBTREE);
    DeleteSelection();
}

COleDataSource* CInputCtrl::CreateDataSource()
{
    return Refill(CFormulaCtrl::CreateDataSource(), m_nClipboardFormat,
                  std::make_unique<CToldSource>(*this));
}

DROPEFFECT CInputCtrl::OnDragOver(COleDataObject* pData, DWORD dwKeyState, CPoint point)
{
    return m_nEffect = CFormulaCtrl::OnDragOver(pData, dwKeyState, point);
}

LRESULT CInputCtrl::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    if (nMessage >= WM_LBUTTONDOWN && nMessage <= WM_LBUTTONDBLCLK)
        m_strClicks += "duD"[nMessage - WM_LBUTTONDOWN];
    return CFormulaCtrl::WindowProc(nMessage, wParam, lParam);
}

// ---- The dialog

CInputDialog::CInputDialog(CPoint place, const char* pszText, const char* pszSecond)
    : m_First(pszText), m_Second(pszSecond)
{
    CDialogTemplate form(WS_POPUP | WS_CAPTION | WS_SYSMENU);
    form.AddItem(WS_TABSTOP | WS_BORDER, s_nIdText, "Edit", "");
    form.AddItem(WS_TABSTOP, s_nIdFirst, FORMULA_CLASS, "");
    form.AddItem(WS_TABSTOP, s_nIdSecond, FORMULA_CLASS, "");
    form.AddItem(WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, "Button", "&A");
    CreateIndirect(form.Get());
    SetWindowPos(nullptr, place.x, place.y, 480, 200, SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(SW_SHOWNOACTIVATE);
    UpdateWindow();
}

BOOL CInputDialog::OnInitDialog()
{
    m_First.SubclassDlgItem(s_nIdFirst, this);
    m_Second.SubclassDlgItem(s_nIdSecond, this);
    GetDlgItem(s_nIdText)->MoveWindow(10, 10, 100, 20);
    GetDlgItem(IDOK)->MoveWindow(120, 10, 60, 20);
    m_First.MoveWindow(10, 40, 220, 100);
    m_Second.MoveWindow(240, 40, 220, 100);
    return CDialog::OnInitDialog();
}

BOOL CInputDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (static_cast<int>(reinterpret_cast<NMHDR*>(lParam)->code) == FCN_CHANGED)
    {
        m_nChanges++;
        if (m_onChange)
            m_onChange();
    }
    return CDialog::OnNotify(wParam, lParam, pResult);
}

// The mouse is moved by the thread that has the windows: the X server echoes each move, and only
// there Wine knows an echo that is late, and lets the cursor where it is.
LRESULT CInputDialog::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    CPoint place(0, 0);
    switch (nMessage)
    {
        case s_nWmEffect:
            return static_cast<LRESULT>(m_First.m_nEffect);
        case s_nWmMove:
            SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
                      { static_cast<LONG>(wParam), static_cast<LONG>(lParam) });
            break;
        case s_nWmSpot:
            place = m_First.PlaceOf(wParam == 0 ? "LL" : "LR");
            break;
        case s_nWmWord:
            place = PlaceOf(*reinterpret_cast<const std::string*>(lParam));
            break;
        case s_nWmHole:
            m_First.MakeHole("LL");
            break;
        case s_nWmLock:
            m_Second.SetReadOnly(TRUE);
            break;
        case WM_TREE:
            SetWindowText(TreeForm(m_First.GetTree()->GetRootNode()));
            return !m_First.m_bDragged;
        case WM_CLOSE:
            DestroyWindow();
            break;
        default:
            return CDialog::WindowProc(nMessage, wParam, lParam);
    }
    return MAKELONG(place.x, place.y);
}

CPoint CInputDialog::PlaceOf(const std::string& strWord)
{
    CRect rect;
    (strWord == "free" ? static_cast<CWnd&>(m_First) : *this).GetWindowRect(&rect);
    if (strWord == "off" || strWord == "free")
        return CPoint(rect.right, rect.bottom) - CSize(15, 15);
    const bool bBelow = strWord.back() == '+';
    const std::string strPath = strWord.substr(1, strWord.size() - 1 - bBelow);
    return (strWord[0] == '@' ? m_First : m_Second).PlaceOf(strPath) + CSize(0, bBelow ? 5 : 0);
}

std::string CInputDialog::FocusName() const
{
    static const std::map<UINT, std::string> s_names = {
        { s_nIdText, "text" },      { s_nIdFirst, "first" }, { s_nIdSecond, "second" },
        { FORMULA_EDIT_ID, "box" }, { IDOK, "button" },
    };
    const auto name = s_names.find(static_cast<UINT>(::GetDlgCtrlID(::GetFocus())));
    return name != s_names.end() ? name->second : "other";
}

std::string CInputDialog::GetState()
{
    const CString strSecond = TreeForm(m_Second.GetTree()->GetRootNode());
    return StateLine(StateOf(m_First, m_nChanges), FocusName() + ' ' + std::to_string(m_nPresses) +
                                                       '\t' + m_First.m_strClicks + '\t' +
                                                       std::string(strSecond.View()));
}

// ---- The hand

CInputHand::CInputHand(CInputDialog& dialog, const std::string& strScript)
    : m_Dialog(dialog), m_thread([this, strScript] { Run(strScript); })
{
}

CInputHand::~CInputHand()
{
    m_thread.join();
}

bool CInputHand::Play()
{
    const HHOOK hHook =
        ::SetWindowsHookExA(WH_GETMESSAGE, WatchMarks, nullptr, ::GetCurrentThreadId());
    const bool bEnded = PumpUntil([this] { return m_bDone.load(); }, 20000);
    ::UnhookWindowsHookEx(hHook);
    return bEnded && !m_bGaveUp;
}

void CInputHand::Run(const std::string& strScript)
{
    std::istringstream words(strScript);
    for (std::string strWord; !m_bGaveUp && words >> strWord;)
    {
        Do(strWord);
        WaitUntilHandled();
    }
    if (m_bGaveUp)
        PressKeys("Esc");
    if (::GetAsyncKeyState(VK_LBUTTON) < 0)
        SendMouse(MOUSEEVENTF_LEFTUP);
    for (const WORD nKey : { VK_CONTROL, VK_SHIFT, VK_MENU })
    {
        if (::GetAsyncKeyState(nKey) < 0)
            SendKey(nKey, false);
    }
    if (!m_bGaveUp)
        WaitUntilHandled();
    EndDrag();
    m_bDone = true;
}

void CInputHand::Do(const std::string& strWord)
{
    const auto lWord = reinterpret_cast<LPARAM>(&strWord);
    const bool bDouble = strWord == "double";
    if (strWord == "down" || strWord == "up")
    {
        SendMouse(strWord == "down" ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
    }
    else if (strWord == "click" || bDouble)
    {
        for (int i = bDouble ? 0 : 1; i < 2; i++)
        {
            SendMouse(MOUSEEVENTF_LEFTDOWN);
            SendMouse(MOUSEEVENTF_LEFTUP);
        }
    }
    else if (strWord == "lock" || strWord == "hole")
    {
        Ask(m_Dialog, strWord == "lock" ? s_nWmLock : s_nWmHole);
    }
    else if (strWord[0] == '=' || strWord[0] == '?')
    {
        const HWND hDialog = strWord[0] == '=' ? m_Dialog.m_hWnd : m_Dialog.m_hPartner;
        const LRESULT lEffect = std::stol(strWord.substr(1));
        WaitFor([&] { return Ask(hDialog, s_nWmEffect) == lEffect; });
    }
    else if (std::string("@#$").find(strWord[0]) != std::string::npos || strWord == "free" ||
             strWord == "off")
    {
        const LRESULT lPlace = strWord[0] == '$'
                                   ? Ask(m_Dialog.m_hPartner, s_nWmSpot, strWord[1] - '0')
                                   : Ask(m_Dialog, s_nWmWord, 0, lWord);
        m_at = CPoint(LOWORD(lPlace), HIWORD(lPlace));
        Move();
        WaitFor([] { return true; });
    }
    else if (strWord[0] == '+')
    {
        SendKey(m_nHeld = KeyOf(strWord.substr(1)), true);
    }
    else
    {
        PressKeys(strWord);
    }
}

// In any case, by a point's width where it is there already.
void CInputHand::Move()
{
    for (const LONG x : { m_at.x + 1, m_at.x })
        Ask(m_Dialog, s_nWmMove, x, m_at.y);
}

// Until the condition has held for a while with the mouse at rest there, since late news of the X
// server may still move it back, or let go of keys. Moves again and again: what the other side was
// not ready for is lost.
void CInputHand::WaitFor(const std::function<bool()>& condition)
{
    int nHeld = 0;
    for (int i = 1; i <= 4000 && nHeld < 20 && !m_bGaveUp; ++i)
    {
        CPoint at;
        ::GetCursorPos(&at);
        nHeld = at == m_at && condition() ? nHeld + 1 : 0;
        if (i % 100 == 0 && m_nHeld != 0)
            SendKey(m_nHeld, true);
        if (i % 100 == 0)
            Move();
        ::Sleep(1);
    }
    m_bGaveUp = m_bGaveUp || nHeld < 20;
}

LRESULT CInputHand::Ask(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR nAnswer = 0;
    if (!::SendMessageTimeoutA(hDialog, nMessage, wParam, lParam, SMTO_NORMAL, s_nPatience,
                               &nAnswer))
        m_bGaveUp = true;
    return static_cast<LRESULT>(nAnswer);
}

// While another process has the keyboard its queue cannot be watched.
void CInputHand::WaitUntilHandled()
{
    const BYTE nMark = ++s_nNextMark;
    for (DWORD nBegin = ::GetTickCount(); s_nMark != nMark && !m_bGaveUp;)
    {
        DWORD nProcess = 0;
        ::GetWindowThreadProcessId(::GetForegroundWindow(), &nProcess);
        if (nProcess != ::GetCurrentProcessId())
            return ::Sleep(50);
        SendKey(s_nMarkKey, false, nMark);
        for (int i = 0; i < 50 && s_nMark != nMark; i++)
            ::Sleep(1);
        m_bGaveUp = ::GetTickCount() - nBegin > s_nPatience;
    }
}

// A drag that is still going with no button down would never end.
void CInputHand::EndDrag()
{
    const DWORD nThread = ::GetWindowThreadProcessId(m_Dialog, nullptr);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    for (DWORD nBegin = ::GetTickCount(); ::GetTickCount() - nBegin < 2 * s_nPatience; ::Sleep(10))
    {
        if (!::GetGUIThreadInfo(nThread, &info) || info.hwndCapture == nullptr)
            return;
        m_bGaveUp = m_bGaveUp || ::GetTickCount() - nBegin > s_nPatience;
        if (m_bGaveUp)
            ::PostMessageA(info.hwndCapture, WM_KEYDOWN, VK_ESCAPE, 1);
    }
}
