// Gestures in the window in memory.
#include <gtest/gtest.h>

#include "control/control_driver.h"
#include "control/gesture_cases.h"
#include "nodes/node.h"

namespace
{

void CheckGestures(std::span<const CGestureCase> cases)
{
    for (const CGestureCase& one : cases)
    {
        SCOPED_TRACE(std::string(one.pszName) + ": " + one.pszScript);
        CControlDriver driver(one.pszText);
        const std::string strState = driver.Play(one.pszScript).back();
        for (const CFieldText* pField = one.aExpected; pField->pszText != nullptr; pField++)
            EXPECT_EQ(FieldOf(strState, pField->nField), pField->pszText);
        EXPECT_EQ(BrokenRule(driver), "");
    }
}

TEST(Control, GesturesLeadToStates)
{
    CheckGestures(GestureCases());
}

TEST(Control, DropsLeadToStates)
{
    const CBoxedPlaceholders boxed;
    CheckGestures(DropCases());
}

// The sizes that placeholders have by default: the parent is found in their place.
TEST(Control, PlaceholdersAreBesideTheirPlace)
{
    CControlDriver driver("a+b");
    EXPECT_EQ(driver.Last("press @LL;key 46;move 5 8", HOVER), "/LR");
    EXPECT_LT(driver.NodeAt("LL")->m_rect.Width(), 0);
}

}  // namespace
