// The base of the node family: making, linking, formatting and deleting nodes.
#include "nodes/node.h"

#include <algorithm>
#include <cstring>

#include "format/tree_format.h"
#include "platform/base/deep_call.h"
#include "platform/gdi/gdi.h"

IMPLEMENT_DYNAMIC(CNode, CObject)

const int g_nOwnGap = 2;
int g_nTimesGap = 2;

namespace
{
// Italic until a format says otherwise; the height is the default format's.
constexpr LOGFONTA s_newFont = { 0, 0, 0, 0, 400, 1, 0, 0, 0, 2, 1, 4, 0x50, "Times New Roman" };

// Turns the tree into a chain of right children, node by node as it goes, and deletes from its
// head: no recursion and no memory, whatever the depth.
void DeleteTree(CNode* p)
{
    while (p != nullptr)
    {
        if (CNode* pLeft = p->m_pLeft)
        {
            p->m_pLeft = pLeft->m_pRight;
            pLeft->m_pRight = p;
            p = pLeft;
        }
        else
        {
            CNode* pNext = p->m_pRight;
            p->m_pRight = nullptr;
            delete p;
            p = pNext;
        }
    }
}
}  // namespace

CNode::CNode() : CNode(NTI_STANDARD) {}

CNode::CNode(ENodeType nType)
    : m_pParent(nullptr),
      m_pLeft(nullptr),
      m_pRight(nullptr),
      m_nBaseline(0),
      m_colour(GetSysColor(COLOR_WINDOWTEXT)),
      m_logFont(s_newFont)
{
    const CNodeType& data = NodeTypeData(nType);
    m_nPriority = data.nPriority;
    m_nFlags = data.nFlags;
    m_nLevel = 0;
    m_nLeftLevelStep = data.nLeftLevelStep;
    m_nRightLevelStep = data.nRightLevelStep;
    m_strSymbol = data.strSymbol;
    m_strDescription = data.strDescription;
    m_strTextOwn[0] = data.strTextOwn;
    m_strTextFormat[0] = data.strTextFormat;
    m_logFont.lfHeight = g_DefaultFormat.GetHeight(0);
}

CNode::~CNode()
{
    DeleteTree(m_pLeft);
    DeleteTree(m_pRight);
}

void CNode::CopyAttributes(CNode* pSource)
{
    m_nPriority = pSource->GetPriority();
    m_nFlags = pSource->m_nFlags;
    m_nLevel = pSource->m_nLevel;
    m_nLeftLevelStep = pSource->m_nLeftLevelStep;
    m_nRightLevelStep = pSource->m_nRightLevelStep;
    m_strType = pSource->m_strType;
    m_strSymbol = pSource->m_strSymbol;
    m_strDescription = pSource->m_strDescription;
    m_colour = pSource->m_colour;
    m_rect = pSource->m_rect;
    m_nBaseline = pSource->m_nBaseline;
    m_logFont = pSource->m_logFont;
}

int CNode::GetPriority()
{
    return m_nPriority;
}

BOOL CNode::IsLeaf()
{
    return m_pLeft == nullptr && m_pRight == nullptr;
}

void CNode::ApplyFormat(CBinTreeFormat* pFormat)
{
    Descend(
        [&]
        {
            if (m_pLeft != nullptr)
            {
                m_pLeft->m_nLevel = WrapAdd(m_nLevel, m_nLeftLevelStep);
                m_pLeft->ApplyFormat(pFormat);
            }
            if (m_pRight != nullptr)
            {
                m_pRight->m_nLevel = WrapAdd(m_nLevel, m_nRightLevelStep);
                m_pRight->ApplyFormat(pFormat);
            }
            ApplyRecord(pFormat);
        });
}

void CNode::ApplyRecord(CBinTreeFormat* pFormat)
{
    const CFormatInfoOb* pRecord = pFormat->FindRecord(m_strType);
    if (pRecord == nullptr)
        return;
    SetFontName(pRecord->m_strFontName);
    m_colour = pRecord->m_crColour;
    SetBold(pRecord->m_Style[0]);
    SetItalic(pRecord->m_Style[1]);
    m_logFont.lfCharSet = pRecord->m_nCharSet;
    m_logFont.lfHeight = pFormat->GetHeight(m_nLevel);
}

void CNode::SetLeft(CNode* p)
{
    LinkLeft(p);
    if (p != nullptr)
        p->ApplyFormat(&g_DefaultFormat);
}

void CNode::SetRight(CNode* p)
{
    LinkRight(p);
    if (p != nullptr)
        p->ApplyFormat(&g_DefaultFormat);
}

void CNode::LinkLeft(CNode* p)
{
    m_pLeft = p;
    if (p != nullptr)
    {
        p->m_pParent = this;
        p->m_nLevel = WrapAdd(m_nLevel, m_nLeftLevelStep);
    }
}

void CNode::LinkRight(CNode* p)
{
    m_pRight = p;
    if (p != nullptr)
    {
        p->m_pParent = this;
        p->m_nLevel = WrapAdd(m_nLevel, m_nRightLevelStep);
    }
}

void CNode::SetFontName(CString strName)
{
    // Zeros behind the name, as equal fonts are to have equal bytes.
    std::strncpy(m_logFont.lfFaceName, strName, LF_FACESIZE - 1);
    m_logFont.lfFaceName[LF_FACESIZE - 1] = '\0';
}

BOOL CNode::IsSameDescription(const CNode* p) const
{
    return m_strDescription.Compare(p->m_strDescription) == 0;
}

bool CNode::IsWithin(const CNode* pTop) const
{
    const CNode* pNode = this;
    while (pNode != nullptr && pNode != pTop)
        pNode = pNode->GetParent();
    return pNode != nullptr;
}

CNode* CNode::FindParentOf(const CNode* p)
{
    if (p == nullptr)
        return nullptr;
    return Descend(
        [&]() -> CNode*
        {
            if (m_pLeft == p || m_pRight == p)
                return this;
            CNode* pFound = m_pLeft != nullptr ? m_pLeft->FindParentOf(p) : nullptr;
            if (pFound == nullptr && m_pRight != nullptr)
                pFound = m_pRight->FindParentOf(p);
            return pFound;
        });
}
