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
    std::atomic<bool> bEnded = false;
    std::thread reader(
        [&]
        {
            char c = 0;
            DWORD nRead = 0;
            while (ReadFile(m_hItsOutput, &c, 1, &nRead, nullptr) && nRead == 1 && c != '\n')
                strLine += c;
            bEnded = true;
        });
    if (!PumpUntil([&] { return bEnded.load(); }))
        TerminateProcess(m_hProcess, STILL_ACTIVE);  // which ends the line as well
    reader.join();
    if (strLine.ends_with('\r'))
        strLine.pop_back();
    return strLine;
}

DWORD CPartner::Finish()
{
    if (m_hItsInput != nullptr)
        CloseHandle(std::exchange(m_hItsInput, nullptr));
    DWORD nCode = STILL_ACTIVE;
    if (!PumpUntil([&] { return WaitForSingleObject(m_hProcess, 0) != WAIT_TIMEOUT; }))
        TerminateProcess(m_hProcess, nCode);
    GetExitCodeProcess(m_hProcess, &nCode);
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
    std::vector<std::pair<HMENU, HBRUSH>> made(500);
    for (auto& [hMenu, hBrush] : made)
    {
        handles.nUser = std::max(handles.nUser, IndexOf(hMenu = CreateMenu()));
        handles.nGdi = std::max(handles.nGdi, IndexOf(hBrush = CreateSolidBrush(1)));
    }
    for (const auto& [hMenu, hBrush] : made)
    {
        DestroyMenu(hMenu);
        DeleteObject(hBrush);
    }
    return handles;
}
