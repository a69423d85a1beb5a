// Gestures in the window in memory.
#include <gtest/gtest.h>

#include "control/control_driver.h"
#include "control/gesture_cases.h"

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

}  // namespace
