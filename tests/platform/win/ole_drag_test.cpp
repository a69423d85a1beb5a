// Drags by hand on the windows of one process, and what ends in between. Drags between two, and
// their clipboard, are tested with the control.
#include "ole_desk.h"
#include "test_window.h"

namespace
{
constexpr DROPEFFECT s_nNone = DROPEFFECT_NONE;
constexpr DROPEFFECT s_nCopy = DROPEFFECT_COPY;
constexpr DROPEFFECT s_nMove = DROPEFFECT_MOVE;
constexpr DROPEFFECT s_nBoth = s_nCopy | s_nMove;
constexpr DROPEFFECT s_nAny = 99;

class OleDrag : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(AfxOleInit());
        m_source.SetForegroundWindow();
        PumpUntil([] { return false; }, 100);  // late news of the focus would cancel a drag
    }

    CTestWindow m_source{ s_sourcePlace };
    CTestWindow m_target{ s_targetPlace };
};

// A drag out of the window, and what comes of it.
struct CDragged
{
    explicit CDragged(CTestWindow& window, DROPEFFECT nAllowed = s_nBoth, LPCRECT pStart = nullptr)
    {
        data.CacheGlobalData(TestFormat(), MakeBlock());
        window.m_onPress = [=, this]
        {
            nResult = data.DoDragDrop(nAllowed, pStart, &source);
            bEnded = true;
        };
    }
    // False if the hand had to give up.
    bool Play(std::string_view script, const CHand::FCondition& isThere,
              const CHand::FCondition& isAnswered)
    {
        CHand hand(
            script, [this] { return source.m_bGoing.load(); }, isThere, isAnswered);
        return PumpUntil([&] { return bEnded && hand.IsDone(); }) && !hand.GaveUp();
    }

    COleDataSource data;
    CTestSource source;
    DROPEFFECT nResult = s_nAny;
    std::atomic<bool> bEnded = false;
};

struct SDragCase
{
    const char* pszName;
    const char* pszScript;  // see CHand
    CTestTarget::EManner eManner;
    DROPEFFECT nAllowed;
    DROPEFFECT nShown;  // at the target, before the end
    DROPEFFECT nResult;
    const char* pszLog;  // see CTestTarget
};

using T = CTestTarget;

const SDragCase s_aDragCases[] = {
    { "Moved", "slm?t.L", T::usual, s_nBoth, s_nMove, s_nMove, "EOXD" },
    { "Copied", "slm?t!c.cL", T::usual, s_nBoth, s_nCopy, s_nCopy, "EOXD" },
    { "Cancelled", "slm?t.e", T::usual, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "CancelledByTheOtherButton", "slm?t.r", T::usual, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "WithTheRightButton", "srm?t.R", T::usual, s_nBoth, s_nMove, s_nMove, "EOXD" },
    { "DroppedNowhere", "slm?t.oL", T::usual, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "Refused", "slm?t.L", T::refuses, s_nBoth, s_nNone, s_nNone, "EOL" },
    { "RefusedAtTheEnd", "slm?t.L", T::refusesTheLastOver, s_nBoth, s_nMove, s_nNone, "EOXL" },
    { "RefusedAtTheDrop", "slm?t.L", T::refusesDrop, s_nBoth, s_nMove, s_nNone, "EOXD" },
    { "MoveOfWhatMayBeCopied", "slm?t.L", T::usual, s_nCopy, s_nCopy, s_nCopy, "EOXD" },
    { "CopyOfWhatMayBeMoved", "slm?t!c.cL", T::usual, s_nMove, s_nNone, s_nNone, "EOL" },
    { "ExtendedDrop", "slm?t.L", T::copiesInDropEx, s_nBoth, s_nMove, s_nCopy, "EOX" },
    { "Scrolling", "slm?t.L", T::scrolls, s_nBoth, s_nCopy, s_nMove, "OXD" },
    { "OverThrows", "slm?t.L", T::throwsAtOver, s_nBoth, s_nNone, s_nNone, "EOL" },
    { "DropThrows", "slm?t.L", T::throwsAtDrop, s_nBoth, s_nMove, s_nNone, "EOXD" },
    { "RevokedInTheDrag", "slm?t.L", T::revokesAtOver, s_nBoth, s_nAny, s_nNone, "EOR" },
    { "WindowGoesInTheDrop", "slm?t.L", T::destroysAtDrop, s_nBoth, s_nMove, s_nMove, "EOXDR" },
};

TEST_F(OleDrag, GoesAsTheHandAndTheTargetSay)
{
    for (const SDragCase& expected : s_aDragCases)
    {
        SCOPED_TRACE(expected.pszName);
        CDragged dragged(m_source, expected.nAllowed);
        CTestTarget target(&m_target, expected.eManner);
        const auto isThere = [&]
        {
            return target.m_bOver.load();
        };
        const auto isAnswered = [&]
        {
            const DROPEFFECT nShown = dragged.source.m_nShown & ~DROPEFFECT_SCROLL;
            return isThere() && (expected.nShown == s_nAny || expected.nShown == nShown);
        };
        EXPECT_TRUE(dragged.Play(expected.pszScript, isThere, isAnswered));
        EXPECT_EQ(dragged.nResult, expected.nResult);
        EXPECT_EQ(target.m_strLog, expected.pszLog);
        if (target.m_strLog.find('D') == std::string::npos)
            continue;
        EXPECT_TRUE(target.m_bSame);
        EXPECT_EQ(target.m_point, CPoint(110, 80));
        EXPECT_EQ(target.m_nKeys & MK_RBUTTON, expected.pszScript[1] == 'r' ? MK_RBUTTON : 0U);
        EXPECT_EQ(target.m_nList, expected.nAllowed);
    }
}

TEST_F(OleDrag, BeginsWhereItMay)
{
    const struct
    {
        const char* pszScript;
        const char* pszDelay;  // milliseconds
        CRect start;
        bool bGoes;
    } aCases[] = {
        { "sl?e", "9000", CRect(0, 0, 0, 0), true },
        { "slm?e", "9000", CRect(200, 200, 201, 201), true },
        { "sl?e", "100", CRect(190, 190, 210, 210), true },
        { "slL.", "9000", CRect(190, 190, 210, 210), false },
        { "sle.", "9000", CRect(190, 190, 210, 210), false },
    };
    for (const auto& expected : aCases)
    {
        WriteProfileStringA("windows", "DragDelay", expected.pszDelay);
        CDragged dragged(m_source, s_nMove, expected.start);
        EXPECT_TRUE(
            dragged.Play(expected.pszScript, nullptr, [&] { return dragged.bEnded.load(); }));
        EXPECT_EQ(dragged.source.m_bGoing, expected.bGoes);
        EXPECT_EQ(dragged.nResult, s_nNone);
        EXPECT_EQ(::GetCapture(), nullptr);
    }
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

// A drag that needs no hand: it is dropped where the cursor is.
class CShortDrag : public COleDropSource
{
public:
    BOOL OnBeginDrag(CWnd*) override { return TRUE; }
    SCODE QueryContinueDrag(BOOL, DWORD) override
    {
        return --m_nSteps > 0 ? S_OK : DRAGDROP_S_DROP;
    }

private:
    int m_nSteps = 3;
};

// No data are taken from there: Wine forgets blocks of its own then.
void ClipboardRound(CTestWindow&)
{
    auto* pSource = new COleDataSource;
    pSource->CacheGlobalData(TestFormat(), MakeBlock());
    pSource->SetClipboard();
    COleDataObject object;
    ASSERT_TRUE(object.AttachClipboard());
    EXPECT_TRUE(object.IsDataAvailable(TestFormat()));
    COleDataSource::FlushClipboard();
}

void DragRound(CTestWindow& window)
{
    CTestTarget target(&window);
    COleDataSource dragged;
    dragged.CacheGlobalData(TestFormat(), MakeBlock());
    CShortDrag drag;
    for (int i = 0; i < 3; ++i)
        window.PostMessage(WM_KEYUP);  // an event of the drag
    EXPECT_EQ(dragged.DoDragDrop(s_nMove, nullptr, &drag), s_nMove);
    EXPECT_TRUE(target.m_bSame);
    dragged.GetIDataObject(TRUE);
    EXPECT_EQ(dragged.GetIDataObject(FALSE)->Release(), 1U);
}

TEST_F(OleDrag, RoundsLeaveNothingBehind)
{
    SetCursorPos(s_targetPoint.x, s_targetPoint.y);
    for (const auto pfnRound : { ClipboardRound, DragRound })
    {
        ExpectNothingLeft(1000, [&] { pfnRound(m_target); });
    }
}
}  // namespace
