// Gestures in the window in memory.
#include <gtest/gtest.h>

#include "control/control_driver.h"
#include "control/gesture_cases.h"
#include "nodes/node.h"

namespace
{

void CheckGesture(const CGestureCase& one)
{
    CControlDriver driver(one.pszText);
    EXPECT_EQ(driver.Last(one.pszScript, one.nField), one.pszExpected)
        << one.pszName << ": " << one.pszScript;
    EXPECT_EQ(BrokenRule(driver), "") << one.pszName;
}

class CGestures : public testing::TestWithParam<CGestureCase>
{
};

TEST_P(CGestures, LeadTo)
{
    CheckGesture(GetParam());
}

class CDrops : public testing::TestWithParam<CGestureCase>
{
};

TEST_P(CDrops, LeadTo)
{
    const CBoxedPlaceholders boxed;
    CheckGesture(GetParam());
}

// The sizes that placeholders have by default: the parent is found in their place.
TEST(Control, PlaceholdersAreBesideTheirPlace)
{
    CControlDriver driver("a+b");
    EXPECT_EQ(driver.Last("press @LL;key 46;move 5 8", HOVER), "/LR");
    EXPECT_LT(driver.NodeAt("LL")->m_rect.Width(), 0);
}

INSTANTIATE_TEST_SUITE_P(Drops, CDrops, testing::ValuesIn(DropCases()));
INSTANTIATE_TEST_SUITE_P(Mouse, CGestures, testing::ValuesIn(MouseCases()));
INSTANTIATE_TEST_SUITE_P(Keys, CGestures, testing::ValuesIn(KeyCases()));
INSTANTIATE_TEST_SUITE_P(Editor, CGestures, testing::ValuesIn(EditorCases()));
INSTANTIATE_TEST_SUITE_P(Transfer, CGestures, testing::ValuesIn(TransferCases()));

}  // namespace
