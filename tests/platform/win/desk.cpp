#include "desk.h"

#include "platform/win/app_pump.h"
#include "platform/win/system_call.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>
#include <utility>
#include <vector>

namespace
{
void Send(const INPUT& input)
{
    INPUT copy = input;
    SendInput(1, &copy, sizeof copy);
}

bool IsPressed(int nKey)
{
    return GetAsyncKeyState(nKey) < 0;
}

LRESULT CALLBACK MoveProc(HWND hWnd, UINT nMessage, WPARAM x, LPARAM y)
{
    if (nMessage != WM_APP)
        return DefWindowProcA(hWnd, nMessage, x, y);
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
              { static_cast<LONG>(x), static_cast<LONG>(y) });
    return 0;
}

// Handles count their objects in the lower half.
UINT IndexOf(const void* pHandle)
{
    return LOWORD(reinterpret_cast<UINT_PTR>(pHandle));
}

// As a message loop does. That of the application would wait for more.
void Handle(MSG& message)
{
    try
    {
        if (AfxPreTranslateMessage(&message))
            return;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    catch (...)
    {
        AfxEndException();
    }
}
}  // namespace

void SendMouse(DWORD nFlags, POINT point)
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

void SendKey(WORD nKey, bool bDown, BYTE nScan)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = nKey;
    input.ki.wScan = nScan;
    input.ki.dwFlags = bDown ? 0 : KEYEVENTF_KEYUP;
    Send(input);
}

void LetGo()
{
    if (IsPressed(VK_LBUTTON))
        SendMouse(MOUSEEVENTF_LEFTUP);
    if (IsPressed(VK_RBUTTON))
        SendMouse(MOUSEEVENTF_RIGHTUP);
    for (const WORD nKey : { VK_CONTROL, VK_SHIFT, VK_MENU })
    {
        if (IsPressed(nKey))
            SendKey(nKey, false);
    }
}

// ---- The mover

CMover::CMover()
    : m_hMover(CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr))
{
    SetWindowLongPtrA(m_hMover, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(MoveProc));
}

CMover::~CMover()
{
    DestroyWindow(m_hMover);
}

void CMover::MoveTo(POINT to)
{
    for (const LONG x : { to.x + 1, to.x })
        SendMessageTimeoutA(m_hMover, WM_APP, x, to.y, SMTO_NORMAL, 2000, nullptr);
    m_at = to;
}

bool CMover::WaitFor(const FCondition& condition, const std::function<void()>& again)
{
    int nHeld = 0;
    for (int i = 1; i <= 4000; ++i)
    {
        POINT at{};
        GetCursorPos(&at);
        const bool bThere = at.x == m_at.x && at.y == m_at.y;
        nHeld = bThere && condition() ? nHeld + 1 : 0;
        if (nHeld == 20)
            return true;
        if (i % 100 == 0 && again)
            again();
        if (i % 100 == 0)
            MoveTo(m_at);
        Sleep(1);
    }
    return false;
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
            Handle(message);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
    }
    return true;
}

// ---- The second process

CPartner::CPartner(const std::string& strProgram, const std::string& strArguments)
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
    strCommand = "\"" + strCommand.substr(0, strCommand.find_last_of("\\/") + 1) + strProgram +
                 "\" " + strArguments;
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

void PumpToEnd(const std::string& strReady)
{
    std::puts(strReady.c_str());
    std::fflush(stdout);
    std::atomic<bool> bEnded = false;
    std::thread reader(
        [&]
        {
            while (std::getchar() != EOF)
            {
            }
            bEnded = true;
        });
    PumpUntil([&] { return bEnded.load(); }, 60000);
    reader.join();
}

SGuiHandles SGuiHandles::Count()
{
    SGuiHandles handles;
    std::vector<HMENU> menus(500);
    std::vector<HBRUSH> brushes(500);
    for (HMENU& hMenu : menus)
        handles.nUser = std::max<UINT>(handles.nUser, IndexOf(hMenu = CreateMenu()));
    for (HBRUSH& hBrush : brushes)
        handles.nGdi = std::max<UINT>(handles.nGdi, IndexOf(hBrush = CreateSolidBrush(1)));
    for (HMENU hMenu : menus)
        DestroyMenu(hMenu);
    for (HBRUSH hBrush : brushes)
        DeleteObject(hBrush);
    return handles;
}
