// Drags by hand: on one process's windows and between two processes, and what ends in between.
#include <gtest/gtest.h>

#include "ole_desk.h"
#include "platform/base/exception.h"
#include "platform/base/win32/com_pointer.h"
#include "platform/win/ole_data_object.h"
#include "platform/win/ole_data_source.h"
#include "platform/win/ole_init.h"

#include <memory>

namespace
{
constexpr SIZE_T s_nSize = 3001;
constexpr DROPEFFECT s_nNone = DROPEFFECT_NONE;
constexpr DROPEFFECT s_nCopy = DROPEFFECT_COPY;
constexpr DROPEFFECT s_nMove = DROPEFFECT_MOVE;
constexpr DROPEFFECT s_nAny = 99;

class OleDrag : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(AfxOleInit()); }
};

// A window to drag from, and what comes of it.
struct CDragged
{
    explicit CDragged(DROPEFFECT nAllowed = s_nCopy | s_nMove)
    {
        data.CacheGlobalData(TestFormat(), MakeBlock(s_nSize));
        window.m_onPress = [=, this]
        {
            nResult = data.DoDragDrop(nAllowed, nullptr, &source);
            bEnded = true;
        };
    }
    // False if the hand had to give up.
    bool Play(std::string_view script, const CHand::FCondition& isThere,
              const CHand::FCondition& isAnswered)
    {
        const auto isGoing = [this]
        {
            return source.m_bGoing.load();
        };
        CHand hand(script, isGoing, isThere, isAnswered);
        return PumpUntil([&] { return bEnded && hand.IsDone(); }) && !hand.GaveUp();
    }

    COleDataSource data;
    CTestSource source;
    CTestWindow window{ s_sourcePlace };
    DROPEFFECT nResult = s_nAny;
    bool bEnded = false;
};

// A drop target and its window, which a handler may end.
struct CDropped
{
    CDropped()
    {
        target->m_nSize = s_nSize;
        EXPECT_TRUE(target->Register(window.get()));
    }

    std::unique_ptr<CTestWindow> window = std::make_unique<CTestWindow>(s_targetPlace);
    std::unique_ptr<CTestTarget> target = std::make_unique<CTestTarget>();
};

// What the target does otherwise than usual.
void Nothing(CDropped&) {}
void Refuse(CDropped& dropped)
{
    dropped.target->m_answer = [](DWORD)
    {
        return s_nNone;
    };
}
void RefuseDrop(CDropped& dropped)
{
    dropped.target->m_take = []
    {
        return FALSE;
    };
}
void CopyInDropEx(CDropped& dropped)
{
    dropped.target->m_nDone = s_nCopy;
}
void Scroll(CDropped& dropped)
{
    dropped.target->m_nScroll = DROPEFFECT_SCROLL | s_nCopy;
}
void ThrowAtOver(CDropped& dropped)
{
    dropped.target->m_answer = [&target = *dropped.target](DWORD)
    {
        if (target.m_nAsked > 1)
            AfxThrowMemoryException();
        return s_nMove;
    };
}
void ThrowAtDrop(CDropped& dropped)
{
    dropped.target->m_take = []() -> BOOL
    {
        throw 1;
    };
}
void DestroyAtDrop(CDropped& dropped)
{
    dropped.target->m_take = [&dropped]
    {
        return dropped.window->DestroyWindow();
    };
}
void RevokeAtOver(CDropped& dropped)
{
    dropped.target->m_answer = [&target = *dropped.target](DWORD)
    {
        if (target.m_nAsked > 1)
            target.Revoke();
        return s_nMove;
    };
}

struct SDragCase
{
    const char* pszName;
    const char* pszScript;  // see CHand
    void (*pfnArrange)(CDropped& dropped);
    DROPEFFECT nAllowed;
    DROPEFFECT nShown;  // at the target, before the end
    DROPEFFECT nResult;
    const char* pszLog;  // see CTestTarget
};

constexpr DROPEFFECT s_nBoth = s_nCopy | s_nMove;

const SDragCase s_aDragCases[] = {
    { "Moved", "slm?t.L", Nothing, s_nBoth, s_nMove, s_nMove, "EOXD" },
    { "Copied", "slm?t!c.L", Nothing, s_nBoth, s_nCopy, s_nCopy, "EOXD" },
    { "Cancelled", "slm?t.e", Nothing, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "CancelledByTheOtherButton", "slm?t.r", Nothing, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "WithTheRightButton", "srm?t.R", Nothing, s_nBoth, s_nMove, s_nMove, "EOXD" },
    { "DroppedNowhere", "slm?t.oL", Nothing, s_nBoth, s_nMove, s_nNone, "EOL" },
    { "Refused", "slm?t.L", Refuse, s_nBoth, s_nNone, s_nNone, "EOL" },
    { "RefusedAtTheDrop", "slm?t.L", RefuseDrop, s_nBoth, s_nMove, s_nNone, "EOXD" },
    { "MoveOfWhatMayBeCopied", "slm?t.L", Nothing, s_nCopy, s_nCopy, s_nCopy, "EOXD" },
    { "CopyOfWhatMayBeMoved", "slm?t!c.L", Nothing, s_nMove, s_nNone, s_nNone, "EOL" },
    { "ExtendedDrop", "slm?t.L", CopyInDropEx, s_nBoth, s_nMove, s_nCopy, "EOX" },
    { "Scrolling", "slm?t.L", Scroll, s_nBoth, s_nCopy, s_nMove, "OXD" },
    { "OverThrows", "slm?t.L", ThrowAtOver, s_nBoth, s_nNone, s_nNone, "EOL" },
    { "DropThrows", "slm?t.L", ThrowAtDrop, s_nBoth, s_nMove, s_nNone, "EOXD" },
    { "WindowGoesInTheDrop", "slm?t.L", DestroyAtDrop, s_nBoth, s_nMove, s_nMove, "EOXDR" },
    { "RevokedInTheDrag", "slm?t.L", RevokeAtOver, s_nBoth, s_nAny, s_nNone, "EOR" },
};

TEST_F(OleDrag, GoesAsTheHandAndTheTargetSay)
{
    for (const SDragCase& expected : s_aDragCases)
    {
        SCOPED_TRACE(expected.pszName);
        CDragged dragged(expected.nAllowed);
        CDropped dropped;
        expected.pfnArrange(dropped);
        const auto isThere = [&]
        {
            return dropped.target->m_nAsked > 0;
        };
        const auto isAnswered = [&]
        {
            return isThere() && (expected.nShown == s_nAny ||
                                 (dragged.source.m_nShown & ~DROPEFFECT_SCROLL) == expected.nShown);
        };
        EXPECT_TRUE(dragged.Play(expected.pszScript, isThere, isAnswered));
        const CTestTarget& target = *dropped.target;
        EXPECT_EQ(dragged.nResult, expected.nResult);
        EXPECT_EQ(target.m_strLog, expected.pszLog);
        if (target.m_strLog.find('D') != std::string::npos)
        {
            EXPECT_TRUE(target.m_bSame);
            EXPECT_EQ(target.m_point, CPoint(110, 80));
            EXPECT_EQ(target.m_nKeys & MK_RBUTTON, expected.pszScript[1] == 'r' ? MK_RBUTTON : 0U);
            EXPECT_EQ(target.m_nList, expected.nAllowed);
        }
    }
}

TEST_F(OleDrag, BeginsWhereItMay)
{
    const struct
    {
        const char* pszScript;
        CRect start;
        bool bGoes;
    } aCases[] = {
        { "sl?e", CRect(0, 0, 0, 0), true },          // at once
        { "sl?e", CRect(190, 190, 210, 210), true },  // by rest
        { "slm?e", CRect(201, 200, 202, 201), true }, { "slL", CRect(190, 190, 210, 210), false },
        { "sle", CRect(190, 190, 210, 210), false },
    };
    for (const auto& expected : aCases)
    {
        CDragged dragged;
        dragged.window.m_onPress = [&]
        {
            dragged.nResult = dragged.data.DoDragDrop(s_nMove, expected.start, &dragged.source);
            dragged.bEnded = true;
        };
        EXPECT_TRUE(dragged.Play(expected.pszScript, nullptr, nullptr));
        EXPECT_EQ(dragged.source.m_bGoing, expected.bGoes);
        EXPECT_EQ(dragged.nResult, s_nNone);
    }
    COleDataSource source;  // no button is held
    EXPECT_EQ(source.DoDragDrop(), s_nNone);
}

TEST_F(OleDrag, GoesToAnotherProcess)
{
    const struct
    {
        const char* pszRole;
        const char* pszScript;
        DROPEFFECT nShown;
        DROPEFFECT nResult;
        const char* pszLine;
    } aCases[] = {
        { "target", "slm?t.L", s_nMove, s_nMove, "EOXD same 110 80" },
        { "target", "slm?t!c.L", s_nCopy, s_nCopy, "EOXD same 110 80" },
        { "target", "slm?t.e", s_nMove, s_nNone, "EOL none 0 0" },
        { "refuse", "slm?t.L", s_nNone, s_nNone, "EOL none 0 0" },
    };
    for (const auto& expected : aCases)
    {
        CPartner partner("ole_partner.exe", std::string(expected.pszRole) + " 3001");
        ASSERT_EQ(partner.ReadLine(), "ready");
        CDragged dragged;
        const auto isThere = [&]
        {
            return dragged.source.m_nShown == s_nMove;
        };
        const auto isAnswered = [&]
        {
            return dragged.source.m_nShown == expected.nShown;
        };
        EXPECT_TRUE(dragged.Play(expected.pszScript, isThere, isAnswered));
        EXPECT_EQ(dragged.nResult, expected.nResult);
        EXPECT_EQ(partner.Finish(), 0U);
        EXPECT_EQ(partner.ReadLine(), expected.pszLine);
    }
}

TEST_F(OleDrag, ComesFromAnotherProcess)
{
    CPartner partner("ole_partner.exe", "source 3001");
    ASSERT_EQ(partner.ReadLine(), "ready");
    CDropped dropped;
    const auto isThere = [&]
    {
        return dropped.target->m_nAsked > 0;
    };
    CHand hand("slmt!L", nullptr, isThere, nullptr);
    EXPECT_TRUE(PumpUntil([&] { return hand.IsDone(); }));
    EXPECT_EQ(partner.ReadLine(), "2");
    EXPECT_EQ(dropped.target->m_strLog, "EOXD");
    EXPECT_TRUE(dropped.target->m_bSame);
}

TEST_F(OleDrag, TargetsComeAndGo)
{
    CDropped dropped;
    CTestTarget other;
    CTestWindow second(s_sourcePlace);
    EXPECT_FALSE(dropped.target->Register(&second));  // it has a window
    EXPECT_FALSE(other.Register(dropped.window.get()));
    EXPECT_FALSE(other.Register(nullptr));
    dropped.target->Revoke();
    dropped.target->Revoke();
    EXPECT_TRUE(other.Register(dropped.window.get()));
    dropped.window->DestroyWindow();
    EXPECT_EQ(other.m_strLog, "R");
    EXPECT_TRUE(other.Register(&second));  // again, elsewhere
    dropped.window.reset();
    {
        CTestTarget shortLived;
        other.Revoke();
        EXPECT_TRUE(shortLived.Register(&second));
    }
    EXPECT_EQ(RevokeDragDrop(second), DRAGDROP_E_NOTREGISTERED);
}

// What this process holds.
struct SHoldings
{
    DWORD nHandles = 0;
    size_t nBlocks = 0;

    static SHoldings Count()
    {
        SHoldings holdings;
        GetProcessHandleCount(GetCurrentProcess(), &holdings.nHandles);
        HANDLE aHeaps[32];
        const DWORD nHeaps = std::min<DWORD>(GetProcessHeaps(32, aHeaps), 32);
        for (DWORD i = 0; i < nHeaps; ++i)
        {
            PROCESS_HEAP_ENTRY entry{};
            while (HeapWalk(aHeaps[i], &entry))
                holdings.nBlocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        }
        return holdings;
    }
};

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
    pSource->CacheGlobalData(TestFormat(), MakeBlock(s_nSize));
    pSource->SetClipboard();
    COleDataObject object;
    ASSERT_TRUE(object.AttachClipboard());
    EXPECT_TRUE(object.IsDataAvailable(TestFormat()));
    COleDataSource::FlushClipboard();
}

void DataRound(CTestWindow&)
{
    COleDataSource source;
    source.CacheGlobalData(TestFormat(), MakeBlock(s_nSize));
    COleDataObject object;
    object.Attach(source.GetIDataObject(TRUE));
    EXPECT_TRUE(IsBlock(CGlobalPtr(object.GetGlobalData(TestFormat())).get(), s_nSize));
    object.BeginEnumFormats();
}

void TargetRound(CTestWindow& window)
{
    CTestTarget target;
    EXPECT_TRUE(target.Register(&window));
}

void DragRound(CTestWindow& window)
{
    CTestTarget target;
    EXPECT_TRUE(target.Register(&window));
    target.m_nSize = s_nSize;
    COleDataSource dragged;
    dragged.CacheGlobalData(TestFormat(), MakeBlock(s_nSize));
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
    CTestWindow window(s_targetPlace);
    SetCursorPos(s_targetPoint.x, s_targetPoint.y);
    for (const auto pfnRound : { ClipboardRound, DataRound, TargetRound, DragRound })
    {
        for (int i = 0; i < 20; ++i)
            pfnRound(window);
        const SHoldings before = SHoldings::Count();
        for (int i = 0; i < 1000 && !HasFailure(); ++i)
            pfnRound(window);
        const SHoldings after = SHoldings::Count();
        EXPECT_LE(after.nHandles, before.nHandles + 5);
        EXPECT_LE(after.nBlocks, before.nBlocks + 50);
    }
}
}  // namespace
