// Builds a tree from a sketch: (TYPE left right), a word for a variable, - for no node. Compares
// one with a sketch.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "nodes/node.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

class CTreeMaker
{
public:
    CTreeMaker(CBinTree& tree, std::string_view strSketch) : m_tree(tree), m_strRest(strSketch) {}

    CNode* Next()
    {
        SkipBlanks();
        if (m_strRest.front() != '(')
            return Leaf(Word());
        m_strRest.remove_prefix(1);
        CNode* pNode = m_tree.CreateNode(("NT_" + Word()).c_str());
        // A big operator keeps the range that its constructor made, and gets what stands first in
        // the sketch as its lower limit.
        CNode* pLeft = Next();
        if (pNode->GetLeft() != nullptr)
            pNode->GetLeft()->SetRight(pLeft);
        else
            pNode->SetLeft(pLeft);
        pNode->SetRight(Next());
        SkipBlanks();
        m_strRest.remove_prefix(1);
        return pNode;
    }

private:
    void SkipBlanks() { m_strRest.remove_prefix(m_strRest.find_first_not_of(' ')); }

    std::string Word()
    {
        const std::string strWord(m_strRest.substr(0, m_strRest.find_first_of(" )")));
        m_strRest.remove_prefix(strWord.size());
        return strWord;
    }

    CNode* Leaf(const std::string& strWord)
    {
        if (strWord == "-")
            return nullptr;
        CNode* pNode = m_tree.CreateNode("NT_VARIABLE");
        pNode->SetSymbol(strWord.c_str());
        return pNode;
    }

    CBinTree& m_tree;
    std::string_view m_strRest;
};

// Makes the sketch the content of a tree and returns its root.
inline CNode* MakeTree(CBinTree& tree, std::string_view strSketch)
{
    tree.DeleteContents();
    tree.SetRootNode(CTreeMaker(tree, strSketch).Next());
    return tree.GetRootNode();
}

inline CString Form(const CBinTree& tree)
{
    return TreeForm(tree.GetRootNode());
}

// Whether links and levels below a node are what they would be had the tree been built in one go.
inline void ExpectLinks(CNode* pNode, CNode* pExpected)
{
    EXPECT_EQ(pNode->GetLevel(), pExpected->GetLevel());
    EXPECT_EQ(pNode->GetLogFont()->lfHeight, pExpected->GetLogFont()->lfHeight);
    EXPECT_EQ(pNode->GetFontName(), pExpected->GetFontName());
    for (auto side : { &CNode::m_pLeft, &CNode::m_pRight })
    {
        if (CNode* pChild = pNode->*side)
        {
            EXPECT_EQ(pChild->GetParent(), pNode);
            ExpectLinks(pChild, pExpected->*side);
        }
    }
}

inline void ExpectTree(const CBinTree& tree, std::string_view strSketch)
{
    CBinTree expected;
    MakeTree(expected, strSketch);
    ASSERT_STREQ(Form(tree), Form(expected));
    ExpectLinks(tree.GetRootNode(), expected.GetRootNode());
}
