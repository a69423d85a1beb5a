// A hand on mouse and keyboard, and an eye on the windows of one program: hand.exe TITLE
//
// Says "ready" when there is a main window with this at the end of its title, and obeys a line of
// standard input at a time; each gets one line of answer. What waits gives up after ten seconds
// with "no: " and what is there instead. Places are pixels inside the window of the class CLASS.
// At the end of the input the program ends as well.
//
//   type TEXT               characters, whatever the keyboard's layout
//   key [Ctrl-][Shift-][Alt-]NAME ...
//   click CLASS X Y         also: double
//   await ID TEXT           until a child of the main window has this text
//   title TEXT              until the main window has it
//   focus CLASS             until a window of this class has the focus
//   dialog yes|no           until another window stands before the main one, or none
//   menu yes|no             until a popup menu is there, or none
#include "platform/win/real_input.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace
{
constexpr DWORD s_nPatience = 10000;  // milliseconds

HWND s_hMain = nullptr;
DWORD s_nProcess = 0;

const std::string YES = "yes";

// Looks until it sees what is wanted.
std::string Await(const std::string& strWanted, const std::function<std::string()>& see)
{
    const DWORD nBegin = GetTickCount();
    std::string strSeen = see();
    while (strSeen != strWanted && GetTickCount() - nBegin < s_nPatience)
    {
        Sleep(5);
        strSeen = see();
    }
    return strSeen == strWanted ? YES : "no: " + strSeen;
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

// The first of all windows inside hParent, or of those at the top level for null.
HWND Find(HWND hParent, const std::function<bool(HWND)>& isWanted)
{
    std::vector<HWND> windows;
    const WNDENUMPROC pfnAdd = [](HWND hWnd, LPARAM lList) -> BOOL
    {
        reinterpret_cast<std::vector<HWND>*>(lList)->push_back(hWnd);
        return TRUE;
    };
    const auto lList = reinterpret_cast<LPARAM>(&windows);
    hParent != nullptr ? EnumChildWindows(hParent, pfnAdd, lList) : EnumWindows(pfnAdd, lList);
    const auto found = std::ranges::find_if(windows, isWanted);
    return found != windows.end() ? *found : nullptr;
}

DWORD ProcessOf(HWND hWnd)
{
    DWORD nProcess = 0;
    GetWindowThreadProcessId(hWnd, &nProcess);
    return nProcess;
}

std::string IsThere(const std::string& strTopClass)
{
    const auto isIt = [&](HWND hWnd)
    {
        return ProcessOf(hWnd) == s_nProcess && IsWindowVisible(hWnd) &&
               ClassOf(hWnd) == strTopClass;
    };
    return Find(nullptr, isIt) != nullptr ? YES : "no";
}

std::string FocusClass()
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(s_hMain, nullptr), &info);
    return ClassOf(info.hwndFocus);
}

// What the waiting commands look at; the identifier is that of "await".
std::string See(const std::string& strCommand, int nID)
{
    if (strCommand == "await")
        return TextOf(GetDlgItem(s_hMain, nID));
    if (strCommand == "title")
        return TextOf(s_hMain);
    if (strCommand == "focus")
        return FocusClass();
    return IsThere(strCommand == "dialog" ? "#32770" : "#32768");
}

// ---- The hand

// A click soon after another one would be a double click: the first waits until that is over.
std::string Click(int nTimes, std::istream& words)
{
    std::string strClass;
    POINT point{};
    words >> strClass >> point.x >> point.y;
    const HWND hWnd = Find(s_hMain, [&](HWND h) { return ClassOf(h) == strClass; });
    if (hWnd == nullptr)
        return "no: " + strClass;
    ClientToScreen(hWnd, &point);
    static DWORD s_nLast = 0;
    while (GetTickCount() - s_nLast <= GetDoubleClickTime())
        Sleep(20);
    s_nLast = GetTickCount();
    constexpr DWORD nThere = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    SendMouse(nThere, point);
    for (; nTimes > 0; --nTimes)
    {
        SendMouse(nThere | MOUSEEVENTF_LEFTDOWN, point);
        SendMouse(nThere | MOUSEEVENTF_LEFTUP, point);
    }
    return YES;
}

// ---- Lines

std::string Obey(const std::string& strLine)
{
    std::stringstream words(strLine);
    std::string strCommand;
    words >> strCommand;
    if (strCommand == "click" || strCommand == "double")
        return Click(strCommand == "click" ? 1 : 2, words);
    int nID = 0;
    if (strCommand == "await")
        words >> nID;
    std::string strRest;
    if (strCommand == "key")
    {
        while (words >> strRest)
            PressKeys(strRest);
        return YES;
    }
    std::getline(words >> std::ws, strRest);
    if (strCommand != "type")
        return Await(strRest, [&] { return See(strCommand, nID); });
    for (const char c : strRest)
    {
        for (const bool bDown : { true, false })
            SendKey(0, bDown, static_cast<BYTE>(c), KEYEVENTF_UNICODE);
    }
    return YES;
}

// Its window is there and in front.
std::string SeeProgram(const std::string& strTitle)
{
    const auto isMain = [&](HWND hWnd)
    {
        return IsWindowVisible(hWnd) && GetWindow(hWnd, GW_OWNER) == nullptr &&
               TextOf(hWnd).ends_with(strTitle);
    };
    s_hMain = Find(nullptr, isMain);
    s_nProcess = ProcessOf(s_hMain);
    return s_hMain != nullptr && ProcessOf(GetForegroundWindow()) == s_nProcess ? YES : "no window";
}
}  // namespace

int main(int, char** argv)
{
    const std::string strSeen = Await(YES, [&] { return SeeProgram(argv[1]); });
    std::cout << (strSeen == YES ? "ready" : strSeen) << std::endl;
    for (std::string strLine; std::getline(std::cin, strLine);)
    {
        if (!strLine.empty() && strLine.back() == '\r')
            strLine.pop_back();
        std::cout << Obey(strLine) << std::endl;
    }
    TerminateProcess(OpenProcess(PROCESS_TERMINATE, FALSE, s_nProcess), 1);
    return 0;
}
