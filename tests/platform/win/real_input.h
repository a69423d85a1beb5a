// Mouse and keys through the system's input queue.
#pragma once

#include <windows.h>

#include <cctype>
#include <map>
#include <ranges>
#include <string>
#include <vector>

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

// A letter's or digit's own code is that of its key.
inline WORD KeyOf(const std::string& strName)
{
    static const std::map<std::string, WORD> s_keys = {
        { "Ctrl", VK_CONTROL }, { "Shift", VK_SHIFT },  { "Alt", VK_MENU },
        { "Enter", VK_RETURN }, { "Tab", VK_TAB },      { "Esc", VK_ESCAPE },
        { "Space", VK_SPACE },  { "Left", VK_LEFT },    { "Right", VK_RIGHT },
        { "Up", VK_UP },        { "Down", VK_DOWN },    { "Home", VK_HOME },
        { "End", VK_END },      { "Del", VK_DELETE },   { "Ins", VK_INSERT },
        { "F4", VK_F4 },        { "Pad1", VK_NUMPAD1 },
    };
    return strName.size() == 1 ? static_cast<WORD>(std::toupper(static_cast<BYTE>(strName[0])))
                               : s_keys.at(strName);
}

// A key, with others that are held meanwhile: Ctrl-Shift-x.
inline void PressKeys(const std::string& strKeys)
{
    std::vector<WORD> held;
    for (const auto name : std::views::split(strKeys, '-'))
        SendKey(held.emplace_back(KeyOf({ name.begin(), name.end() })), true);
    for (const WORD nKey : held | std::views::reverse)
        SendKey(nKey, false);
}
