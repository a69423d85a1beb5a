// Commands on their way to handlers.
#include "platform/base/cmd_target.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace
{
enum : UINT
{
    idInBase = 100,
    idInBoth = 101,
    idRange = 110,
    idGrey = 120,
    idUpdateOnly = 121,
    idUnknown = 200,
};
class CBase : public CCmdTarget
{
public:
    std::string m_log;

protected:
    void OnInBase() { m_log += "base"; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CBase, CCmdTarget)
ON_COMMAND(idInBase, OnInBase)
ON_COMMAND(idInBoth, OnInBase)
END_MESSAGE_MAP()

class CDerived : public CBase
{
    void OnInBoth() { m_log += "derived"; }
    void OnRange(UINT nID) { m_log += "range" + std::to_string(nID); }
    void OnGrey(CCmdUI* pCmdUI) { pCmdUI->Enable(FALSE); }
    void OnUpdateOnly(CCmdUI* /*pCmdUI*/) {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CDerived, CBase)
ON_COMMAND(idInBoth, OnInBoth)
ON_COMMAND(idGrey, OnInBoth)
ON_COMMAND_RANGE(idRange, idRange + 3, OnRange)
ON_UPDATE_COMMAND_UI(idGrey, OnGrey)
ON_UPDATE_COMMAND_UI(idUpdateOnly, OnUpdateOnly)
END_MESSAGE_MAP()

struct CShown : CCmdUI
{
    void Enable(BOOL bOn) override
    {
        CCmdUI::Enable(bOn);
        m_nEnabled = bOn;
    }
    int m_nEnabled = -1;  // never asked
};
}  // namespace

TEST(CmdTarget, CommandsFindTheFirstRowAndAreShownByTheirHandlers)
{
    // The log (empty: not handled); enabled or not without a handler of the update.
    const std::tuple<UINT, std::string, BOOL, int> aCases[] = {
        { idInBase, "base", FALSE, 1 },
        { idInBoth, "derived", FALSE, 1 },
        { idRange, "range110", FALSE, 1 },
        { idRange + 3, "range113", FALSE, 1 },
        { idRange + 4, "", FALSE, 0 },
        { idUnknown, "", FALSE, 0 },
        { idGrey, "derived", TRUE, 0 },
        { idUpdateOnly, "", TRUE, 0 },
        { 0, "", TRUE, -1 },
    };
    for (const auto& [nID, log, bUpdated, nEnabled] : aCases)
    {
        CDerived target;
        CShown shown;
        shown.m_nID = nID;
        EXPECT_EQ(shown.DoUpdate(&target, TRUE), bUpdated) << nID;
        EXPECT_EQ(shown.m_nEnabled, nEnabled) << nID;
        EXPECT_EQ(target.m_log, "") << "asked, not called";
        EXPECT_EQ(target.OnCmdMsg(nID, CN_COMMAND, nullptr, nullptr), !log.empty());
        EXPECT_EQ(target.m_log, log);
        EXPECT_FALSE(target.OnCmdMsg(nID, 0x400, nullptr, nullptr));
        EXPECT_FALSE(target.OnCmdMsg(nID, 0x4E << 16, nullptr, nullptr));
    }
}
