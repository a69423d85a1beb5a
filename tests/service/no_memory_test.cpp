// A FormTree whose memory ends: each allocation fails in turn, in the parse and behind it.

#include "failing_memory.h"
#include "service/service_helpers.h"

namespace
{
using CNoMemoryTest = CServiceTest;

// The box itself needs memory, so that it is the failing that is put off until the next text.
int s_nBoxes = 0;
std::string s_strBox;

int Count(const char* pszText, unsigned, void*)
{
    g_nUntilFailure = -1;
    ++s_nBoxes;
    s_strBox = pszText;
    return IDOK;
}

// The leak check sees what is not given back.
TEST_F(CNoMemoryTest, EveryStepIsAnsweredAsAFailureOfTheParse)
{
    AfxSetMessageBoxHandler(Count, nullptr);
    CFormulaOut formula;
    const CString strOld = "a/b";
    const CString strText = "sqr(x)+sum(mark(x,i,2),i=1,n)+str(abc)+sin(x)y^b^c+brace([,],f(a,b,c";
    // Each time in a size of its own: measuring needs memory for fonts that were not in use before.
    int nSize = -100;
    const auto FormWith = [&](int nAllocations)
    {
        EXPECT_EQ(formula.FormTree(strOld), 1);
        g_DefaultFormat.m_nSizes[0] = --nSize;
        s_nBoxes = 0;
        g_nUntilFailure = nAllocations;
        const int nFormed = formula.FormTree(strText);
        const int nLeft = g_nUntilFailure;
        g_nUntilFailure = -1;
        EXPECT_EQ(s_nBoxes, 1 - nFormed);
        EXPECT_EQ(formula.IsRootNodeNULL(), 1 - nFormed);
        EXPECT_EQ(formula.m_strFormula, nFormed ? strText : strOld);
        EXPECT_EQ(s_strBox.find("Error in Calculation() weil "), 0U) << s_strBox;
        return nFormed ? nAllocations - nLeft : -1;
    };
    // Lists grow in the first round; in the second each failure comes at a place of its own.
    int nFailures = 0;
    while (FormWith(nFailures) < 0)
        ++nFailures;
    const int nNeeded = FormWith(1000);
    EXPECT_GT(nNeeded, 5);
    for (int n = 0; n < nNeeded; ++n)
    {
        SCOPED_TRACE(n);
        EXPECT_EQ(FormWith(n), -1);
    }
    g_DefaultFormat.m_nSizes[0] = -12;
}

// Until the memory suffices each call ends with a box, and no file is left that is not whole.
TEST_F(CNoMemoryTest, TheCFunctionAnswersWithABox)
{
    AfxSetMessageBoxHandler(Count, nullptr);
    const CString strPath = File("x.wmf");
    float fWidth = 0;
    float fHeight = 0;
    StringToEMFFormula("sqr(x)/2", strPath, &fWidth, &fHeight);
    const std::string strWhole = ReadWhole(strPath);
    ASSERT_GT(strWhole.size(), 100U);
    int nFailed = 0;
    for (bool bFailed = true; bFailed; ++nFailed)
    {
        SCOPED_TRACE(nFailed);
        std::filesystem::remove(strPath.GetString());
        s_nBoxes = 0;
        g_nUntilFailure = nFailed;
        EXPECT_EQ(StringToEMFFormula("sqr(x)/2", strPath, &fWidth, &fHeight), 1);
        bFailed = g_nUntilFailure <= 0;
        g_nUntilFailure = -1;
        EXPECT_LE(s_nBoxes, 1);
        // A picture, be it that of no formula, or none; and nothing that was begun.
        const std::string strFile = ReadWhole(strPath);
        EXPECT_TRUE(strFile.empty() || GetDword(strFile, 48) == strFile.size());
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder()), {}),
                  strFile.empty() ? 0 : 1);
    }
    EXPECT_GT(nFailed, 5);
    EXPECT_EQ(ReadWhole(strPath), strWhole);
}
}  // namespace
