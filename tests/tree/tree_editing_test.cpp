// Operations that change the shape of a tree. The checks for leaks and for use after freeing see
// what is deleted too little or too much.
#include <gtest/gtest.h>

#include <memory>

#include "tree/tree_maker.h"

namespace
{

enum EEdit
{
    CHANGE,         // ChangeNodeType
    RENEW,          // ReplaceByNewNode
    REPLACE,        // ReplaceNode, by a sketch
    INSERT_LEFT,    // InsertNodeAbove: the node goes to the left of the new one,
    INSERT_RIGHT,   // to the right,
    INSERT_NOWHERE  // to neither side
};

struct CEditCase
{
    const char* pszTree;
    const char* pszNode;  // L and R from the root
    EEdit nEdit;
    const char* pszNew;
    const char* pszEdited;
};

CNode* Edit(CBinTree& tree, CNode* pNode, const CEditCase& edit)
{
    if (edit.nEdit == CHANGE)
        return tree.ChangeNodeType(pNode, edit.pszNew);
    if (edit.nEdit == RENEW)
        return tree.ReplaceByNewNode(pNode, edit.pszNew);
    if (edit.nEdit >= INSERT_LEFT)
    {
        const int nSide = edit.nEdit - INSERT_LEFT + 1;
        return tree.InsertNodeAbove(pNode->GetParent(), pNode, edit.pszNew, nSide);
    }
    CBinTree other;
    CNode* pNew = MakeTree(other, edit.pszNew);
    other.SetRootNode(nullptr);
    tree.ReplaceNode(pNode, pNew);
    return pNew;
}

}  // namespace

TEST(TreeEditing, ChangesTheNodeAndKeepsTheSelection)
{
    // clang-format off
    const CEditCase aCases[] = {
        { "(STANDARD (PLACEHOLDER - -) -)",           "L",  CHANGE, "NT_VARIABLE",    "(STANDARD var -)" },
        { "(STANDARD (PLUS a b) -)",                  "L",  CHANGE, "NT_SUM",         "(STANDARD (SUM a b) -)" },
        { "(STANDARD a -)",                           "",   CHANGE, "NT_PLUS",        "(PLUS a -)" },
        { "(STANDARD (SUM (RANGE - i) n) -)",         "L",  RENEW,  "NT_PLACEHOLDER", "(STANDARD (PLACEHOLDER - -) -)" },
        { "(STANDARD a (POWERTO b c))",               "RR", RENEW,  "NT_NUMBER",      "(STANDARD a (POWERTO b (NUMBER - -)))" },
        { "(STANDARD (PLUS (PLUS a b) c) -)",         "LL", REPLACE, "(DIVISION x y)", "(STANDARD (PLUS (DIVISION x y) c) -)" },
        { "(STANDARD (PLUS a b) -)", "LR", INSERT_LEFT,     "NT_DIVISION", "(STANDARD (PLUS a (DIVISION b -)) -)" },
        { "(STANDARD (PLUS a b) -)", "LR", INSERT_RIGHT,    "NT_ROOT",     "(STANDARD (PLUS a (ROOT - b)) -)" },
        { "(STANDARD (PLUS a b) -)", "LR", INSERT_NOWHERE,  "NT_SUM",      "(STANDARD (PLUS a (SUM - -)) -)" },
    };
    // clang-format on
    for (const CEditCase& edit : aCases)
    {
        for (const bool bSelected : { true, false })
        {
            SCOPED_TRACE(edit.pszEdited);
            CBinTree tree;
            CNode* pNode = NodeAt(MakeTree(tree, edit.pszTree), edit.pszNode);
            const bool bTop = pNode == tree.GetRootNode();
            CNode* pSelected = bSelected || bTop ? pNode : tree.GetRootNode();
            tree.SetSelection(pSelected, 2);
            CNode* pNew = Edit(tree, pNode, edit);
            ExpectTree(tree, edit.pszEdited);
            EXPECT_EQ(pNew, NodeAt(tree.GetRootNode(), edit.pszNode));
            const bool bMoves = pSelected == pNode && edit.nEdit < INSERT_LEFT;
            EXPECT_EQ(tree.GetSelection(), bMoves ? pNew : pSelected);
            EXPECT_EQ(tree.GetSelectionMode(), 2);
            if (edit.nEdit == INSERT_NOWHERE)
                tree.DeleteSubtree(pNode);
        }
    }
}

TEST(TreeEditing, ChangesNothingWhereThereIsNothingToReplace)
{
    CBinTree tree;
    CNode* pRoot = MakeTree(tree, "(STANDARD a -)");
    const std::unique_ptr<CNode> pStray(tree.CreateNode("NT_NUMBER"));
    tree.ReplaceNode(nullptr, pStray.get());
    EXPECT_EQ(tree.GetSelection(), nullptr);
    EXPECT_EQ(tree.ReplaceByNewNode(pRoot, "NT_PLACEHOLDER"), nullptr);
    EXPECT_EQ(tree.GetRootNode(), pRoot);
    ExpectTree(tree, "(STANDARD a -)");
}
