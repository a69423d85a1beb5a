// Thousands of scripts by chance: what must always hold is checked after every event.
#include <gtest/gtest.h>

#include <sstream>

#include "control/control_driver.h"
#include "control/random_script.h"

namespace
{

constexpr unsigned s_nScripts = 4000;

TEST(RandomScripts, KeepTheRules)
{
    for (unsigned nSeed = 0; nSeed < s_nScripts && !HasFailure(); nSeed++)
    {
        const CRandomScript script = MakeRandomScript(nSeed);
        const CBoxedPlaceholders boxed(script.bBoxed);
        CControlDriver driver(script.pszText, script.size);
        const auto check = [&]
        {
            if (const std::string strBroken = BrokenRule(driver);
                !strBroken.empty() && !HasFailure())
            {
                ADD_FAILURE() << strBroken << "\nseed " << nSeed << ", " << script.pszText << ", "
                              << script.size.cx << 'x' << script.size.cy
                              << (script.bBoxed ? ", boxed" : "") << ", after event "
                              << driver.m_Events.size() << " of\n"
                              << script.strLines;
            }
        };
        driver.Play(script.strLines, check);
    }
}

TEST(Scripts, BytesAreHexadecimal)
{
    EXPECT_EQ(ParseScriptEvent("clip 01aFC0")->bytes, std::vector<BYTE>({ 0x01, 0xAF, 0xC0 }));
    EXPECT_FALSE(ParseScriptEvent("clip -")->bytes);
}

TEST(Scripts, LinesThatAreNoGestures)
{
    std::istringstream lines(
        "\njump\nsize\nsize 5\nsize 5 6 7\nsize 5 x\nmove 1 2 right\npress 1 2 left\nkey\nkey A\n"
        "key 65 ctrl ctrl\nkey 99999999999\npaint 1\nreadonly 2\nreadonly\nclip\nclip 0\nclip 0G\n"
        "clip 00 11\nenter 1 2 shift\nwheel 1.5\nvscroll\nvscroll 1 2 3\nSIZE 1 2\n");
    for (std::string strLine; std::getline(lines, strLine);)
        EXPECT_FALSE(ParseScriptEvent(strLine)) << strLine;
}

}  // namespace
