// What the tests of windows share: a log of what was handled, windows that are never shown, the
// messages that wait.
#pragma once

#include "desk.h"
#include "holdings.h"
#include "platform/win/message_map.h"

#include <string>

// What handlers were called with, one after the other, a blank between.
inline std::string g_log;

template <class... A>
void Log(const char* pszName, const A&... args)
{
    static constexpr const char* s_apszFormats[] = { "%s", "%s(%d)", "%s(%d,%d)", "%s(%d,%d,%d)" };
    CString strLine;
    strLine.Format(s_apszFormats[sizeof...(args)], pszName, args...);
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
    explicit CTestParent(bool bShown = false)
    {
        g_log.clear();
        CreateEx(0, nullptr, "parent", WS_OVERLAPPEDWINDOW, 10, 10, 400, 300, nullptr, nullptr);
        if (bShown)
            ShowWindow(SW_SHOW);
    }
};

template <class T>
void MakeChild(T& window, CWnd& parent, UINT nID = 1, DWORD dwStyle = WS_VISIBLE)
{
    window.CWnd::Create(nullptr, "", dwStyle, CRect(0, 0, 200, 100), &parent, nID);
}

inline std::string TextOf(const CWnd& window)
{
    CString strText;
    window.GetWindowText(strText);
    return std::string(strText);
}

// The words of an argument: low, high.
constexpr LPARAM Words(int nLow, int nHigh)
{
    return static_cast<LPARAM>(static_cast<WORD>(nLow) |
                               static_cast<DWORD>(static_cast<WORD>(nHigh)) << 16);
}

struct CMessageCase
{
    UINT nMessage;
    WPARAM wParam;
    LPARAM lParam;
    const char* pszLog;
    LRESULT lResult;
};

template <std::size_t N>
void ExpectHandled(CWnd& window, const CMessageCase (&aCases)[N])
{
    for (const CMessageCase& row : aCases)
    {
        EXPECT_EQ(window.SendMessage(row.nMessage, row.wParam, row.lParam), row.lResult)
            << row.pszLog;
        EXPECT_EQ(TakeLog(), row.pszLog);
    }
}
