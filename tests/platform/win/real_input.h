// Mouse and keys through the system's input queue.
#pragma once

#include <windows.h>

// Screen coordinates; nFlags: MOUSEEVENTF_...
inline void SendMouse(DWORD nFlags, POINT point = {})
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = nFlags;
    const int nWidth = GetSystemMetrics(SM_CXSCREEN);
    const int nHeight = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (point.x * 65536 + nWidth / 2) / nWidth + 1;
    input.mi.dy = (point.y * 65536 + nHeight / 2) / nHeight + 1;
    SendInput(1, &input, sizeof input);
}

// nScan tells presses of one key apart; with KEYEVENTF_UNICODE it is a character.
inline void SendKey(WORD nKey, bool bDown, BYTE nScan = 0, DWORD nFlags = 0)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = nKey;
    input.ki.wScan = nScan;
    input.ki.dwFlags = nFlags | (bDown ? 0 : KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
}
