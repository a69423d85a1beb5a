// The tree object: the factory, copies, searching, generated text, the order by priority.
#include "tree/bin_tree.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "archived.h"
#include "format/tree_format.h"
#include "nodes/typed_node.h"
#include "parser/small_thread.h"
#include "platform/gdi/dc.h"
#include "tree/tree_maker.h"

namespace
{
// Nodes of alternating types, each the right child of the one before; the last of them.
CNode* MakeChain(CBinTree& tree, std::size_t nNodes, const std::vector<ENodeType>& types)
{
    CNode* pNode = tree.CreateRootNode("NT_STANDARD");
    for (std::size_t i = 0; i < nNodes; i++)
    {
        pNode->LinkRight(tree.CreateBareNode(types[i % types.size()]));
        pNode = pNode->GetRight();
    }
    return pNode;
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

        // What the table says of the class.
        const CNodeType& data = NodeTypeData(static_cast<ENodeType>(i));
        const auto* pTyped = dynamic_cast<const CTypedNode*>(pNode.get());
        const bool bSigns = pTyped != nullptr && pTyped->m_saSymbols.GetSize() != 0;
        EXPECT_EQ(data.nKinds, bSigns ? KINDS_SIGN : i == NTI_DIVISION ? KINDS_SHAPE : KINDS_NONE);
        CClientDC screen(nullptr);
        pNode->SetSymbol("x");
        pNode->Measure(&screen);
        EXPECT_EQ(data.bMeasuresText, pNode->GetMeasured().sign.cx > 0);
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
        const LOGFONT& lf = *pNode->GetLogFont();  // the constructor's
        EXPECT_STREQ(lf.lfFaceName, "Times New Roman");
        EXPECT_EQ(std::tuple(lf.lfHeight, lf.lfWeight, lf.lfItalic, lf.lfPitchAndFamily),
                  std::tuple(-120, 400, 1, 0x50));
        EXPECT_EQ(dynamic_cast<CTypedNode*>(pNode.get()), nullptr);
    }
}

TEST(BinTree, CopiesNodesAttributesAndName)
{
    CBinTree source;
    CNode* pRoot = MakeTree(source, R"((STANDARD (DIVISION[1] x (SUM (RANGE - i) n)) -))");
    CNode* pDivision = pRoot->GetLeft();
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
    EXPECT_STREQ(TreeForm(pDeep.get()), TreeForm(pExponent));
    pExponent->GetLeft()->SetFontName("Times New Roman");
    ExpectLinks(pDeep.get(), pExponent);
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
    const std::string strFirst(54, 'a');
    const std::string strBreak = "\r\n     +";
    const std::string strNext = strBreak + std::string(59, 'a');
    // Letters of the symbol, which six blanks come ahead of.
    const std::pair<int, std::string> aCases[] = {
        { 0, "" },
        { 54, strFirst },
        { 55, strFirst + strBreak + "a" },
        { 54 + 59, strFirst + strNext },
        { 54 + 60, strFirst + strNext + strBreak + "a" },
    };
    CBinTree empty;
    EXPECT_EQ(empty.GetFormulaText(0), "      ");
    CBinTree tree;
    tree.CreateRootNode("NT_VARIABLE");
    for (const auto& [nSymbol, strExpected] : aCases)
    {
        tree.GetRootNode()->SetSymbol(std::string(nSymbol, 'a').c_str());
        EXPECT_EQ(std::string(tree.GetFormulaText(0)), "      " + strExpected);
    }
    for (const int nForm : { 1, -1, TEXT_FORMS, INT_MAX, INT_MIN })
    {
        EXPECT_THROW(empty.GetFormulaText(nForm), CInvalidArgException*) << nForm;
        EXPECT_THROW(tree.GetFormulaText(nForm), CInvalidArgException*) << nForm;
    }
}

TEST(BinTree, SortsByPriorityToTheRight)
{
    // What becomes of the last node of a tree: it keeps its font, takes the default one, or is
    // deleted, and then selected no more.
    enum ELast
    {
        STAYS,
        MOVES,
        GOES
    };
    const std::tuple<const char*, const char*, ELast> aCases[] = {
        // Left child up; the parent's left link stays empty.
        { "(STANDARD (TIMES (PLUS a b) c) -)", "(STANDARD - (PLUS a (TIMES b c)))", MOVES },
        // What hung on the right of the parent goes.
        { "(STANDARD (TIMES (PLUS a b) c) (DIVISION d e))", "(STANDARD - (PLUS a (TIMES b c)))",
          GOES },
        // Right child up: its right part goes below the node.
        { "(STANDARD - (TIMES a (PLUS b c)))", "(STANDARD - (PLUS b (TIMES a c)))", MOVES },
        { "(STANDARD (DIVISION (PLUS a b) (MINUS c d)) -)",
          "(STANDARD - (PLUS a (MINUS c (DIVISION b d))))", MOVES },
        // Below the node that moved.
        { "(STANDARD (EQUATION (TIMES (PLUS a b) c) d) -)",
          "(STANDARD (EQUATION - (PLUS a (TIMES b c))) -)", GOES },
        { "(STANDARD (PLUS a (TIMES b c)) -)", "(STANDARD (PLUS a (TIMES b c)) -)", STAYS },
        // A root stays where it is.
        { "(TIMES (PLUS a b) c)", "(TIMES (PLUS a b) c)", STAYS },
    };
    for (const auto& [pszTree, pszSorted, nLast] : aCases)
    {
        SCOPED_TRACE(pszTree);
        CBinTree tree;
        CNode* pLast = MakeTree(tree, pszTree);
        while (CNode* pChild = pLast->GetRight() != nullptr ? pLast->GetRight() : pLast->GetLeft())
            pLast = pChild;
        pLast->SetFontName("Arial");
        tree.SetSelection(pLast, 1);
        tree.SortByPriority(tree.GetRootNode());
        EXPECT_EQ(tree.GetSelection(), nLast == GOES ? nullptr : pLast);
        if (nLast == STAYS)
        {
            EXPECT_EQ(pLast->GetFontName(), "Arial");
            pLast->SetFontName("Times New Roman");
        }
        ExpectTree(tree, pszSorted);
    }
}

TEST(BinTree, WorksAtAnyDepthOnASmallStack)
{
    RunInSmallThread(
        []
        {
            constexpr int nNodes = 40000;
            CBinTree tree;
            CNode* pNode = MakeChain(tree, nNodes, { NTI_TIMES, NTI_PLUS });
            EXPECT_EQ(tree.FindParent(pNode), pNode->GetParent());
            CBinTree copy;
            copy.CopyFrom(tree);
            EXPECT_EQ(Form(copy), Form(tree));
            EXPECT_GT(copy.GetFormulaText(0).GetLength(), nNodes);
            // Every second node moves up, and is formatted once.
            copy.SortByPriority(copy.GetRootNode());
            CBinTree sorted;
            MakeChain(sorted, nNodes, { NTI_PLUS, NTI_TIMES });
            EXPECT_EQ(Form(copy), Form(sorted));

            Load(copy, Stored(tree));
            EXPECT_EQ(Form(copy), Form(tree));
        });
}
