// Windows for tests: a parent that is never shown, and a log of what was handled.
#pragma once

#include "platform/win/message_map.h"

#include <string>

// What handlers were called with, one after the other, a blank between.
inline std::string g_log;

template <class... A>
void Log(const char* pszName, const A&... args)
{
    CString strLine;
    strLine.Format(sizeof...(args) == 0   ? "%s"
                   : sizeof...(args) == 1 ? "%s(%d)"
                   : sizeof...(args) == 2 ? "%s(%d,%d)"
                                          : "%s(%d,%d,%d)",
                   pszName, args...);
    g_log += (g_log.empty() ? "" : " ") + std::string(strLine);
}

inline std::string TakeLog()
{
    return std::exchange(g_log, {});
}

// A top-level window with nothing in it; with it a test begins.
class CTestParent : public CWnd
{
public:
    CTestParent()
    {
        g_log.clear();
        CreateEx(0, nullptr, "parent", WS_OVERLAPPEDWINDOW, 10, 10, 400, 300, nullptr, nullptr);
    }
};

template <class T>
void MakeChild(T& window, CWnd& parent, UINT nID = 1, DWORD dwStyle = WS_VISIBLE)
{
    window.CWnd::Create(nullptr, "", dwStyle, CRect(0, 0, 200, 100), &parent, nID);
}
