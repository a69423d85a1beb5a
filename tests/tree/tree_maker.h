// Trees made from sketches (gallery/sketch.h), and compared with them.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "gallery/sketch.h"
#include "nodes/node.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

// Makes the sketch the content of a tree and returns its root.
inline CNode* MakeTree(CBinTree& tree, const std::string& strSketch)
{
    BuildTree(tree, strSketch);
    return tree.GetRootNode();
}

inline CString Form(const CBinTree& tree)
{
    return TreeForm(tree.GetRootNode());
}

// The node that L and R lead to from another one.
inline CNode* NodeAt(CNode* pNode, const char* pszPath)
{
    for (; *pszPath != 0; ++pszPath)
        pNode = *pszPath == 'L' ? pNode->GetLeft() : pNode->GetRight();
    return pNode;
}

// Whether parent links, levels and fonts below a node are those of a tree that is built in one go.
inline void ExpectLinks(const CNode* pNode, const CNode* pExpected)
{
    EXPECT_EQ(pNode->GetLevel(), pExpected->GetLevel());
    EXPECT_EQ(pNode->GetLogFont()->lfHeight, pExpected->GetLogFont()->lfHeight);
    EXPECT_EQ(pNode->GetFontName(), pExpected->GetFontName());
    for (auto side : { &CNode::m_pLeft, &CNode::m_pRight })
    {
        if (const CNode* pChild = pNode->*side)
        {
            EXPECT_EQ(pChild->GetParent(), pNode);
            ExpectLinks(pChild, pExpected->*side);
        }
    }
}

inline void ExpectTree(const CBinTree& tree, const std::string& strSketch)
{
    CBinTree expected;
    MakeTree(expected, strSketch);
    ASSERT_STREQ(Form(tree), Form(expected));
    ExpectLinks(tree.GetRootNode(), expected.GetRootNode());
}
