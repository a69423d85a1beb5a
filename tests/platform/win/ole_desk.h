// What the tests of OLE work with: blocks of known content, a hand on mouse and keyboard, and
// windows to drag between.
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
constexpr SIZE_T s_nBlock = 3001;
HGLOBAL MakeBlock(SIZE_T nSize = s_nBlock);
bool IsBlock(HGLOBAL hMemory, SIZE_T nSize = s_nBlock);
CLIPFORMAT TestFormat();

// The second process (ole_partner.cpp).
struct COlePartner : CPartner
{
    explicit COlePartner(const std::string& strArguments)
        : CPartner("ole_partner.exe", strArguments)
    {
    }
};

// Moves mouse and keys through the system's input queue, from a thread of its own, by a script:
//   l L r R  left or right button down and up    s t o  to the source, the target, nowhere
//   c        Control down                        e      Escape, pressed and let go
//   m        a bit aside                         ? ! .  waits for isGoing, isThere, isAnswered
// After 4 seconds it gives up with Escape. Whatever happens, it leaves nothing pressed.
class CHand
{
public:
    using FCondition = CMover::FCondition;
    CHand(std::string_view script, FCondition isGoing, FCondition isThere, FCondition isAnswered);
    ~CHand();

    bool IsDone() const { return m_bDone; }
    bool GaveUp() const { return m_bGaveUp; }

private:
    void Play(std::string_view script);
    void Do(char c);
    void Go(POINT to);
    void WaitFor(const FCondition& condition);

    FCondition m_isGoing;
    FCondition m_isThere;
    FCondition m_isAnswered;
    CMover m_Mover;
    bool m_bControl = false;
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
    // Cases come fast: a press may be the second of a double click.
    void OnLButtonDown(UINT, CPoint) { m_onPress(); }
    void OnLButtonDblClk(UINT, CPoint) { m_onPress(); }
    void OnRButtonDown(UINT, CPoint) { m_onPress(); }
    void OnRButtonDblClk(UINT, CPoint) { m_onPress(); }
    DECLARE_MESSAGE_MAP()
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
    explicit CTestTarget(CWnd* pWindow = nullptr, EManner eManner = usual);

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject*, DWORD nKeys, CPoint) override;
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD nKeys, CPoint) override;
    BOOL OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) override;
    DROPEFFECT OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint) override;
    void OnDragLeave(CWnd*) override;
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override;
    void Revoke() override;

    std::string m_strLog;  // Enter, Over (a row of them once), eXtended drop, Drop, Leave, Revoke
    DWORD m_nKeys = 0;
    CPoint m_point;
    DROPEFFECT m_nList = 0;
    bool m_bSame = false;               // the block came to the byte
    std::atomic<bool> m_bOver = false;  // where the data are

private:
    void Log(char c);
    DROPEFFECT Answer(COleDataObject* pDataObject, DWORD nKeys) const;

    EManner m_eManner;
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
