// The exported class and the C function: results, message boxes, and what is left behind.
#include <string>
#include <thread>

#include "archived.h"
#include "nodes/node.h"
#include "platform/base/system.h"
#include "service/service_helpers.h"
#include "service/thread_check.h"

namespace
{
using CFormulaOutTest = CServiceTest;

// No text is read whose positions do not fit into 16 bits.
CString TooLongText()
{
    return CString('a', 65535);
}

// A root with an empty sign of 17 pixels (18 hundredths) and a variable of 8 (11): gaps of 2 for
// each sign, one unit behind each part.
TEST_F(CFormulaOutTest, MeasuresInHundredthsOfAnInchAndInPixels)
{
    CFormulaOut formula;
    formula.FormTree("2");
    EXPECT_EQ(ScreenRect(formula), CRect(0, 0, 8 + 2 + 3 + 2 + 3, 17));
    const CRect& rect = formula.m_Tree.m_rectFormula;
    EXPECT_EQ(rect.TopLeft(), CPoint(0, 0));
    EXPECT_EQ(rect.Height(), 18);

    const CRect before = rect;
    formula.GetTreeFormatPtr()->m_nSizes[0] = -24;
    formula.ReformatNodes();
    EXPECT_EQ(formula.m_Tree.m_rectFormula, before);
    EXPECT_GT(ScreenRect(formula).Height(), 30);
    formula.FormTree("2");
    EXPECT_EQ(ScreenRect(formula).Height(), 17);
}

TEST_F(CFormulaOutTest, AStoppedParseLeavesTheOldTextWithoutATree)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    EXPECT_EQ(formula.FormTree(TooLongText()), 0);
    EXPECT_EQ(TakeMessages(), Messages{ "Error in Calculation() weil The text is too long." });
    EXPECT_EQ(formula.IsRootNodeNULL(), 1);
    EXPECT_EQ(formula.m_strFormula, "a/b");
    EXPECT_EQ(ScreenRect(formula), CRect(0, 0, 0, 0));
}

TEST_F(CFormulaOutTest, ANewTreeHasNothingSelected)
{
    CFormulaOut formula;
    for (const CString& strText : { CString("a"), TooLongText() })
    {
        formula.FormTree("x");
        formula.m_Tree.SetSelection(formula.m_Tree.GetRootNode()->GetLeft(), 2);
        formula.FormTree(strText);
        EXPECT_EQ(formula.m_Tree.GetSelection(), nullptr);
        EXPECT_EQ(formula.m_Tree.GetSelectionMode(), 2);
    }
    formula.FormTree("x");
    formula.m_Tree.SetSelection(formula.m_Tree.GetRootNode(), 1);
    formula.ResetTree();
    EXPECT_NE(formula.m_Tree.GetSelection(), nullptr);
}

TEST_F(CFormulaOutTest, ReportsErrorsThatTheSystemDoesNotKnow)
{
    CFormulaOut formula;
    SetLastError(0x2FFFFFF0);
    formula.m_Tree.ReportLastError();
    EXPECT_EQ(TakeMessages(), Messages{ "Unknown error 805306352." });
}

TEST_F(CFormulaOutTest, AssignmentFormsTheText)
{
    CFormulaOut source;
    CFormulaOut target;
    source.FormTree("a+b");
    target.FormTree("c");
    source.GetTreeFormatPtr()->m_nSizes[0] = -30;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(target.m_strFormula, "a+b");
    EXPECT_EQ(target.m_Tree.GetRootNode()->GetLeft()->GetTypeName(), "NT_PLUS");
    EXPECT_EQ(target.GetTreeFormatPtr()->m_nSizes[0], -12);

    source.m_strFormula = "x/y";  // as a read file leaves it
    CFormulaOut& alias = source;
    source = alias;
    EXPECT_EQ(source.m_Tree.GetRootNode()->GetLeft()->GetTypeName(), "NT_DIVISION");

    CFormulaOut empty;
    target = empty;
    EXPECT_EQ(target.m_strFormula, "");
    EXPECT_EQ(target.IsRootNodeNULL(), 0);
}

TEST_F(CFormulaOutTest, WithoutATreeNothingIsPaintedButTheBackgroundModeIsSet)
{
    CFormulaOut formula;
    formula.FormTree("a");
    formula.ResetTree();
    formula.ResetTree();
    EXPECT_EQ(formula.m_strFormula, "a");
    EXPECT_EQ(formula.IsRootNodeNULL(), 1);
    CClientDC screen(nullptr);
    screen.SetBkMode(OPAQUE);
    formula.DrawTree(&screen, CRect(0, 0, 0, 0));
    EXPECT_EQ(screen.GetBkMode(), TRANSPARENT);
}

TEST_F(CFormulaOutTest, MetafilesNeedTheirExtension)
{
    CFormulaOut formula;
    formula.FormTree("a");
    const std::pair<const char*, bool> aCases[] = {
        { "x.wmf", true },  { "x.wMf", true }, { "xWMF", true }, { "x.emf", false },
        { "wmf.x", false }, { "mf", false },   { "", false },
    };
    for (const auto& [pszName, bTaken] : aCases)
    {
        SCOPED_TRACE(pszName);
        // A whole path of fewer characters than the extension, too.
        const CString strPath = std::strlen(pszName) < 3 ? CString(pszName) : File(pszName);
        const Messages expected = bTaken ? Messages{} : Messages{ WRONG_EXTENSION };
        EXPECT_EQ(formula.WriteFormulaToWMF(strPath), bTaken ? 1 : 0);
        EXPECT_EQ(std::filesystem::exists(strPath.GetString()), bTaken);
        EXPECT_EQ(TakeMessages(), expected);
        EXPECT_EQ(formula.ReadFormulaFromWMF(strPath), bTaken ? 1 : 0);
        EXPECT_EQ(TakeMessages(), expected);
    }
}

TEST_F(CFormulaOutTest, TheCFunctionGives22TimesThePixels)
{
    float fWidth = -1;
    float fHeight = -1;
    EXPECT_EQ(StringToEMFFormula("a/b", File("x.wmf"), &fWidth, &fHeight), 1);
    CFormulaOut formula;
    formula.FormTree("a/b");
    const CRect rect = ScreenRect(formula);
    EXPECT_EQ(fWidth, 22.0F * static_cast<float>(rect.Width()));
    EXPECT_EQ(fHeight, 22.0F * static_cast<float>(rect.Height()));
    formula.WriteFormulaToWMF(File("y.wmf"));
    EXPECT_EQ(ReadWhole(File("x.wmf")), ReadWhole(File("y.wmf")));

    // Of a text that is refused nothing is drawn.
    EXPECT_EQ(StringToEMFFormula(TooLongText(), File("long.wmf"), &fWidth, &fHeight), 1);
    EXPECT_EQ(TakeMessages().size(), 1U);
    EXPECT_EQ(std::pair(fWidth, fHeight), std::pair(0.0F, 0.0F));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "long.wmf"));
}

TEST_F(CFormulaOutTest, ATreeAndItsFormatGoThroughAnArchive)
{
    CFormulaOut source;
    source.FormTree("a/b");
    source.GetTreeFormatPtr()->m_pNumber->m_strFontName = "Arial";
    std::string strBytes = StoredBy([&](CArchive& ar) { source.SaveTree(ar); });
    CFormulaOut target;
    const auto load = [&](CArchive& ar)
    {
        target.SaveTree(ar);
    };
    EXPECT_EQ(LoadBy(strBytes, load), 0U);
    EXPECT_EQ(target.m_Tree.GetRootNode()->GetLeft()->GetTypeName(), "NT_DIVISION");
    EXPECT_EQ(target.GetTreeFormatPtr()->m_pNumber->m_strFontName, "Arial");
    EXPECT_EQ(target.m_strFormula, "");
    strBytes.pop_back();
    EXPECT_EQ(CauseOf([&] { LoadBy(strBytes, load); }), CArchiveException::endOfFile);
}

TEST_F(CFormulaOutTest, DebugBuildsStopWhereTwoThreadsAreInside)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const CInsideLibrary inside;
    const CInsideLibrary again;
    EXPECT_DEBUG_DEATH(std::thread([] { const CInsideLibrary other; }).join(), "Enter");
}
}  // namespace
