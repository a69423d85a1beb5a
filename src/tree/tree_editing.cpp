// The operations that change the shape of a tree. What leaves the tree is deleted, what enters it
// is the tree's; nothing outside the moved part is formatted anew.
#include "tree/bin_tree.h"

#include <memory>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "platform/base/deep_call.h"

namespace
{

constexpr int s_nSideLeft = 1;
constexpr int s_nSideRight = 2;

bool BindsMoreLoosely(CNode* pChild, CNode* pNode)
{
    return pChild != nullptr && pChild->GetPriority() > pNode->GetPriority();
}

// Gives a child to a new node, in the place of what the node's constructor has made there.
void GiveLeft(CNode* pNode, CNode* pChild)
{
    delete pNode->GetLeft();
    pNode->SetLeft(pChild);
}

void GiveRight(CNode* pNode, CNode* pChild)
{
    delete pNode->GetRight();
    pNode->SetRight(pChild);
}

}  // namespace

// The new node goes in first: links do not delete what they replace.
void CBinTree::ReplaceChild(CNode* pParent, CNode* pOld, CNode* pNew)
{
    if (pParent == nullptr && pOld == m_pRoot)
        m_pRoot = pNew;
    else if (pParent != nullptr && pParent->GetLeft() == pOld)
        pParent->SetLeft(pNew);
    else if (pParent != nullptr && pParent->GetRight() == pOld)
        pParent->SetRight(pNew);
}

CNode* CBinTree::ChangeNodeType(CNode* pNode, CString strType)
{
    CNode* pParent = FindParent(pNode);
    CNode* pNew = CreateNode(strType);
    CNode* pLeft = pNode->GetLeft();
    CNode* pRight = pNode->GetRight();
    pNode->SetLeft(nullptr);
    pNode->SetRight(nullptr);
    GiveLeft(pNew, pLeft);
    GiveRight(pNew, pRight);
    ReplaceChild(pParent, pNode, pNew);
    if (m_pSelected == pNode)
        m_pSelected = pNew;
    delete pNode;
    return pNew;
}

void CBinTree::ReplaceNode(CNode* pOld, CNode* pNew)
{
    ReplaceChild(FindParent(pOld), pOld, pNew);
    if (pOld != nullptr && m_pSelected == pOld)
        m_pSelected = pNew;
    DeleteSubtree(pOld);
}

CNode* CBinTree::ReplaceByNewNode(CNode* pNode, CString strType)
{
    CNode* pParent = FindParent(pNode);
    if (pParent == nullptr)
        return nullptr;
    CNode* pNew = CreateNode(strType);
    ReplaceChild(pParent, pNode, pNew);
    if (m_pSelected == pNode)
        m_pSelected = pNew;
    DeleteSubtree(pNode);
    return pNew;
}

CNode* CBinTree::InsertNodeAbove(CNode* pParent, CNode* pChild, CString strType, int nSide)
{
    CNode* pNew = CreateNode(strType);
    ReplaceChild(pParent, pChild, pNew);
    if (nSide == s_nSideLeft)
        GiveLeft(pNew, pChild);
    else if (nSide == s_nSideRight)
        GiveRight(pNew, pChild);
    return pNew;
}

void CBinTree::SortByPriority(CNode* pNode)
{
    SortBelow(pNode, false);
}

// A rotated part takes the default format. It is formatted once, when nothing in it moves any
// more, by the outermost call that rotates.
void CBinTree::SortBelow(CNode* pNode, bool bFormatLater)
{
    Descend(
        [&]
        {
            CNode* const pParent = pNode->GetParent();
            bool bRotated = false;
            if (pParent != nullptr && BindsMoreLoosely(pNode->GetLeft(), pNode))
            {
                RotateLeftChildUp(pNode, pNode->GetLeft());
                bRotated = true;
            }
            if (pParent != nullptr && BindsMoreLoosely(pNode->GetRight(), pNode))
            {
                RotateRightChildUp(pNode, pNode->GetRight());
                bRotated = true;
            }
            if (pNode->GetLeft() != nullptr)
                SortBelow(pNode->GetLeft(), bFormatLater || bRotated);
            if (pNode->GetRight() != nullptr)
                SortBelow(pNode->GetRight(), bFormatLater || bRotated);
            if (bRotated && !bFormatLater)
                pParent->GetRight()->ApplyFormat(&g_DefaultFormat);
        });
}

void CBinTree::RotateLeftChildUp(CNode* pNode, CNode* pChild)
{
    pNode->LinkLeft(pChild->GetRight());
    AttachAbove(pNode, pChild);
}

void CBinTree::RotateRightChildUp(CNode* pNode, CNode* pChild)
{
    pNode->LinkRight(pChild->GetRight());
    AttachAbove(pNode, pChild);
}

// Puts pChild above pNode, always on the right side of the parent, whichever side pNode was on.
void CBinTree::AttachAbove(CNode* pNode, CNode* pChild)
{
    CNode* pParent = pNode->GetParent();
    if (pParent->GetLeft() == pNode)
    {
        pParent->LinkLeft(nullptr);
        if (m_pSelected != nullptr && m_pSelected->IsWithin(pParent->GetRight()))
            m_pSelected = nullptr;
        delete pParent->GetRight();
    }
    pParent->LinkRight(pChild);
    pChild->LinkRight(pNode);
}
