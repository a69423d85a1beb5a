// The same scripts in the window in memory and in a real one give the same states.
#include <gtest/gtest.h>

#include <algorithm>

#include "control/gesture_cases.h"
#include "control/random_script.h"
#include "control/win32/real_control.h"

namespace
{

constexpr unsigned s_nScripts = 300;

using CStates = std::vector<std::string>;

CStates PlayReal(const char* pszText, CSize size, const std::vector<CScriptEvent>& events)
{
    CRealControl control(pszText, size);
    CStates states;
    auto next = events.begin();
    CScriptPlayer(
        control, [&] { return next != events.end() ? std::optional(*next++) : std::nullopt; },
        [&](const std::string& strState) { states.push_back(strState); })
        .Play();
    return states;
}

void ExpectSame(const char* pszText, CSize size, const std::string& strScript)
{
    CControlDriver driver(pszText, size);
    const CStates memory = driver.Play(strScript);
    const CStates real = PlayReal(pszText, size, driver.m_Events);
    EXPECT_EQ(memory.size(), real.size()) << strScript;
    const auto [inMemory, inReal] = std::ranges::mismatch(memory, real);
    if (inMemory != memory.end() && inReal != real.end())
    {
        EXPECT_EQ(*inMemory, *inReal) << "after event " << inMemory - memory.begin() << " of\n"
                                      << strScript;
    }
}

TEST(SameStates, OfGestures)
{
    for (const bool bDrops : { false, true })
    {
        const CBoxedPlaceholders boxed(bDrops);
        for (const CGestureCase& one : bDrops ? DropCases() : GestureCases())
            ExpectSame(one.pszText, CSize(300, 200), one.pszScript);
    }
}

TEST(SameStates, OfRandomScripts)
{
    for (unsigned nSeed = 0; nSeed < s_nScripts && !HasFailure(); nSeed++)
    {
        SCOPED_TRACE("seed " + std::to_string(nSeed));
        const CRandomScript script = MakeRandomScript(nSeed);
        const CBoxedPlaceholders boxed(script.bBoxed);
        ExpectSame(script.pszText, script.size, script.strLines);
    }
}

}  // namespace
