// Commands on their way to handlers.
#include "platform/base/cmd_target.h"

#include <gtest/gtest.h>

#include <string>

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

class CShown : public CCmdUI
{
public:
    void Enable(BOOL bOn) override
    {
        CCmdUI::Enable(bOn);
        m_nEnabled = bOn;
    }
    int m_nEnabled = -1;  // never asked
};

TEST(CmdTarget, CommandsFindTheFirstRow)
{
    const struct
    {
        UINT nID;
        int nCode;
        BOOL bHandled;
        const char* pszLog;
    } aCases[] = {
        { idInBase, CN_COMMAND, TRUE, "base" },
        { idInBoth, CN_COMMAND, TRUE, "derived" },
        { idRange, CN_COMMAND, TRUE, "range110" },
        { idRange + 3, CN_COMMAND, TRUE, "range113" },
        { idRange + 4, CN_COMMAND, FALSE, "" },
        { idUnknown, CN_COMMAND, FALSE, "" },
        { idInBase, 0x400, FALSE, "" },
        { idInBase, 0x4E << 16, FALSE, "" },
    };
    for (const auto& row : aCases)
    {
        CDerived target;
        EXPECT_EQ(target.OnCmdMsg(row.nID, row.nCode, nullptr, nullptr), row.bHandled) << row.nID;
        EXPECT_EQ(target.m_log, row.pszLog);
    }
}

TEST(CmdTarget, ShowsACommandByItsHandlers)
{
    const struct
    {
        UINT nID;
        BOOL bHandled;
        int nEnabled;  // without a handler of the command it is not
    } aCases[] = { { idInBoth, FALSE, 1 },
                   { idGrey, TRUE, 0 },
                   { idUpdateOnly, TRUE, 0 },
                   { idUnknown, FALSE, 0 },
                   { 0, TRUE, -1 } };
    for (const auto& row : aCases)
    {
        CDerived target;
        CShown shown;
        shown.m_nID = row.nID;
        EXPECT_EQ(shown.DoUpdate(&target, TRUE), row.bHandled) << row.nID;
        EXPECT_EQ(shown.m_nEnabled, row.nEnabled) << row.nID;
        EXPECT_EQ(target.m_log, "") << "asked, not called";
    }
}
}  // namespace
