// What tests with real input and several processes work with: mouse and keys through the system's
// input queue, a message pump with an end, a second process.
#pragma once

#include "platform/base/types.h"
#include "real_input.h"

#include <functional>
#include <string>

// Leaves nothing pressed.
void LetGo();

// Takes the mouse to places for a hand that works in a thread of its own. The moves come from the
// thread that made the mover, which has the windows: the X server echoes each move, and only there
// Wine knows an echo that is late, and lets the cursor where it is.
class CMover
{
public:
    using FCondition = std::function<bool()>;
    CMover();
    ~CMover();
    CMover(const CMover&) = delete;
    CMover& operator=(const CMover&) = delete;

    // Screen coordinates. The mouse moves in any case, by a point's width where it is there
    // already.
    void MoveTo(POINT to);
    // Until the condition has held for a while with the mouse at rest there, since late news of the
    // X server may still move it back, or let go of keys. Moves again and again, after what "again"
    // does: what the other side was not ready for is lost. False after some 4 seconds.
    bool WaitFor(const FCondition& condition, const std::function<void()>& again = {});

private:
    HWND m_hMover;
    POINT m_at = {};
};

// Handles messages, as a message loop does, until the condition holds; false when it does not
// within the time.
bool PumpUntil(const std::function<bool()>& condition, DWORD nMilliseconds = 10000);

// A second process, which ends with this object.
class CPartner
{
public:
    // A program from the folder of this one.
    CPartner(const std::string& strProgram, const std::string& strArguments);
    ~CPartner();
    CPartner(const CPartner&) = delete;
    CPartner& operator=(const CPartner&) = delete;

    // The next line that it writes, messages being handled meanwhile; empty at its end.
    std::string ReadLine();
    // Ends its message pump and gives its exit code.
    DWORD Finish();

private:
    HANDLE m_hProcess = nullptr;
    HANDLE m_hItsInput = nullptr;
    HANDLE m_hItsOutput = nullptr;
};

// In the second process: says that it is ready, and handles messages until the first one closes its
// input.
void PumpToEnd(const std::string& strReady = "ready");

// How far the handles of windows and menus, and of drawing objects, go when 500 more are made: what
// is not given back makes them go further. Wine's GetGuiResources gives 0.
struct SGuiHandles
{
    UINT nUser = 0;
    UINT nGdi = 0;

    static SGuiHandles Count();
};
