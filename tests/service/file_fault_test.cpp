// Outputs whose file operations fail one after the other: an answer, and the old file unharmed.
#include <functional>

#include "service/service_helpers.h"
#include "system_errors.h"

namespace
{
int s_nUntilFault = -1;  // operations that still succeed; negative: all
bool s_bFaulted = false;

int FailOnce(EFileOperation, const char*)
{
    if (s_nUntilFault < 0 || s_nUntilFault-- > 0)
        return 0;
    s_bFaulted = true;
    return SYSTEM_DISK_FULL;
}

struct COutput
{
    const char* pszName;
    std::function<int(CFormulaOut&, const CString&)> pfnWrite;
    size_t nBoxes;  // message boxes of a failure
    int nFailed;    // what the operation gives then
};

const COutput s_aOutputs[] = {
    { "x.wmf",
      [](CFormulaOut& formula, const CString& strPath)
      { return formula.WriteFormulaToWMF(strPath); },
      0, 0 },
    { "x.bmp",
      [](CFormulaOut& formula, const CString& strPath)
      { return formula.m_Tree.WriteBitmapFile(strPath); },
      0, 0 },
    { "x.fml",
      [](CFormulaOut& formula, const CString& strPath) { return formula.SaveToFML(strPath); }, 1,
      1 },
};

using CFileFaultTest = CServiceTest;

TEST_F(CFileFaultTest, EachOperationThatFailsLeavesTheOldFile)
{
    for (const COutput& output : s_aOutputs)
    {
        SCOPED_TRACE(output.pszName);
        const CString strPath = File(output.pszName);
        CFormulaOut formula;
        formula.FormTree("a/b");
        ASSERT_EQ(output.pfnWrite(formula, strPath), 1);
        const std::string strWhole = ReadWhole(strPath);
        ASSERT_GT(strWhole.size(), 100U);
        EXPECT_EQ(TakeMessages(), Messages{});
        EXPECT_EQ(output.pfnWrite(formula, File("no/") + output.pszName), output.nFailed);
        EXPECT_EQ(TakeMessages().size(), output.nBoxes);
        WriteWhole(strPath, "old");

        g_pfnFileFault = FailOnce;
        int nFaults = 0;
        for (bool bFaulted = true; bFaulted; ++nFaults)
        {
            SCOPED_TRACE(nFaults);
            s_nUntilFault = nFaults;
            s_bFaulted = false;
            const int nResult = output.pfnWrite(formula, strPath);
            bFaulted = s_bFaulted;
            EXPECT_EQ(nResult, bFaulted ? output.nFailed : 1);
            EXPECT_EQ(TakeMessages().size(), bFaulted ? output.nBoxes : 0);
            EXPECT_EQ(ReadWhole(strPath), bFaulted ? "old" : strWhole);
        }
        g_pfnFileFault = nullptr;
        EXPECT_GE(nFaults, 4);  // open, write, close, rename
        for (const auto& entry : std::filesystem::directory_iterator(Folder()))
            EXPECT_EQ(entry.path().extension().string().size(), 4U) << entry.path();
    }
}
}  // namespace
