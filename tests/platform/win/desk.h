// Message loops with an end, and input for them.
#pragma once

#include "platform/base/types.h"
#include "platform/win/app_pump.h"
#include "platform/win/system_call.h"
#include "real_input.h"

#include <functional>

// Handles messages, as a message loop does, until the condition holds; false when it does not
// within the time. The loop of the application would wait for more.
inline bool PumpUntil(const std::function<bool()>& condition, DWORD nMilliseconds = 10000)
{
    const DWORD nBegin = GetTickCount();
    while (!condition())
    {
        if (GetTickCount() - nBegin > nMilliseconds)
            return false;
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        {
            try
            {
                if (AfxPreTranslateMessage(&message))
                    continue;
                TranslateMessage(&message);
                DispatchMessageA(&message);
            }
            catch (...)
            {
                AfxEndException();
            }
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
    }
    return true;
}

// Handles the messages that come in this time.
inline void PumpFor(DWORD nMilliseconds)
{
    PumpUntil([] { return false; }, nMilliseconds);
}
