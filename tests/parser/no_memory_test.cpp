// A parse whose memory ends: each allocation of its lists fails in turn.
#include <gtest/gtest.h>

#include "failing_memory.h"
#include "parser/parsed.h"

// The leak check sees what is not given back.
TEST(ParserWithoutMemory, TellsItAndKeepsNothing)
{
    std::string strText = "sin(x)y^b^c+sum(i,i=1,n)+brace([,],f(a,b,c,d,e";
    for (int i = 0; i < 300; i++)
        strText += ",g";
    int nFailures = 0;
    for (bool bDone = false; !bDone; nFailures++)
    {
        CBinTree tree;
        CFormulaParser parser;
        parser.m_pTree = &tree;
        const CString str = strText.c_str();
        WORD nErrorPos = 4711;
        CString strMessage;
        g_nUntilFailure = nFailures;
        bDone = parser.Parse(str, &nErrorPos, &strMessage) != 0;
        g_nUntilFailure = -1;
        delete parser.m_pResult;
        if (bDone)
            break;
        EXPECT_EQ(parser.m_pResult, nullptr);
        EXPECT_EQ(nErrorPos, 4711);
        EXPECT_EQ(strMessage.Find("Error in Calculation() weil "), 0);
        EXPECT_GT(strMessage.GetLength(), 30);
    }
    EXPECT_GT(nFailures, 5);
}
