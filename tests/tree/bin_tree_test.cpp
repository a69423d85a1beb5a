// The tree object: the factory, copies, searching, generated text, the order by priority.
#include "tree/bin_tree.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "nodes/typed_node.h"
#include "parser/short_form.h"
#include "parser/small_thread.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "tree/tree_form.h"
#include "tree/tree_maker.h"

namespace
{

std::string Form(const CBinTree& tree)
{
    return TreeForm(tree.GetRootNode()).GetString();
}

}  // namespace

TEST(NodeFactory, MakesEveryTypeByItsName)
{
    CBinTree tree;
    for (int i = 0; i < NTI_COUNT; i++)
    {
        const CString& strName = NodeTypeName(static_cast<ENodeType>(i));
        SCOPED_TRACE(strName.GetString());
        const std::unique_ptr<CNode> pNode(tree.CreateNode(strName));
        EXPECT_EQ(pNode->GetTypeName(), strName);
        EXPECT_EQ(pNode->GetParent(), nullptr);
        EXPECT_EQ(pNode->GetFontName(), g_DefaultFormat.FindRecord(strName)->m_strFontName);
        const bool bRange = i == NTI_SUM || i == NTI_PROD || i == NTI_INTEGRAL;
        ASSERT_EQ(pNode->GetLeft() != nullptr, bRange);
        EXPECT_EQ(pNode->GetRight(), nullptr);
        if (bRange)
        {
            EXPECT_EQ(pNode->GetLeft()->GetTypeName(), "NT_RANGE");
            EXPECT_EQ(pNode->GetLeft()->GetParent(), pNode.get());
        }
    }
}

TEST(NodeFactory, TakesNamesWithTheirCase)
{
    CBinTree tree;
    const std::unique_ptr<CNode> pStandard(tree.CreateNode("NT_STANDARD"));
    EXPECT_EQ(pStandard->GetFlags(), 0U);
    for (const char* pszName : { "nt_plus", "NT_PLUS ", "", "NT_" })
    {
        const std::unique_ptr<CNode> pNode(tree.CreateNode(pszName));
        EXPECT_EQ(pNode->GetTypeName(), pszName);
        EXPECT_EQ(pNode->GetFlags(), 2U);
        EXPECT_EQ(pNode->GetPriority(), -1);
        EXPECT_EQ(pNode->GetLogFont()->lfItalic, 1);  // the constructor's font
        EXPECT_EQ(dynamic_cast<CTypedNode*>(pNode.get()), nullptr);
    }
}

TEST(BinTree, KeepsTheSelectionWhenItsContentsGo)
{
    CBinTree tree;
    tree.DeleteContents();
    CNode* pRoot = tree.CreateRootNode("NT_STANDARD");
    tree.SetSelection(pRoot, 2);
    tree.DeleteContents();
    EXPECT_EQ(tree.GetRootNode(), nullptr);
    EXPECT_EQ(tree.GetSelection(), pRoot);
    EXPECT_EQ(tree.GetSelectionMode(), 2);
}

TEST(BinTree, CopiesNodesAttributesAndName)
{
    CBinTree source;
    CNode* pRoot = MakeTree(source, R"((STANDARD (DIVISION x (SUM i n)) -))");
    CNode* pDivision = pRoot->GetLeft();
    static_cast<CTypedNode*>(pDivision)->SetKind(1);
    pDivision->GetLeft()->SetFontName("Symbol");
    pDivision->GetRight()->SetColour(0x123456);
    source.SetName("formula");
    source.m_rectFormula = CRect(1, 2, 3, 4);
    source.SetSelection(pDivision, 2);

    CBinTree copy;
    copy.SetSelection(MakeTree(copy, "(STANDARD y -)"), 1);
    copy.CopyFrom(source);
    EXPECT_EQ(Form(copy), Form(source));
    EXPECT_EQ(copy.GetName(), "formula");
    EXPECT_EQ(copy.m_rectFormula, CRect(0, 0, 50, 20));
    EXPECT_EQ(copy.GetSelection(), nullptr);
    EXPECT_NE(copy.GetRootNode()->GetLeft()->GetRight()->GetColour(), 0x123456U);

    CBinTree empty;
    copy.CopyFrom(empty);
    EXPECT_EQ(copy.GetRootNode(), nullptr);
}

TEST(BinTree, CopiesASubtreeInTheFormatOfItsSourceAtTheTopOnly)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (POWERTO a (DIVISION b c)) -)");
    CNode* pExponent = pRoot->GetLeft()->GetRight();
    pExponent->SetFontName("Arial");
    pExponent->GetLeft()->SetFontName("Arial");

    const std::unique_ptr<CNode> pFlat(tree.CopySubtree(pExponent, 0));
    EXPECT_STREQ(TreeForm(pFlat.get()), R"((DIVISION[0] "/" - -))");
    const std::unique_ptr<CNode> pDeep(tree.CopySubtree(pExponent, 1));
    EXPECT_STREQ(TreeForm(pDeep.get()), Long(R"((DIVISION[0] "/" 'b' 'c'))").c_str());
    EXPECT_EQ(pDeep->GetFontName(), "Arial");
    EXPECT_EQ(pDeep->GetLevel(), 1);
    EXPECT_EQ(pDeep->GetLeft()->GetFontName(), "Times New Roman");
    EXPECT_EQ(pDeep->GetLeft()->GetLevel(), 1);
    EXPECT_EQ(pDeep->GetLeft()->GetLogFont()->lfHeight, -100);
    EXPECT_EQ(pDeep->GetLeft()->GetParent(), pDeep.get());
    EXPECT_EQ(tree.CopySubtree(nullptr, 1), nullptr);
}

TEST(BinTree, FindsParentsByTheChildLinks)
{
    CBinTree tree;
    EXPECT_EQ(tree.FindParent(nullptr), nullptr);
    CNode* pRoot = MakeTree(tree, "(STANDARD (PLUS a (PLUS b c)) -)");
    CNode* pInner = pRoot->GetLeft()->GetRight();
    pInner->GetRight()->SetParent(nullptr);
    EXPECT_EQ(tree.FindParent(pInner->GetRight()), pInner);
    EXPECT_EQ(tree.FindParent(pRoot->GetLeft()), pRoot);
    EXPECT_EQ(tree.FindParent(pRoot), nullptr);
    CBinTree other;
    EXPECT_EQ(tree.FindParent(MakeTree(other, "a")), nullptr);
}

TEST(BinTree, BreaksLongTextsLikeCards)
{
    struct CLengthCase
    {
        int nSymbol;  // six blanks come ahead of it
        std::string strExpected;
    };
    const auto letters = [](int n)
    {
        return std::string(n, 'a');
    };
    const std::string strBlanks = "      ";
    const std::string strBreak = "\r\n     +";
    const CLengthCase aCases[] = {
        { 54, strBlanks + letters(54) },
        { 55, strBlanks + letters(54) + strBreak + letters(1) },
        { 54 + 59, strBlanks + letters(54) + strBreak + letters(59) },
        { 54 + 60, strBlanks + letters(54) + strBreak + letters(59) + strBreak + letters(1) },
    };
    for (const CLengthCase& length : aCases)
    {
        CBinTree tree;
        tree.CreateRootNode("NT_VARIABLE")->SetSymbol(letters(length.nSymbol).c_str());
        EXPECT_EQ(std::string(tree.GetFormulaText(0)), length.strExpected);
    }
    CBinTree empty;
    EXPECT_EQ(empty.GetFormulaText(0), "      ");
    CBinTree variable;
    variable.CreateRootNode("NT_VARIABLE");
    for (const int nForm : { 1, -1, TEXT_FORMS, INT_MAX, INT_MIN })
    {
        EXPECT_THROW(empty.GetFormulaText(nForm), CInvalidArgException*) << nForm;
        EXPECT_THROW(variable.GetFormulaText(nForm), CInvalidArgException*) << nForm;
    }
}

TEST(BinTree, SortsByPriorityToTheRight)
{
    struct CSortCase
    {
        const char* pszTree;
        const char* pszSorted;
    };
    const CSortCase aCases[] = {
        // Left child up; the parent's left link stays empty.
        { "(STANDARD (TIMES (PLUS a b) c) -)", "(STANDARD - (PLUS a (TIMES b c)))" },
        // What hung on the right of the parent goes.
        { "(STANDARD (TIMES (PLUS a b) c) (DIVISION d e))", "(STANDARD - (PLUS a (TIMES b c)))" },
        // Right child up: its right part goes below the node.
        { "(STANDARD - (TIMES a (PLUS b c)))", "(STANDARD - (PLUS b (TIMES a c)))" },
        { "(STANDARD (DIVISION (PLUS a b) (MINUS c d)) -)",
          "(STANDARD - (PLUS a (MINUS c (DIVISION b d))))" },
        // Below the node that moved.
        { "(STANDARD (EQUATION (TIMES (PLUS a b) c) d) -)",
          "(STANDARD (EQUATION - (PLUS a (TIMES b c))) -)" },
        { "(STANDARD (PLUS a (TIMES b c)) -)", "(STANDARD (PLUS a (TIMES b c)) -)" },
    };
    for (const CSortCase& sort : aCases)
    {
        SCOPED_TRACE(sort.pszTree);
        CBinTree tree;
        CBinTree sorted;
        CNode* pRoot = MakeTree(tree, sort.pszTree);
        MakeTree(sorted, sort.pszSorted);
        tree.SortByPriority(pRoot);
        EXPECT_EQ(Form(tree), Form(sorted));
    }
    // A root stays where it is.
    CBinTree tree;
    tree.SortByPriority(MakeTree(tree, "(TIMES (PLUS a b) c)"));
    EXPECT_EQ(Form(tree), Long(R"((TIMES "\xB4" (PLUS "+" 'a' 'b') 'c'))"));
}

// Both parts of the tree that move come from an exponent and its base.
TEST(BinTree, FormatsWhatItSorts)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (POWERTO a (TIMES (PLUS b c) d)) -)");
    CNode* pLast = pRoot->GetLeft()->GetRight()->GetLeft()->GetRight();
    EXPECT_EQ(pLast->GetLevel(), 1);
    pLast->SetFontName("Arial");
    tree.SortByPriority(pRoot);
    CBinTree sorted;
    MakeTree(sorted, "(STANDARD - (PLUS b (TIMES c (POWERTO a d))))");
    EXPECT_EQ(Form(tree), Form(sorted));
    EXPECT_EQ(pLast->GetLevel(), 0);
    EXPECT_EQ(pLast->GetFontName(), "Times New Roman");
    EXPECT_EQ(pLast->GetLogFont()->lfHeight, -120);
}

TEST(BinTree, SelectsNothingThatSortingDeletes)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (TIMES (PLUS a b) c) (DIVISION d e))");
    tree.SetSelection(pRoot->GetRight()->GetLeft(), 2);
    tree.SortByPriority(pRoot);
    EXPECT_EQ(tree.GetSelection(), nullptr);
}

TEST(BinTree, WorksAtAnyDepthOnASmallStack)
{
    RunInSmallThread(
        []
        {
            constexpr int nLevels = 40000;
            CBinTree tree;
            CNode* pNode = tree.CreateRootNode("NT_STANDARD");
            for (int i = 0; i < nLevels; i++)
            {
                CNode* pChild = tree.CreateBareNode(NTI_PLUS);
                pNode->LinkRight(pChild);
                pNode = pChild;
            }
            EXPECT_EQ(tree.FindParent(pNode), pNode->GetParent());
            CBinTree copy;
            copy.CopyFrom(tree);
            EXPECT_EQ(Form(copy), Form(tree));
            EXPECT_GT(copy.GetFormulaText(0).GetLength(), nLevels);
            copy.SortByPriority(copy.GetRootNode());
            EXPECT_EQ(Form(copy), Form(tree));

            CMemFile file(1 << 20);
            CArchive store(&file, CArchive::store);
            tree.Serialize(store);
            store.Close();
            file.SeekToBegin();
            CArchive load(&file, CArchive::load);
            copy.Serialize(load);
            EXPECT_EQ(Form(copy), Form(tree));
        });
}

// Every level moves, and is formatted once.
TEST(BinTree, SortsADeepTree)
{
    constexpr int nLevels = 20000;
    CBinTree tree;
    CNode* pRoot = tree.CreateRootNode("NT_STANDARD");
    CNode* pNode = pRoot;
    for (int i = 0; i < nLevels; i++)
    {
        CNode* pTimes = tree.CreateBareNode(NTI_TIMES);
        CNode* pPlus = tree.CreateBareNode(NTI_PLUS);
        pNode->LinkRight(pTimes);
        pTimes->LinkRight(pPlus);
        pNode = pPlus;
    }
    tree.SortByPriority(pRoot);
    int nPlus = 0;
    int nTimes = 0;
    for (CNode* p = pRoot->GetRight(); p != nullptr; p = p->GetRight())
        ++(p->GetTypeName() == "NT_PLUS" ? nPlus : nTimes);
    EXPECT_EQ(nPlus, nLevels);
    EXPECT_EQ(nTimes, nLevels);
    EXPECT_EQ(pRoot->GetRight()->GetTypeName(), "NT_PLUS");
}
