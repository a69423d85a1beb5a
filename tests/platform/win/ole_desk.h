// What drags are tested with: a hand on mouse and keyboard, and windows to drag between.
#pragma once

#include "desk.h"
#include "ole_blocks.h"
#include "platform/win/ole_drop_source.h"
#include "platform/win/ole_drop_target.h"
#include "platform/win/window.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <thread>

// Where the windows stand, in screen coordinates.
constexpr RECT s_sourcePlace = { 100, 100, 300, 300 };
constexpr RECT s_targetPlace = { 500, 150, 700, 350 };
constexpr POINT s_targetPoint = { 610, 230 };  // where in it the hand acts

// Moves mouse and keys through the system's input queue, from a thread of its own, by a script:
//   l L r R  left or right button down and up    s t o  to the source, the target, nowhere
//   c        Control down                        e      Escape, pressed and let go
//   m        a bit aside                         ? ! .  waits for isGoing, isThere, isAnswered
// After 4 seconds it gives up with Escape. Whatever happens, it leaves nothing pressed.
class CHand
{
public:
    using FCondition = CMover::FCondition;
    CHand(std::string_view script, const FCondition& isGoing, const FCondition& isThere,
          const FCondition& isAnswered)
        : m_conditions{ { '?', isGoing }, { '!', isThere }, { '.', isAnswered } },
          m_thread([this, script] { Play(script); })
    {
    }
    ~CHand() { m_thread.join(); }

    bool IsDone() const { return m_bDone; }
    bool GaveUp() const { return m_bGaveUp; }

private:
    void Play(std::string_view script)
    {
        for (const char c : script)
        {
            if (!m_bGaveUp)
                Do(c);
        }
        if (m_bGaveUp)
            Do('e');
        LetGo();
        m_bDone = true;
    }
    void Do(char c)
    {
        static const std::map<char, DWORD> s_buttons = { { 'l', MOUSEEVENTF_LEFTDOWN },
                                                         { 'L', MOUSEEVENTF_LEFTUP },
                                                         { 'r', MOUSEEVENTF_RIGHTDOWN },
                                                         { 'R', MOUSEEVENTF_RIGHTUP } };
        static const std::map<char, POINT> s_places = { { 's', { 200, 200 } },
                                                        { 'm', { 203, 200 } },
                                                        { 't', s_targetPoint },
                                                        { 'o', { 400, 500 } } };
        if (s_buttons.contains(c))
            return SendMouse(s_buttons.at(c));
        if (m_conditions.contains(c))
            return WaitFor(m_conditions.at(c));
        if (s_places.contains(c))
        {
            m_Mover.MoveTo(s_places.at(c));
            return WaitFor([] { return true; });
        }
        m_bControl = m_bControl || c == 'c';
        SendKey(c == 'c' ? VK_CONTROL : VK_ESCAPE, true);
        if (c == 'e')
            SendKey(VK_ESCAPE, false);
    }
    void WaitFor(const FCondition& condition)
    {
        const auto again = [this]
        {
            if (m_bControl)
                SendKey(VK_CONTROL, true);
        };
        m_bGaveUp = !m_Mover.WaitFor(condition, again);
    }

    const std::map<char, FCondition> m_conditions;
    CMover m_Mover;
    bool m_bControl = false;
    std::atomic<bool> m_bDone = false;
    std::atomic<bool> m_bGaveUp = false;
    std::thread m_thread;
};

class CTestWindow : public CWnd
{
public:
    explicit CTestWindow(const RECT& place)
    {
        CreateEx(WS_EX_TOPMOST, nullptr, "", WS_POPUP | WS_VISIBLE, place, nullptr, 0);
        UpdateWindow();
    }

    std::function<void()> m_onPress;  // either button

protected:
    // Cases come fast: a press may be the second of a double click.
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        constexpr UINT anPresses[] = { WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                                       WM_RBUTTONDBLCLK };
        if (std::ranges::find(anPresses, nMessage) == std::end(anPresses))
            return CWnd::WindowProc(nMessage, wParam, lParam);
        m_onPress();
        return 0;
    }
};

// Remembers what comes.
class CTestTarget : public COleDropTarget
{
public:
    // The usual answer is a move, with Control a copy, of data that are there.
    enum EManner
    {
        usual,
        refuses,
        refusesDrop,
        refusesTheLastOver,
        copiesInDropEx,
        scrolls,
        throwsAtOver,
        throwsAtDrop,
        destroysAtDrop,
        revokesAtOver
    };
    explicit CTestTarget(CWnd* pWindow = nullptr, EManner eManner = usual) : m_eManner(eManner)
    {
        Register(pWindow);
    }

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint) override
    {
        Log('E');
        return Answer(pDataObject, nKeys);
    }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint) override
    {
        Log('O');
        m_nKeys |= nKeys;
        if (m_eManner == throwsAtOver)
            AfxThrowMemoryException();
        if (m_eManner == revokesAtOver)
            Revoke();
        return Answer(pDataObject, nKeys);
    }
    DROPEFFECT OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT nList, CPoint) override
    {
        Log('X');
        m_nList = nList;
        return m_eManner == copiesInDropEx ? DROPEFFECT_COPY : static_cast<DROPEFFECT>(-1);
    }
    BOOL OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT, CPoint point) override
    {
        Log('D');
        m_point = point;
        m_bSame = IsBlock(CGlobalPtr(pDataObject->GetGlobalData(TestFormat())).get());
        if (m_eManner == throwsAtDrop)
            throw 1;
        if (m_eManner == destroysAtDrop)
            pWnd->DestroyWindow();
        return m_eManner != refusesDrop;
    }
    void OnDragLeave(CWnd*) override
    {
        Log('L');
        m_bOver = false;
    }
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override
    {
        m_bOver = true;
        return m_eManner == scrolls ? DROPEFFECT_SCROLL | DROPEFFECT_COPY : DROPEFFECT_NONE;
    }
    void Revoke() override
    {
        Log('R');
        COleDropTarget::Revoke();
    }

    std::string m_strLog;  // Enter, Over (a row of them once), eXtended drop, Drop, Leave, Revoke
    DWORD m_nKeys = 0;
    CPoint m_point;
    DROPEFFECT m_nList = 0;
    bool m_bSame = false;               // the block came to the byte
    std::atomic<bool> m_bOver = false;  // where the data are

private:
    void Log(char c)
    {
        if (!m_strLog.ends_with(c))
            m_strLog += c;
    }
    DROPEFFECT Answer(COleDataObject* pDataObject, DWORD nKeys) const
    {
        const bool bRefused = m_eManner == refuses || (m_eManner == refusesTheLastOver &&
                                                       (nKeys & (MK_LBUTTON | MK_RBUTTON)) == 0);
        if (bRefused || !pDataObject->IsDataAvailable(TestFormat()))
            return DROPEFFECT_NONE;
        return nKeys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
    }

    EManner m_eManner;
};

// Tells the hand how the drag goes.
class CTestSource : public COleDropSource
{
public:
    SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD nKeys) override
    {
        m_bGoing = true;
        return COleDropSource::QueryContinueDrag(bEscapePressed, nKeys);
    }
    SCODE GiveFeedback(DROPEFFECT nEffect) override
    {
        m_nShown = nEffect;
        return COleDropSource::GiveFeedback(nEffect);
    }

    std::atomic<bool> m_bGoing = false;
    std::atomic<DROPEFFECT> m_nShown = DROPEFFECT_NONE;
};
