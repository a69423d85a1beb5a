// Outputs whose file operations fail one after the other: an answer, and the old file unharmed.
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

int Write(CFormulaOut& formula, const CString& strPath)
{
    const CString strExtension = strPath.Right(3);
    return strExtension == "wmf"   ? formula.WriteFormulaToWMF(strPath)
           : strExtension == "bmp" ? formula.m_Tree.WriteBitmapFile(strPath)
                                   : formula.SaveToFML(strPath);
}

using CFileFaultTest = CServiceTest;

TEST_F(CFileFaultTest, EachOperationThatFailsLeavesTheOldFile)
{
    for (const std::string strName : { "x.wmf", "x.bmp", "x.fml" })
    {
        SCOPED_TRACE(strName);
        const int nFailed = strName == "x.fml" ? 1 : 0;
        const size_t nBoxes = nFailed;
        const CString strPath = File(strName);
        CFormulaOut formula;
        formula.FormTree("a/b");
        ASSERT_EQ(Write(formula, strPath), 1);
        const std::string strWhole = ReadWhole(strPath);
        ASSERT_GT(strWhole.size(), 100U);
        EXPECT_EQ(TakeMessages(), Messages{});
        EXPECT_EQ(Write(formula, File("no/" + strName)), nFailed);
        EXPECT_EQ(TakeMessages().size(), nBoxes);
        WriteWhole(strPath, "old");

        g_pfnFileFault = FailOnce;
        int nFaults = 0;
        for (bool bFaulted = true; bFaulted; ++nFaults)
        {
            SCOPED_TRACE(nFaults);
            s_nUntilFault = nFaults;
            s_bFaulted = false;
            const int nResult = Write(formula, strPath);
            bFaulted = s_bFaulted;
            EXPECT_EQ(nResult, bFaulted ? nFailed : 1);
            EXPECT_EQ(TakeMessages().size(), bFaulted ? nBoxes : 0);
            EXPECT_EQ(ReadWhole(strPath), bFaulted ? "old" : strWhole);
        }
        g_pfnFileFault = nullptr;
        EXPECT_GE(nFaults, 4);  // open, write, close, rename
        for (const auto& entry : std::filesystem::directory_iterator(Folder()))
            EXPECT_EQ(entry.path().extension().string().size(), 4U) << entry.path();
    }
}
}  // namespace
