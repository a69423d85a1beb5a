// The same scripts in the window in memory and in a real one give the same states.
#include <gtest/gtest.h>

#include <optional>

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
    size_t nNext = 0;
    CScriptPlayer(
        control,
        [&]() -> std::optional<CScriptEvent>
        { return nNext < events.size() ? std::optional(events[nNext++]) : std::nullopt; },
        [&](const std::string& strState) { states.push_back(strState); })
        .Play();
    return states;
}

// False, and the first difference told.
bool Same(const CStates& memory, const CStates& real, const std::string& strScript)
{
    for (size_t i = 0; i < std::max(memory.size(), real.size()); i++)
    {
        const std::string strMemory = i < memory.size() ? memory[i] : "(no state)";
        const std::string strReal = i < real.size() ? real[i] : "(no state)";
        EXPECT_EQ(strMemory, strReal) << "after event " << i << " of\n" << strScript;
        if (strMemory != strReal)
            return false;
    }
    return true;
}

TEST(SameStates, OfGestures)
{
    for (const auto cases :
         { MouseCases(), KeyCases(), EditorCases(), TransferCases(), DropCases() })
    {
        std::optional<CBoxedPlaceholders> boxed;
        if (cases.data() == DropCases().data())
            boxed.emplace();
        for (const CGestureCase& one : cases)
        {
            CControlDriver driver(one.pszText);
            const CStates memory = driver.Play(one.pszScript);
            Same(memory, PlayReal(one.pszText, CSize(300, 200), driver.m_Events), one.pszScript);
        }
    }
}

TEST(SameStates, OfRandomScripts)
{
    int nDifferent = 0;
    for (unsigned nSeed = 0; nSeed < s_nScripts && nDifferent < 5; nSeed++)
    {
        const CRandomScript script = MakeRandomScript(nSeed);
        std::optional<CBoxedPlaceholders> boxed;
        if (script.bBoxed)
            boxed.emplace();
        const CSize size(script.nWidth, script.nHeight);
        const std::string strScript = ScriptText(script.events);
        CControlDriver driver(script.pszText, size);
        const CStates memory = driver.Play(strScript);
        if (!Same(memory, PlayReal(script.pszText, size, script.events),
                  "seed " + std::to_string(nSeed) + ", " + script.pszText + "\n" + strScript))
            nDifferent++;
    }
}

}  // namespace
