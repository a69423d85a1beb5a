// Signals: that of Ctrl+C, and the one that asks a program to end.
#include "system/interruption.h"

#include <signal.h>
#include <unistd.h>

#include "platform/base/file.h"

namespace
{
constexpr int s_nStatusOfSignal = 128;

volatile sig_atomic_t s_nSignal = 0;
volatile sig_atomic_t s_bNoteFirst = 0;

void Interrupt(int nSignal)
{
    const bool bNote = s_bNoteFirst != 0 && s_nSignal == 0;
    s_nSignal = nSignal;
    if (!bNote && CMirrorFile::CountOpen() == 0)
        _exit(s_nStatusOfSignal + nSignal);
}

// What waits for input is not begun again.
void Handle(void (*pfnHandler)(int))
{
    struct sigaction action = {};
    action.sa_handler = pfnHandler;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}
}  // namespace

void EndWhenInterrupted()
{
    Handle(Interrupt);
}

void NoteInterruption()
{
    s_bNoteFirst = 1;
    Handle(Interrupt);
}

void IgnoreInterruption()
{
    Handle(SIG_DFL);
    signal(SIGINT, SIG_IGN);
}

bool IsInterrupted()
{
    return s_nSignal != 0;
}

int InterruptedStatus()
{
    return s_nStatusOfSignal + s_nSignal;
}
