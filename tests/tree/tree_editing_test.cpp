// Operations that change the shape of a tree. The checks for leaks and for use after freeing see
// what is deleted too little or too much.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "nodes/node.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"
#include "tree/tree_maker.h"

namespace
{

void ExpectTree(const CBinTree& tree, const char* pszSketch)
{
    CBinTree expected;
    MakeTree(expected, pszSketch);
    EXPECT_STREQ(TreeForm(tree.GetRootNode()), TreeForm(expected.GetRootNode()));
}

}  // namespace

TEST(TreeEditing, ChangesATypeAndKeepsTheChildren)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (PLUS a b) -)");
    CNode* pPlus = pRoot->GetLeft();
    tree.SetSelection(pPlus, 2);
    CNode* pPower = tree.ChangeNodeType(pPlus, "NT_POWERTO");
    ExpectTree(tree, "(STANDARD (POWERTO a b) -)");
    EXPECT_EQ(tree.GetSelection(), pPower);
    EXPECT_EQ(pPower->GetParent(), pRoot);
    EXPECT_EQ(pPower->GetRight()->GetLevel(), 1);
    EXPECT_EQ(pPower->GetRight()->GetParent(), pPower);

    // The range of the sum's constructor gives way to what hung there.
    tree.ChangeNodeType(pPower, "NT_SUM");
    EXPECT_EQ(pRoot->GetLeft()->GetLeft()->GetSymbol(), "a");

    CNode* pPlaceHolder = tree.ReplaceByNewNode(pRoot->GetLeft(), "NT_PLACEHOLDER");
    tree.SetSelection(pPlaceHolder, 1);
    CNode* pVariable = tree.ChangeNodeType(pPlaceHolder, "NT_VARIABLE");
    EXPECT_EQ(tree.GetSelection(), pVariable);
    ExpectTree(tree, "(STANDARD var -)");
}

TEST(TreeEditing, ChangesTheRightChild)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (PLUS a b) -)");
    tree.SetSelection(pRoot, 1);
    tree.ChangeNodeType(pRoot->GetLeft()->GetRight(), "NT_PLACEHOLDER");
    ExpectTree(tree, "(STANDARD (PLUS a (PLACEHOLDER - -)) -)");
    EXPECT_EQ(tree.GetSelection(), pRoot);
}

TEST(TreeEditing, ReplacesANodeWithAllBelowIt)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD (PLUS (PLUS a b) c) -)");
    CBinTree other;
    CNode* pNew = MakeTree(other, "(DIVISION x y)");
    other.SetRootNode(nullptr);
    tree.SetSelection(pRoot, 1);
    tree.ReplaceNode(pRoot->GetLeft()->GetLeft(), pNew);
    ExpectTree(tree, "(STANDARD (PLUS (DIVISION x y) c) -)");
    EXPECT_EQ(tree.GetSelection(), pRoot);
    EXPECT_EQ(pNew->GetParent(), pRoot->GetLeft());

    tree.SetSelection(pNew, 2);
    CNode* pPlaceHolder = tree.ReplaceByNewNode(pNew, "NT_PLACEHOLDER");
    ExpectTree(tree, "(STANDARD (PLUS (PLACEHOLDER - -) c) -)");
    EXPECT_EQ(tree.GetSelection(), pPlaceHolder);
    EXPECT_EQ(tree.GetSelectionMode(), 2);
}

TEST(TreeEditing, SelectsNothingOutsideTheTree)
{
    CBinTree tree;
    MakeTree(tree, "(STANDARD a -)");
    const std::unique_ptr<CNode> pStray(tree.CreateNode("NT_NUMBER"));
    tree.ReplaceNode(nullptr, pStray.get());
    ExpectTree(tree, "(STANDARD a -)");
    EXPECT_EQ(tree.GetSelection(), nullptr);
}

TEST(TreeEditing, LeavesTheRootAlone)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD a -)");
    EXPECT_EQ(tree.ReplaceByNewNode(pRoot, "NT_PLACEHOLDER"), nullptr);
    EXPECT_EQ(tree.GetRootNode(), pRoot);
    ExpectTree(tree, "(STANDARD a -)");
}

TEST(TreeEditing, InsertsANodeAboveAnother)
{
    struct CInsertCase
    {
        int nSide;
        const char* pszType;
        const char* pszExpected;
    };
    const CInsertCase aCases[] = {
        { 1, "NT_DIVISION", "(STANDARD (PLUS a (DIVISION b -)) -)" },
        { 2, "NT_ROOT", "(STANDARD (PLUS a (ROOT - b)) -)" },
        { 2, "NT_SUM", "(STANDARD (PLUS a (SUM - b)) -)" },
        { 3, "NT_SUM", "(STANDARD (PLUS a (SUM - -)) -)" },
    };
    for (const CInsertCase& insert : aCases)
    {
        SCOPED_TRACE(insert.pszExpected);
        CBinTree tree;
        CNode* pPlus = MakeTree(tree, "(STANDARD (PLUS a b) -)")->GetLeft();
        CNode* pChild = pPlus->GetRight();
        tree.SetSelection(pChild, 1);
        CNode* pNew = tree.InsertNodeAbove(pPlus, pChild, insert.pszType, insert.nSide);
        ExpectTree(tree, insert.pszExpected);
        EXPECT_EQ(pPlus->GetRight(), pNew);
        EXPECT_EQ(tree.GetSelection(), pChild);
        if (insert.nSide == 3)
        {
            tree.DeleteSubtree(pChild);
        }
        else
        {
            EXPECT_EQ(pChild->GetParent(), pNew);
        }
    }
}
