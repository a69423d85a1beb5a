// Thousands of scripts by chance: what must always hold is checked after every event, and a script
// that breaks it is cut down to what is needed for that.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "control/control_driver.h"
#include "control/random_script.h"

namespace
{

constexpr unsigned s_nScripts = 4000;

// What the script breaks, or nothing.
std::string BreaksRule(const CRandomScript& script)
{
    std::optional<CBoxedPlaceholders> boxed;
    if (script.bBoxed)
        boxed.emplace();
    CControlDriver driver(script.pszText, CSize(script.nWidth, script.nHeight));
    std::string strBroken = BrokenRule(driver);
    size_t nNext = 0;
    const auto read = [&]() -> std::optional<CScriptEvent>
    {
        if (nNext == script.events.size() || !strBroken.empty())
            return std::nullopt;
        return script.events[nNext++];
    };
    const auto check = [&](const std::string&)
    {
        if (strBroken.empty())
            strBroken = BrokenRule(driver);
    };
    CScriptPlayer(driver.m_Scripted, read, check).Play();
    return strBroken;
}

void CutDown(CRandomScript& script)
{
    for (bool bCut = true; bCut;)
    {
        bCut = false;
        for (size_t i = 0; i < script.events.size(); i++)
        {
            CRandomScript shorter = script;
            shorter.events.erase(shorter.events.begin() + static_cast<long>(i));
            if (BreaksRule(shorter).empty())
                continue;
            script = std::move(shorter);
            bCut = true;
            i--;
        }
    }
}

TEST(RandomScripts, KeepTheRules)
{
    for (unsigned nSeed = 0; nSeed < s_nScripts; nSeed++)
    {
        CRandomScript script = MakeRandomScript(nSeed);
        if (BreaksRule(script).empty())
            continue;
        CutDown(script);
        FAIL() << BreaksRule(script) << "\nseed " << nSeed << ", " << script.pszText << ", "
               << script.nWidth << 'x' << script.nHeight << (script.bBoxed ? ", boxed" : "") << '\n'
               << ScriptText(script.events);
    }
}

TEST(RandomScripts, ReadBackAsTheyAreWritten)
{
    for (unsigned nSeed = 0; nSeed < 50; nSeed++)
    {
        for (const CScriptEvent& event : MakeRandomScript(nSeed).events)
        {
            const std::string strLine = ScriptEventText(event);
            const auto again = ParseScriptEvent(strLine);
            ASSERT_TRUE(again) << strLine;
            EXPECT_EQ(ScriptEventText(*again), strLine);
            EXPECT_EQ(again->bytes, event.bytes);
        }
    }
}

TEST(Scripts, LinesThatAreNoGestures)
{
    for (const char* pszLine : { "",
                                 "jump",
                                 "size",
                                 "size 5",
                                 "size 5 6 7",
                                 "size 5 x",
                                 "move 1 2 right",
                                 "press 1 2 left",
                                 "key",
                                 "key A",
                                 "key 65 ctrl ctrl",
                                 "key 99999999999",
                                 "paint 1",
                                 "readonly 2",
                                 "readonly",
                                 "clip",
                                 "clip 0",
                                 "clip 0G",
                                 "clip 00 11",
                                 "enter 1 2 shift",
                                 "wheel 1.5",
                                 "vscroll",
                                 "vscroll 1 2 3",
                                 "SIZE 1 2" })
        EXPECT_FALSE(ParseScriptEvent(pszLine)) << pszLine;
}

}  // namespace
