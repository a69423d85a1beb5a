// Drags on the windows of one process, and what ends in between. Drags by hand, also between two,
// are tested with the control.
#include "ole_blocks.h"
#include "platform/win/ole_drop_source.h"
#include "platform/win/ole_drop_target.h"
#include "test_window.h"

#include <map>
#include <thread>

namespace
{
constexpr DROPEFFECT s_nNone = DROPEFFECT_NONE;
constexpr DROPEFFECT s_nCopy = DROPEFFECT_COPY;
constexpr DROPEFFECT s_nMove = DROPEFFECT_MOVE;
constexpr DROPEFFECT s_nBoth = s_nCopy | s_nMove;
constexpr int s_nMostCalls = 100;
constexpr CRect s_nowhere(0, 0, 0, 0);  // where a drag waits for nothing

// As far as this thread is told.
void Hold(int nKey, bool bDown)
{
    BYTE aKeys[256];
    GetKeyboardState(aKeys);
    aKeys[nKey] = bDown ? 0x80 : 0;
    SetKeyboardState(aKeys);
}

// Plays a script, a step each time that the drag asks whether it goes on:
//   t o   the mouse goes to the target, to no window
//   L R   left or right button up        r c   right button, Control down
//   e     Escape                         .     nothing
class CScriptedSource : public COleDropSource
{
public:
    explicit CScriptedSource(const char* pszScript) : m_pszNext(pszScript) {}

    SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD nKeys) override
    {
        const SCODE nResult = COleDropSource::QueryContinueDrag(bEscapePressed, nKeys);
        if (*m_pszNext != '\0')
            Do(*m_pszNext++);
        ::PostMessageA(nullptr, WM_KEYUP, 0, 0);  // after which it asks again
        return ++m_nCalls < s_nMostCalls ? nResult : DRAGDROP_S_CANCEL;
    }
    SCODE GiveFeedback(DROPEFFECT nEffect) override
    {
        const char c = "-cmb"[nEffect & s_nBoth];
        if (!m_strShown.ends_with(c))
            m_strShown += c;
        return COleDropSource::GiveFeedback(nEffect);
    }

    int m_nCalls = 0;
    std::string m_strShown;  // nothing (-), copy, move or both

private:
    static void Do(char c)
    {
        static const std::map<char, int> s_keys = {
            { 'L', VK_LBUTTON }, { 'R', VK_RBUTTON }, { 'r', VK_RBUTTON }, { 'c', VK_CONTROL }
        };
        if (s_keys.contains(c))
            Hold(s_keys.at(c), std::islower(c) != 0);
        else if (c == 't')
            SetCursorPos(610, 230);
        else if (c == 'o')
            SetCursorPos(400, 500);
        else if (c == 'e')
            ::PostMessageA(nullptr, WM_KEYDOWN, VK_ESCAPE, 1);
    }

    const char* m_pszNext;
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
        return m_eManner == copiesInDropEx ? s_nCopy : static_cast<DROPEFFECT>(-1);
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
    void OnDragLeave(CWnd*) override { Log('L'); }
    DROPEFFECT OnDragScroll(CWnd*, DWORD, CPoint) override
    {
        return m_eManner == scrolls ? DROPEFFECT_SCROLL | s_nCopy : s_nNone;
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
    bool m_bSame = false;  // the block came to the byte

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
            return s_nNone;
        return nKeys & MK_CONTROL ? s_nCopy : s_nMove;
    }

    EManner m_eManner;
};

class OleDrag : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(AfxOleInit());
        for (CWnd* pWnd : { &m_source, &m_target })
        {
            const CPoint corner = pWnd == &m_source ? CPoint(100, 100) : CPoint(500, 150);
            pWnd->CreateEx(WS_EX_TOPMOST, nullptr, "", WS_POPUP | WS_VISIBLE,
                           CRect(corner, CSize(200, 200)), nullptr, 0);
        }
        m_source.SetForegroundWindow();
        PumpFor(100);  // late news of the focus would cancel a drag
    }
    // The button goes down over the source, and a drag begins.
    static DROPEFFECT Drag(CScriptedSource& source, int nButton, DROPEFFECT nAllowed,
                           const CRect& start = s_nowhere)
    {
        BYTE aKeys[256] = {};
        aKeys[nButton] = 0x80;
        SetCursorPos(200, 200);
        PumpFor(0);
        SetKeyboardState(aKeys);
        COleDataSource data;
        data.CacheGlobalData(TestFormat(), MakeBlock());
        const DROPEFFECT nResult = data.DoDragDrop(nAllowed, start, &source);
        Hold(nButton, false);
        data.GetIDataObject(TRUE);
        EXPECT_EQ(data.GetIDataObject(FALSE)->Release(), 1U) << "somebody still holds it";
        return nResult;
    }

    CWnd m_source;
    CWnd m_target;
};

struct CDragCase
{
    const char* pszName;
    const char* pszScript;  // see CScriptedSource, as for what is shown
    CTestTarget::EManner eManner;
    DROPEFFECT nAllowed;
    const char* pszShown;
    DROPEFFECT nResult;
    const char* pszLog;  // see CTestTarget
    int nButton = VK_LBUTTON;
};

using T = CTestTarget;

const CDragCase s_aDragCases[] = {
    { "Moved", "t.L", T::usual, s_nBoth, "-m", s_nMove, "EOXD" },
    { "Copied", "t.c.L", T::usual, s_nBoth, "-mc", s_nCopy, "EOXD" },
    { "Cancelled", "t.e", T::usual, s_nBoth, "-m", s_nNone, "EOL" },
    { "CancelledByTheOtherButton", "t.r", T::usual, s_nBoth, "-m", s_nNone, "EOL" },
    { "WithTheRightButton", "t.R", T::usual, s_nBoth, "-m", s_nMove, "EOXD", VK_RBUTTON },
    { "DroppedNowhere", "t.oL", T::usual, s_nBoth, "-m-", s_nNone, "EOL" },
    { "Refused", "t.L", T::refuses, s_nBoth, "-", s_nNone, "EOL" },
    { "RefusedAtTheEnd", "t.L", T::refusesTheLastOver, s_nBoth, "-m", s_nNone, "EOXL" },
    { "RefusedAtTheDrop", "t.L", T::refusesDrop, s_nBoth, "-m", s_nNone, "EOXD" },
    { "MoveOfWhatMayBeCopied", "t.L", T::usual, s_nCopy, "-c", s_nCopy, "EOXD" },
    { "CopyOfWhatMayBeMoved", "t.c.L", T::usual, s_nMove, "-m-", s_nNone, "EOL" },
    { "ExtendedDrop", "t.L", T::copiesInDropEx, s_nBoth, "-m", s_nCopy, "EOX" },
    { "Scrolling", "t.L", T::scrolls, s_nBoth, "-c", s_nMove, "OXD" },
    { "OverThrows", "t.L", T::throwsAtOver, s_nBoth, "-m-", s_nNone, "EOL" },
    { "DropThrows", "t.L", T::throwsAtDrop, s_nBoth, "-m", s_nNone, "EOXD" },
    { "RevokedInTheDrag", "t.L", T::revokesAtOver, s_nBoth, "-m-", s_nNone, "EOR" },
    { "WindowGoesInTheDrop", "t.L", T::destroysAtDrop, s_nBoth, "-m", s_nMove, "EOXDR" },
};

TEST_F(OleDrag, GoesAsTheHandAndTheTargetSay)
{
    for (const CDragCase& expected : s_aDragCases)
    {
        SCOPED_TRACE(expected.pszName);
        CTestTarget target(&m_target, expected.eManner);
        CScriptedSource source(expected.pszScript);
        EXPECT_EQ(Drag(source, expected.nButton, expected.nAllowed), expected.nResult);
        EXPECT_TRUE(source.m_strShown.starts_with(expected.pszShown)) << source.m_strShown;
        EXPECT_LT(source.m_nCalls, s_nMostCalls);
        EXPECT_EQ(target.m_strLog, expected.pszLog);
        if (target.m_strLog.find('D') == std::string::npos)
            continue;
        EXPECT_TRUE(target.m_bSame);
        EXPECT_EQ(target.m_point, CPoint(110, 80));
        EXPECT_EQ(target.m_nKeys & MK_RBUTTON, expected.nButton == VK_RBUTTON ? MK_RBUTTON : 0U);
        EXPECT_EQ(target.m_nList, expected.nAllowed);
    }
}

// The delay in milliseconds, what a hand does meanwhile, and whether a drag begins then.
TEST_F(OleDrag, BeginsWhereItMay)
{
    const CRect around(190, 190, 210, 210);
    using CAct = std::function<void()>;
    const std::tuple<const char*, CRect, CAct, bool> aCases[] = {
        { "9000", s_nowhere, [] {}, true },
        { "9000", CRect(200, 200, 201, 201), [] { SetCursorPos(203, 200); }, true },
        { "100", around, [] {}, true },
        { "9000", around, [] { SendMouse(MOUSEEVENTF_LEFTUP); }, false },
        { "9000", around, [] { SendKey(VK_ESCAPE, true); }, false },
    };
    for (const auto& row : aCases)
    {
        SCOPED_TRACE(&row - aCases);
        const auto& [pszDelay, start, act, bGoes] = row;
        WriteProfileStringA("windows", "DragDelay", pszDelay);
        CScriptedSource source("e");
        const DWORD nBegin = GetTickCount();
        std::thread hand(
            [&]
            {
                Sleep(200);
                act();
            });
        EXPECT_EQ(Drag(source, VK_LBUTTON, s_nMove, start), s_nNone);
        EXPECT_LT(GetTickCount() - nBegin, 4000U);
        hand.join();
        EXPECT_EQ(source.m_nCalls > 0, bGoes);
        EXPECT_EQ(::GetCapture(), nullptr);
    }
    SendKey(VK_ESCAPE, false);
    WriteProfileStringA("windows", "DragDelay", nullptr);
    COleDataSource source;  // no button is held
    EXPECT_EQ(source.DoDragDrop(), s_nNone);
}

TEST_F(OleDrag, TargetsComeAndGo)
{
    CTestTarget target;
    CTestTarget other;
    EXPECT_TRUE(target.Register(&m_target));
    EXPECT_FALSE(target.Register(&m_source));  // it has a window
    EXPECT_FALSE(other.Register(&m_target));   // which has a target
    target.Revoke();
    target.Revoke();
    EXPECT_TRUE(other.Register(&m_target));
    m_target.DestroyWindow();
    EXPECT_EQ(other.m_strLog, "R");
    EXPECT_TRUE(other.Register(&m_source));  // again, elsewhere
    other.Revoke();
    {
        CTestTarget shortLived(&m_source);
        EXPECT_FALSE(other.Register(&m_source));
    }
    EXPECT_EQ(RevokeDragDrop(m_source), DRAGDROP_E_NOTREGISTERED);
}

TEST_F(OleDrag, RoundsLeaveNothingBehind)
{
    // No data are taken from the clipboard: Wine forgets blocks of its own then.
    const auto useClipboard = []
    {
        auto* pSource = new COleDataSource;
        pSource->CacheGlobalData(TestFormat(), MakeBlock());
        pSource->SetClipboard();
        COleDataObject object;
        ASSERT_TRUE(object.AttachClipboard());
        EXPECT_TRUE(object.IsDataAvailable(TestFormat()));
        COleDataSource::FlushClipboard();
    };
    const auto drag = [&]
    {
        CTestTarget target(&m_target);
        CScriptedSource source("t.L");
        EXPECT_EQ(Drag(source, VK_LBUTTON, s_nMove), s_nMove);
        EXPECT_TRUE(target.m_bSame);
    };
    ExpectNothingLeft(1000, useClipboard);
    ExpectNothingLeft(100, drag);
}
}  // namespace
