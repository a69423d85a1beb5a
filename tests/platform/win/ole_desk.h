// What the tests of OLE work with: blocks of known content, a hand with a script, and windows to
// drag between.
#pragma once

#include "desk.h"
#include "platform/win/message_map.h"
#include "platform/win/ole_drop_source.h"
#include "platform/win/ole_drop_target.h"
#include "platform/win/window.h"

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

// A block whose bytes tell its size; the caller's. And whether a block is that, to the byte.
HGLOBAL MakeBlock(SIZE_T nSize);
bool IsBlock(HGLOBAL hMemory, SIZE_T nSize);
CLIPFORMAT TestFormat();

// Moves mouse and keys through the system's input queue, from a thread of its own, by a script:
//   l L r R  left or right button down and up    s t o  to the source, the target, nowhere
//   c        Control down                        e      Escape, pressed and let go
//   m        a bit aside                         ? ! .  waits for isGoing, isThere, isAnswered
// After 4 seconds it gives up with Escape. Whatever happens, it leaves nothing pressed.
class CHand
{
public:
    using FCondition = std::function<bool()>;
    CHand(std::string_view script, FCondition isGoing, FCondition isThere, FCondition isAnswered);
    ~CHand() { m_thread.join(); }

    bool IsDone() const { return m_bDone; }
    bool GaveUp() const { return m_bGaveUp; }

private:
    void Play(std::string_view script);
    void Do(char c);
    void WaitFor(const FCondition& condition);

    FCondition m_isGoing;
    FCondition m_isThere;
    FCondition m_isAnswered;
    std::atomic<bool> m_bDone = false;
    std::atomic<bool> m_bGaveUp = false;
    std::thread m_thread;
};

// Where the windows stand, in screen coordinates, and where in them the hand acts.
constexpr RECT s_sourcePlace = { 100, 100, 300, 300 };
constexpr RECT s_targetPlace = { 500, 150, 700, 350 };
constexpr POINT s_sourcePoint = { 200, 200 };
constexpr POINT s_targetPoint = { 610, 230 };
constexpr POINT s_nowhere = { 400, 500 };

class CTestWindow : public CWnd
{
public:
    explicit CTestWindow(const RECT& place);

    std::function<void()> m_onPress;  // either button

protected:
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    DECLARE_MESSAGE_MAP()
};

// Remembers what comes.
class CTestTarget : public COleDropTarget
{
public:
    DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD nKeys, CPoint) override;
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD nKeys, CPoint) override;
    BOOL OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) override;
    DROPEFFECT OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint) override;
    void OnDragLeave(CWnd*) override { Log('L'); }
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override;
    void Revoke() override;

    // Move, with Control copy.
    static DROPEFFECT Usual(DWORD nKeys)
    {
        return nKeys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
    }

    std::function<DROPEFFECT(DWORD nKeys)> m_answer = Usual;
    std::function<BOOL()> m_take = []
    {
        return TRUE;
    };
    DROPEFFECT m_nDone = static_cast<DROPEFFECT>(-1);  // by OnDropEx
    DROPEFFECT m_nScroll = DROPEFFECT_NONE;
    SIZE_T m_nSize = 0;  // of the block that has to come

    std::string m_strLog;  // Enter, Over (a row of them once), eXtended drop, Drop, Leave, Revoke
    DWORD m_nKeys = 0;
    CPoint m_point;
    DROPEFFECT m_nDefault = 0;
    DROPEFFECT m_nList = 0;
    bool m_bSame = false;           // the block came to the byte
    std::atomic<int> m_nAsked = 0;  // where the data are

private:
    void Log(char c);
};

// Tells the hand how the drag goes.
class CTestSource : public COleDropSource
{
public:
    SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD nKeys) override;
    SCODE GiveFeedback(DROPEFFECT nEffect) override;

    std::atomic<bool> m_bGoing = false;
    std::atomic<DROPEFFECT> m_nShown = DROPEFFECT_NONE;
};
