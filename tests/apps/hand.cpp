// A hand on mouse and keyboard, and an eye on the windows of one program: hand.exe PROGRAM [WORD
// ...]
//
// Starts the program, says "ready" when its window is there, and obeys a line of standard input at
// a time; each gets one line of answer. What waits gives up after ten seconds with "no: " and what
// is there instead. Places are pixels inside the window of the class CLASS.
//
//   type TEXT               characters, whatever the keyboard's layout
//   key [ctrl+][shift+][alt+]NAME ...
//   move CLASS X Y          also: click, double, right, press, release
//   await ID TEXT           until a child of the main window has this text
//   title TEXT              until the main window has it
//   focus CLASS             until a window of this class has the focus
//   dialog yes|no           until another window stands before the main one, or none
//   menu yes|no             until a popup menu is there, or none
//   gone                    until the program has ended; "yes CODE"
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace
{
constexpr DWORD s_nPatience = 10000;  // milliseconds

HANDLE s_hProcess = nullptr;
DWORD s_nProcess = 0;
HWND s_hMain = nullptr;

const std::string YES = "yes";

// Asks until the answer is "yes".
std::string Until(const std::function<std::string()>& ask)
{
    const DWORD nBegin = GetTickCount();
    std::string strAnswer = ask();
    while (strAnswer != YES && GetTickCount() - nBegin < s_nPatience)
    {
        Sleep(5);
        strAnswer = ask();
    }
    return strAnswer == YES ? YES : "no: " + strAnswer;
}

// ---- What is on the display

std::string ClassOf(HWND hWnd)
{
    char szClass[256] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    return szClass;
}

std::string TextOf(HWND hWnd)
{
    char szText[4096] = "";
    DWORD_PTR nLength = 0;
    SendMessageTimeoutA(hWnd, WM_GETTEXT, sizeof szText, reinterpret_cast<LPARAM>(szText),
                        SMTO_ABORTIFHUNG, s_nPatience, &nLength);
    return szText;
}

struct CSearch
{
    std::function<bool(HWND)> isWanted;
    HWND hFound = nullptr;
};

BOOL CALLBACK Look(HWND hWnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<CSearch*>(lParam);
    if (!search.isWanted(hWnd))
        return TRUE;
    search.hFound = hWnd;
    return FALSE;
}

// A window of the program that is to be seen, at the top level.
HWND FindTop(const std::function<bool(HWND)>& isWanted)
{
    CSearch search{ [&](HWND hWnd)
                    {
                        DWORD nProcess = 0;
                        GetWindowThreadProcessId(hWnd, &nProcess);
                        return nProcess == s_nProcess && IsWindowVisible(hWnd) && isWanted(hWnd);
                    } };
    EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
    return search.hFound;
}

HWND FindInside(const std::string& strClass)
{
    CSearch search{ [&](HWND hWnd)
                    {
                        return ClassOf(hWnd) == strClass;
                    } };
    EnumChildWindows(s_hMain, Look, reinterpret_cast<LPARAM>(&search));
    return search.hFound;
}

std::string YesIf(bool bYes, const std::string& strElse)
{
    return bYes ? YES : strElse;
}

std::string AwaitText(const std::function<HWND()>& find, const std::string& strWanted)
{
    return Until(
        [&]
        {
            const std::string strText = TextOf(find());
            return YesIf(strText == strWanted, strText);
        });
}

std::string AwaitTop(bool bWanted, const std::function<bool(HWND)>& isIt)
{
    return Until(
        [&]
        {
            const HWND hTop = FindTop(isIt);
            return YesIf((hTop != nullptr) == bWanted, TextOf(hTop));
        });
}

std::string AwaitFocus(const std::string& strClass)
{
    return Until(
        [&]
        {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            GetGUIThreadInfo(GetWindowThreadProcessId(s_hMain, nullptr), &info);
            return YesIf(ClassOf(info.hwndFocus) == strClass, ClassOf(info.hwndFocus));
        });
}

std::string AwaitEnd()
{
    if (WaitForSingleObject(s_hProcess, s_nPatience) != WAIT_OBJECT_0)
        return "no: it runs";
    DWORD nCode = 0;
    GetExitCodeProcess(s_hProcess, &nCode);
    return YES + " " + std::to_string(nCode);
}

// ---- The hand

void SendKey(WORD nKey, WORD nScan, DWORD nFlags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = nKey;
    input.ki.wScan = nScan;
    input.ki.dwFlags = nFlags;
    SendInput(1, &input, sizeof input);
}

std::string Type(const std::string& strText)
{
    for (const char c : strText)
    {
        SendKey(0, static_cast<BYTE>(c), KEYEVENTF_UNICODE);
        SendKey(0, static_cast<BYTE>(c), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
    return YES;
}

constexpr std::pair<const char*, WORD> s_aKeys[] = {
    { "ctrl", VK_CONTROL }, { "shift", VK_SHIFT },   { "alt", VK_MENU },    { "enter", VK_RETURN },
    { "tab", VK_TAB },      { "escape", VK_ESCAPE }, { "space", VK_SPACE }, { "left", VK_LEFT },
    { "right", VK_RIGHT },  { "up", VK_UP },         { "down", VK_DOWN },   { "home", VK_HOME },
    { "end", VK_END },      { "delete", VK_DELETE }, { "back", VK_BACK },   { "insert", VK_INSERT },
    { "f1", VK_F1 },        { "f4", VK_F4 },
};

// A letter's or digit's own code is that of its key.
WORD KeyOf(const std::string& strName)
{
    for (const auto& [pszName, nKey] : s_aKeys)
    {
        if (strName == pszName)
            return nKey;
    }
    return static_cast<WORD>(std::toupper(static_cast<BYTE>(strName[0])));
}

std::string Press(const std::string& strKey)
{
    std::vector<WORD> held;
    std::stringstream names(strKey);
    for (std::string strName; std::getline(names, strName, '+');)
        held.push_back(KeyOf(strName));
    for (const WORD nKey : held)
        SendKey(nKey, 0, 0);
    std::ranges::reverse(held);
    for (const WORD nKey : held)
        SendKey(nKey, 0, KEYEVENTF_KEYUP);
    return YES;
}

void SendMouse(DWORD nFlags, POINT point)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = nFlags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    const int nWidth = GetSystemMetrics(SM_CXSCREEN);
    const int nHeight = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (point.x * 65536 + nWidth / 2) / nWidth + 1;
    input.mi.dy = (point.y * 65536 + nHeight / 2) / nHeight + 1;
    SendInput(1, &input, sizeof input);
}

struct CGesture
{
    const char* pszName;
    std::vector<DWORD> buttons;
};
const CGesture s_aGestures[] = {
    { "move", {} },
    { "press", { MOUSEEVENTF_LEFTDOWN } },
    { "release", { MOUSEEVENTF_LEFTUP } },
    { "click", { MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP } },
    { "double",
      { MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP } },
    { "right", { MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP } },
};

// A click soon after another one would be a double click: the first waits until that is over.
std::string Gesture(const CGesture& gesture, std::istream& words)
{
    std::string strClass;
    POINT point{};
    words >> strClass >> point.x >> point.y;
    const HWND hWnd = FindInside(strClass);
    if (hWnd == nullptr)
        return "no: " + strClass;
    ClientToScreen(hWnd, &point);
    static DWORD s_nLast = 0;
    if (!gesture.buttons.empty())
    {
        while (GetTickCount() - s_nLast <= GetDoubleClickTime())
            Sleep(20);
        s_nLast = GetTickCount();
    }
    SendMouse(0, point);
    for (const DWORD nButton : gesture.buttons)
        SendMouse(nButton, point);
    return YES;
}

// ---- Lines

std::string Obey(const std::string& strLine)
{
    std::stringstream words(strLine);
    std::string strCommand;
    words >> strCommand;
    for (const CGesture& gesture : s_aGestures)
    {
        if (strCommand == gesture.pszName)
            return Gesture(gesture, words);
    }
    const std::string strRest = strLine.substr(std::min(strLine.size(), strCommand.size() + 1));
    if (strCommand == "type")
        return Type(strRest);
    if (strCommand == "await")
    {
        const size_t nBlank = strRest.find(' ');
        const int nID = std::stoi(strRest);
        const std::string strText = nBlank == std::string::npos ? "" : strRest.substr(nBlank + 1);
        return AwaitText([=] { return GetDlgItem(s_hMain, nID); }, strText);
    }
    if (strCommand == "title")
    {
        return AwaitText([] { return s_hMain; }, strRest);
    }
    if (strCommand == "focus")
        return AwaitFocus(strRest);
    if (strCommand == "dialog")
    {
        return AwaitTop(strRest == YES, [](HWND hWnd) { return ClassOf(hWnd) == "#32770"; });
    }
    if (strCommand == "menu")
    {
        return AwaitTop(strRest == YES, [](HWND hWnd) { return ClassOf(hWnd) == "#32768"; });
    }
    if (strCommand == "gone")
        return AwaitEnd();
    if (strCommand != "key")
        return "no: what is " + strCommand;
    for (std::string strKey; words >> strKey;)
        Press(strKey);
    return YES;
}

bool Start(std::string strCommand)
{
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, strCommand.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return false;
    s_hProcess = process.hProcess;
    s_nProcess = process.dwProcessId;
    const auto isForeground = []
    {
        DWORD nProcess = 0;
        GetWindowThreadProcessId(GetForegroundWindow(), &nProcess);
        s_hMain = FindTop([](HWND hWnd) { return GetWindow(hWnd, GW_OWNER) == nullptr; });
        return YesIf(s_hMain != nullptr && nProcess == s_nProcess, "");
    };
    return Until(isForeground) == YES;
}
}  // namespace

int main(int argc, char** argv)
{
    std::string strCommand;
    for (int n = 1; n < argc; ++n)
        strCommand += '"' + std::string(argv[n]) + "\" ";
    std::cout << (Start(strCommand) ? "ready" : "no window") << std::endl;
    for (std::string strLine; std::getline(std::cin, strLine);)
    {
        if (!strLine.empty() && strLine.back() == '\r')
            strLine.pop_back();
        std::cout << Obey(strLine) << std::endl;
    }
    TerminateProcess(s_hProcess, 1);
    return 0;
}
