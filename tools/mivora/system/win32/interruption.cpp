// Ctrl+C and Ctrl+Break, which the system tells in a thread of their own.
#include "system/interruption.h"

#include <windows.h>

#include <atomic>

#include "platform/base/file.h"
#include "system/win32/console.h"

namespace
{
constexpr int s_nStatus = 130;

std::atomic<bool> s_bInterrupted = false;
bool s_bNoteFirst = false;
HANDLE s_hMain = nullptr;
DWORD s_nMain = 0;

// The main thread stands still meanwhile, so that it begins no file.
void EndUnlessReplacing()
{
    const bool bOther = GetCurrentThreadId() != s_nMain;
    if (bOther)
        SuspendThread(s_hMain);
    if (CMirrorFile::CountOpen() == 0)
    {
        RestoreConsole();
        TerminateProcess(GetCurrentProcess(), s_nStatus);
    }
    if (bOther)
        ResumeThread(s_hMain);
}

BOOL WINAPI Interrupt(DWORD nEvent)
{
    if (nEvent != CTRL_C_EVENT && nEvent != CTRL_BREAK_EVENT)
        return FALSE;
    const bool bBefore = s_bInterrupted.exchange(true);
    if (s_bNoteFirst && !bBefore)
        CancelSynchronousIo(s_hMain);
    else
        EndUnlessReplacing();
    return TRUE;
}

void Handle(bool bNoteFirst)
{
    s_bNoteFirst = bNoteFirst;
    if (s_hMain != nullptr)
        return;
    s_nMain = GetCurrentThreadId();
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &s_hMain, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    SetConsoleCtrlHandler(Interrupt, TRUE);
}
}  // namespace

void EndWhenInterrupted()
{
    Handle(false);
}

void NoteInterruption()
{
    Handle(true);
}

void IgnoreInterruption()
{
    SetConsoleCtrlHandler(nullptr, TRUE);
}

bool IsInterrupted()
{
    return s_bInterrupted;
}

int InterruptedStatus()
{
    return s_nStatus;
}
