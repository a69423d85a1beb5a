// The tree object: making nodes, handing jobs on to the root, copying and generated text.
#include "tree/bin_tree.h"

#include <algorithm>
#include <memory>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "platform/base/deep_call.h"
#include "platform/base/exception.h"
#include "platform/gdi/dc.h"
#include "tree/node_factory.h"

namespace
{

constexpr int s_nUndoLevels = 4;
constexpr int s_nUndoGrowSize = 32768;  // bytes

// FORTRAN lines: six columns ahead of the text, and a mark in the sixth of a continuation line.
constexpr const char* s_pszFirstLine = "      ";
constexpr const char* s_pszNextLine = "\r\n     +";
constexpr int s_nFirstLine = 60;  // characters, with the six columns
constexpr int s_nNextLine = 59;   // characters behind the mark
constexpr int s_nFormFortran = 0;

CString BreakLines(const CString& strText)
{
    const int nLength = strText.GetLength();
    if (nLength <= s_nFirstLine)
        return strText;
    CString strLines = strText.Left(s_nFirstLine);
    for (int i = s_nFirstLine; i < nLength; i += s_nNextLine)
    {
        strLines += s_pszNextLine;
        strLines.Append(strText.GetString() + i, std::min(s_nNextLine, nLength - i));
    }
    return strLines;
}

// Deletes what the constructor of the new node has put on a side, and puts the copy there.
template <CNode* CNode::*Side, void (CNode::*Link)(CNode*)>
void LinkCopy(CNode* pNew, CNode* pCopy)
{
    delete (pNew->*Side);
    (pNew->*Link)(pCopy);
}

// What is linked here is not formatted below the top.
std::unique_ptr<CNode> CopyNodes(CNode* pNode, bool bDeep)
{
    return Descend(
        [&]
        {
            std::unique_ptr<CNode> pNew(MakeNode(pNode->m_strType));
            pNew->ApplyFormat(&g_DefaultFormat);  // for the children that stay
            pNew->CopyAttributes(pNode);
            if (bDeep && pNode->GetLeft() != nullptr)
            {
                LinkCopy<&CNode::m_pLeft, &CNode::LinkLeft>(
                    pNew.get(), CopyNodes(pNode->GetLeft(), true).release());
            }
            if (bDeep && pNode->GetRight() != nullptr)
            {
                LinkCopy<&CNode::m_pRight, &CNode::LinkRight>(
                    pNew.get(), CopyNodes(pNode->GetRight(), true).release());
            }
            return pNew;
        });
}

}  // namespace

IMPLEMENT_SERIAL(CBinTree, CObject, 1)

CBinTree::CBinTree()
    : CUndo(s_nUndoLevels, s_nUndoGrowSize),
      m_rectFormula(0, 0, 50, 20),
      m_pRoot(nullptr),
      m_pSelected(nullptr),
      m_nSelectionMode(0)
{
}

CBinTree::~CBinTree()
{
    delete m_pRoot;
}

CNode* CBinTree::CreateNode(CString strType)
{
    std::unique_ptr<CNode> pNode(MakeNode(strType));
    pNode->ApplyFormat(&g_DefaultFormat);
    return pNode.release();
}

CNode* CBinTree::CreateBareNode(ENodeType nType)
{
    return MakeNode(nType);
}

CNode* CBinTree::CreateStoredNode(const CString& strType)
{
    const ENodeType nType = FindNodeType(strType);
    if (nType == NTI_COUNT)
        AfxThrowArchiveException(CArchiveException::badClass);
    return MakeNode(nType);
}

CNode* CBinTree::CreateRootNode(CString strType)
{
    m_pRoot = CreateNode(strType);
    return m_pRoot;
}

void CBinTree::DeleteContents()
{
    delete m_pRoot;
    m_pRoot = nullptr;
}

void CBinTree::Draw(CDC* pDC, CRect rect)
{
    pDC->SetBkMode(TRANSPARENT);
    if (m_pRoot != nullptr)
        m_pRoot->Paint(pDC, rect, m_pSelected, m_nSelectionMode);
}

CRect CBinTree::MeasureTree(CDC* pDC)
{
    return m_pRoot != nullptr ? m_pRoot->Measure(pDC) : CRect(0, 0, 0, 0);
}

CNode* CBinTree::HitTestNode(CDC* pDC, CRect* pRect, CPoint point)
{
    return m_pRoot != nullptr ? m_pRoot->HitTest(pDC, *pRect, point) : nullptr;
}

void CBinTree::Reformat(CBinTreeFormat* pFormat)
{
    if (m_pRoot != nullptr)
        m_pRoot->ApplyFormat(pFormat != nullptr ? pFormat : &g_DefaultFormat);
}

void CBinTree::SetSelection(CNode* pNode, int nMode)
{
    m_pSelected = pNode;
    m_nSelectionMode = nMode;
}

void CBinTree::DeleteSubtree(CNode* pNode)
{
    delete pNode;
}

void CBinTree::CopyFrom(const CBinTree& other)
{
    DeleteContents();
    m_pSelected = nullptr;
    m_pRoot = CopySubtree(other.GetRootNode(), 1);
    m_strName = other.m_strName;
    Reformat(nullptr);
}

// The top keeps the source's format, as a node does that is linked nowhere yet; what hangs below
// it takes the default format.
CNode* CBinTree::CopySubtree(CNode* pNode, int bDeep)
{
    if (pNode == nullptr)
        return nullptr;
    std::unique_ptr<CNode> pCopy = CopyNodes(pNode, bDeep != 0);
    for (CNode* pChild : { pCopy->GetLeft(), pCopy->GetRight() })
    {
        if (pChild != nullptr)
            pChild->ApplyFormat(&g_DefaultFormat);
    }
    return pCopy.release();
}

CNode* CBinTree::FindParent(CNode* pNode)
{
    return m_pRoot != nullptr ? m_pRoot->FindParentOf(pNode) : nullptr;
}

CString CBinTree::GetFormulaText(int nForm)
{
    if (nForm < 0 || nForm >= TEXT_FORMS)
        AfxThrowInvalidArgException();
    CString strText(s_pszFirstLine);
    if (m_pRoot != nullptr)
        strText += m_pRoot->MakeText(nForm);
    return nForm == s_nFormFortran ? BreakLines(strText) : strText;
}
