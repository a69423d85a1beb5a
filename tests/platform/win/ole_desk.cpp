#include "ole_desk.h"

#include "platform/base/exception.h"
#include "platform/base/win32/com_pointer.h"
#include "platform/win/ole_data_object.h"

#include <utility>

namespace
{
BYTE ByteAt(SIZE_T nIndex, SIZE_T nSize)
{
    return static_cast<BYTE>(nIndex * 31 + nSize + (nIndex >> 8));
}

void Send(const INPUT& input)
{
    INPUT copy = input;
    SendInput(1, &copy, sizeof copy);
}

void SendMouse(DWORD nFlags, POINT point = {})
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = nFlags;
    const int nWidth = GetSystemMetrics(SM_CXSCREEN);
    const int nHeight = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (point.x * 65536 + nWidth / 2) / nWidth + 1;
    input.mi.dy = (point.y * 65536 + nHeight / 2) / nHeight + 1;
    Send(input);
}

void SendKey(WORD nKey, bool bDown)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = nKey;
    input.ki.dwFlags = bDown ? 0 : KEYEVENTF_KEYUP;
    Send(input);
}

// Moves come from the thread with the windows: the X server echoes each of them, and only there
// Wine knows an echo that is late, and lets the cursor where it is.
LRESULT CALLBACK MoveProc(HWND hWnd, UINT nMessage, WPARAM x, LPARAM y)
{
    if (nMessage != WM_APP)
        return DefWindowProcA(hWnd, nMessage, x, y);
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
              { static_cast<LONG>(x), static_cast<LONG>(y) });
    return 0;
}

bool IsPressed(int nKey)
{
    return GetAsyncKeyState(nKey) < 0;
}

void LetGo()
{
    if (IsPressed(VK_LBUTTON))
        SendMouse(MOUSEEVENTF_LEFTUP);
    if (IsPressed(VK_RBUTTON))
        SendMouse(MOUSEEVENTF_RIGHTUP);
    if (IsPressed(VK_CONTROL))
        SendKey(VK_CONTROL, false);
}
}  // namespace

// ---- Blocks

HGLOBAL MakeBlock(SIZE_T nSize)
{
    HGLOBAL hMemory = GlobalAlloc(GMEM_MOVEABLE, nSize);
    const CGlobalLock lock(hMemory);
    for (SIZE_T i = 0; i < nSize; ++i)
        lock.Data()[i] = ByteAt(i, nSize);
    return hMemory;
}

bool IsBlock(HGLOBAL hMemory, SIZE_T nSize)
{
    if (hMemory == nullptr || GlobalSize(hMemory) != nSize)
        return false;
    const CGlobalLock lock(hMemory);
    for (SIZE_T i = 0; i < nSize; ++i)
        if (lock.Data()[i] != ByteAt(i, nSize))
            return false;
    return true;
}

CLIPFORMAT TestFormat()
{
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatA("Mivora OLE test"));
}

// ---- Messages

bool PumpUntil(const std::function<bool()>& condition, DWORD nMilliseconds)
{
    const DWORD nBegin = GetTickCount();
    while (!condition())
    {
        if (GetTickCount() - nBegin > nMilliseconds)
            return false;
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
    }
    return true;
}

// ---- The second process

CPartner::CPartner(const std::string& strArguments)
{
    SECURITY_ATTRIBUTES inherited{ sizeof inherited, nullptr, TRUE };
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    CreatePipe(&startup.hStdInput, &m_hItsInput, &inherited, 0);
    CreatePipe(&m_hItsOutput, &startup.hStdOutput, &inherited, 0);
    SetHandleInformation(m_hItsInput, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(m_hItsOutput, HANDLE_FLAG_INHERIT, 0);

    char szPath[MAX_PATH];
    GetModuleFileNameA(nullptr, szPath, MAX_PATH);
    std::string strCommand = szPath;
    strCommand = "\"" + strCommand.substr(0, strCommand.find_last_of("\\/") + 1) +
                 "ole_partner.exe\" " + strArguments;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, strCommand.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &process))
    {
        m_hProcess = process.hProcess;
        CloseHandle(process.hThread);
    }
    CloseHandle(startup.hStdInput);
    CloseHandle(startup.hStdOutput);
}

CPartner::~CPartner()
{
    Finish();
    CloseHandle(m_hItsOutput);
    if (m_hProcess != nullptr)
        CloseHandle(m_hProcess);
}

std::string CPartner::ReadLine()
{
    std::string strLine;
    bool bEnded = false;
    PumpUntil(
        [&]
        {
            DWORD nThere = 0;
            while (!bEnded)
            {
                char c = 0;
                DWORD nRead = 0;
                if (!PeekNamedPipe(m_hItsOutput, nullptr, 0, nullptr, &nThere, nullptr))
                    bEnded = true;
                else if (nThere == 0)
                    break;
                else if (ReadFile(m_hItsOutput, &c, 1, &nRead, nullptr) && c == '\n')
                    bEnded = true;
                else if (c != '\r')
                    strLine += c;
            }
            return bEnded;
        });
    return strLine;
}

DWORD CPartner::Finish()
{
    if (m_hItsInput != nullptr)
        CloseHandle(std::exchange(m_hItsInput, nullptr));
    DWORD nCode = STILL_ACTIVE;
    PumpUntil([&] { return !GetExitCodeProcess(m_hProcess, &nCode) || nCode != STILL_ACTIVE; });
    if (nCode == STILL_ACTIVE)
        TerminateProcess(m_hProcess, nCode);
    return nCode;
}

// ---- The hand

CHand::CHand(std::string_view script, FCondition isGoing, FCondition isThere, FCondition isAnswered)
    : m_isGoing(std::move(isGoing)),
      m_isThere(std::move(isThere)),
      m_isAnswered(std::move(isAnswered)),
      m_hMover(CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)),
      m_thread([this, script] { Play(script); })
{
    SetWindowLongPtrA(m_hMover, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(MoveProc));
}

CHand::~CHand()
{
    m_thread.join();
    DestroyWindow(m_hMover);
}

void CHand::Play(std::string_view script)
{
    for (const char c : script)
        if (!m_bGaveUp)
            Do(c);
    if (m_bGaveUp)
        Do('e');
    LetGo();
    m_bDone = true;
}

void CHand::Do(char c)
{
    switch (c)
    {
        case 'l':
            return SendMouse(MOUSEEVENTF_LEFTDOWN);
        case 'L':
            return SendMouse(MOUSEEVENTF_LEFTUP);
        case 'r':
            return SendMouse(MOUSEEVENTF_RIGHTDOWN);
        case 'R':
            return SendMouse(MOUSEEVENTF_RIGHTUP);
        case 's':
            return Go(s_sourcePoint);
        case 't':
            return Go(s_targetPoint);
        case 'o':
            return Go(s_nowhere);
        case 'm':
            return Go({ s_sourcePoint.x + 3, s_sourcePoint.y });
        case 'c':
            m_bControl = true;
            return SendKey(VK_CONTROL, true);
        case 'e':
            SendKey(VK_ESCAPE, true);
            return SendKey(VK_ESCAPE, false);
        case '?':
            return WaitFor(m_isGoing);
        case '!':
            return WaitFor(m_isThere);
        case '.':
            return WaitFor(m_isAnswered);
    }
}

void CHand::MoveTo(POINT to)
{
    for (const LONG x : { to.x + 1, to.x })  // a move in any case
        SendMessageTimeoutA(m_hMover, WM_APP, x, to.y, SMTO_NORMAL, 2000, nullptr);
    m_at = to;
}

void CHand::Go(POINT to)
{
    MoveTo(to);
    WaitFor([] { return true; });
}

// For a while, since late news of the X server may still move the cursor back, or let go of keys.
// Moves again and again: what the other side was not ready for is lost.
void CHand::WaitFor(const FCondition& condition)
{
    int nHeld = 0;
    for (int i = 1; i <= 4000; ++i)
    {
        POINT at{};
        GetCursorPos(&at);
        const bool bThere = at.x == m_at.x && at.y == m_at.y;
        nHeld = bThere && condition() ? nHeld + 1 : 0;
        if (nHeld == 20)
            return;
        if (i % 100 == 0 && m_bControl)
            SendKey(VK_CONTROL, true);
        if (i % 100 == 0)
            MoveTo(m_at);
        Sleep(1);
    }
    m_bGaveUp = true;
}

// ---- Windows, targets and sources

BEGIN_MESSAGE_MAP(CTestWindow, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONDBLCLK()
END_MESSAGE_MAP()

CTestWindow::CTestWindow(const RECT& place)
{
    CreateEx(WS_EX_TOPMOST, nullptr, "", WS_POPUP | WS_VISIBLE, place.left, place.top,
             place.right - place.left, place.bottom - place.top, nullptr, nullptr);
    UpdateWindow();
}

CTestTarget::CTestTarget(CWnd* pWindow, EManner eManner) : m_eManner(eManner)
{
    Register(pWindow);
}

void CTestTarget::Log(char c)
{
    if (m_strLog.empty() || m_strLog.back() != c)
        m_strLog += c;
}

DROPEFFECT CTestTarget::OnDragScroll(CWnd*, DWORD, CPoint)
{
    m_bOver = true;
    return m_eManner == scrolls ? DROPEFFECT_SCROLL | DROPEFFECT_COPY : DROPEFFECT_NONE;
}

DROPEFFECT CTestTarget::Answer(COleDataObject* pDataObject, DWORD nKeys) const
{
    const bool bRefused = m_eManner == refuses || (m_eManner == refusesTheLastOver &&
                                                   (nKeys & (MK_LBUTTON | MK_RBUTTON)) == 0);
    if (bRefused || !pDataObject->IsDataAvailable(TestFormat()))
        return DROPEFFECT_NONE;
    return nKeys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}

DROPEFFECT CTestTarget::OnDragEnter(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint)
{
    Log('E');
    return Answer(pDataObject, nKeys);
}

DROPEFFECT CTestTarget::OnDragOver(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint)
{
    Log('O');
    m_nKeys |= nKeys;
    if (m_eManner == throwsAtOver)
        AfxThrowMemoryException();
    if (m_eManner == revokesAtOver)
        Revoke();
    return Answer(pDataObject, nKeys);
}

DROPEFFECT CTestTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT nList, CPoint)
{
    Log('X');
    m_nList = nList;
    return m_eManner == copiesInDropEx ? DROPEFFECT_COPY : static_cast<DROPEFFECT>(-1);
}

BOOL CTestTarget::OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT, CPoint point)
{
    Log('D');
    m_point = point;
    m_bSame = IsBlock(CGlobalPtr(pDataObject->GetGlobalData(TestFormat())).get());
    if (m_eManner == throwsAtDrop)
        throw 1;
    if (m_eManner == destroysAtDrop)
        pWnd->DestroyWindow();
    return m_eManner != refusesDrop;
}

void CTestTarget::OnDragLeave(CWnd*)
{
    Log('L');
    m_bOver = false;
}

void CTestTarget::Revoke()
{
    Log('R');
    COleDropTarget::Revoke();
}

SCODE CTestSource::QueryContinueDrag(BOOL bEscapePressed, DWORD nKeys)
{
    m_bGoing = true;
    return COleDropSource::QueryContinueDrag(bEscapePressed, nKeys);
}

SCODE CTestSource::GiveFeedback(DROPEFFECT nEffect)
{
    m_nShown = nEffect;
    return COleDropSource::GiveFeedback(nEffect);
}
