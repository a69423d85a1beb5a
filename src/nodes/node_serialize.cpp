// The archive form of a node and all below it. A loaded node's children come from the tree's
// factory: the one place where this layer knows the one above.
#include <cstring>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/deep_call.h"
#include "platform/base/exception.h"
#include "tree/bin_tree.h"

namespace
{
// No text makes a deeper tree.
constexpr int s_nMaxLevels = 65535;

int s_nLevel = 0;    // records around the one that is being loaded
int s_nFormats = 0;  // of them those that format it when they link it

class CCountScope
{
public:
    explicit CCountScope(int& nCount) : m_nCount(nCount) { ++m_nCount; }
    ~CCountScope() { --m_nCount; }
    CCountScope(const CCountScope&) = delete;
    CCountScope& operator=(const CCountScope&) = delete;

private:
    int& m_nCount;
};

void LoadBelow(CNode& node, CArchive& ar, CBinTree* pTree)
{
    if (s_nLevel == s_nMaxLevels)
        AfxThrowArchiveLimitException();
    const CCountScope level(s_nLevel);
    Descend([&] { node.SerializeNode(ar, pTree); });
}

// A type name and, if it is not empty, the record behind it.
std::unique_ptr<CNode> LoadChild(CArchive& ar, CBinTree* pTree)
{
    CString strType;
    ar >> strType;
    if (strType.IsEmpty())
        return nullptr;
    std::unique_ptr<CNode> pChild(pTree->CreateStoredNode(strType));
    if (CNode::s_bPlainRecursion)
        pChild->ApplyFormat(&g_DefaultFormat);
    const CCountScope format(s_nFormats);
    LoadBelow(*pChild, ar, pTree);
    return pChild;
}

void StoreChild(CArchive& ar, CBinTree* pTree, CNode* pChild)
{
    const CString strType = pChild != nullptr ? pChild->GetTypeName() : CString();
    ar << strType;
    if (!strType.IsEmpty())
    {
        Descend([&] { pChild->SerializeNode(ar, pTree); });
    }
}

// The name of a face in the form of a string, without making one.
void StoreFace(CArchive& ar, const char* pszFace)
{
    const auto nLength = static_cast<BYTE>(std::strlen(pszFace));
    ar << nLength;
    ar.Write(pszFace, nLength);
}
}  // namespace

void CNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    if (ar.IsStoring())
    {
        StoreChildren(ar, pTree);
        StoreCommon(ar);
        StoreFace(ar, m_logFont.lfFaceName);
        ar << IsItalic() << IsBold();
        return;
    }
    std::unique_ptr<CNode> pLeft = LoadChild(ar, pTree);
    std::unique_ptr<CNode> pRight = LoadChild(ar, pTree);
    LoadCommon(ar);
    LinkLoadedLeft(std::move(pLeft));
    LinkLoadedRight(std::move(pRight));
    LoadFont(ar);
}

void CNode::SerializeBigOperator(CArchive& ar, CBinTree* pTree, int* pKind)
{
    if (ar.IsStoring())
    {
        StoreChildren(ar, pTree);
        StoreCommon(ar);
        if (pKind != nullptr)
            ar << *pKind;
        return;
    }
    if (m_pLeft == nullptr)
        LinkLoadedLeft(LoadChild(ar, pTree));
    else
        LoadRange(ar, pTree);
    std::unique_ptr<CNode> pRight = LoadChild(ar, pTree);
    LoadCommon(ar);
    if (pKind != nullptr)
        ar >> *pKind;
    LinkLoadedRight(std::move(pRight));
}

// Whatever type the archive names, the record is read into the range that is there. It is not
// linked anew, and so not formatted by this node.
void CNode::LoadRange(CArchive& ar, CBinTree* pTree)
{
    CString strType;
    ar >> strType;
    if (!strType.IsEmpty())
        LoadBelow(*m_pLeft, ar, pTree);
}

void CNode::StoreChildren(CArchive& ar, CBinTree* pTree) const
{
    StoreChild(ar, pTree, m_pLeft);
    StoreChild(ar, pTree, m_pRight);
}

void CNode::StoreCommon(CArchive& ar) const
{
    ar << m_nFlags << m_nPriority << m_nLevel << m_nLeftLevelStep << m_nRightLevelStep;
    ar << m_strType << m_strSymbol << m_strDescription << m_colour;
    ar << m_rect.left << m_rect.top << m_rect.right << m_rect.bottom << m_nBaseline;
}

void CNode::LoadCommon(CArchive& ar)
{
    ar >> m_nFlags >> m_nPriority >> m_nLevel >> m_nLeftLevelStep >> m_nRightLevelStep;
    CString strType = m_strType;
    ar >> strType;
    const ENodeType nType = FindNodeType(strType);
    if (nType == NTI_COUNT)
        AfxThrowArchiveException(CArchiveException::badClass);
    m_strType = NodeTypeName(nType);
    ar >> m_strSymbol >> m_strDescription >> m_colour;
    ar >> m_rect.left >> m_rect.top >> m_rect.right >> m_rect.bottom >> m_nBaseline;
}

void CNode::LoadFont(CArchive& ar)
{
    CString strFace;
    int nItalic = 0;
    int nBold = 0;
    ar >> strFace >> nItalic >> nBold;
    SetFontName(strFace);
    SetItalic(nItalic);
    SetBold(nBold);
}

// A link of a loaded node formats what hangs below it; in the end the outermost link decides for
// all, so that only that one does it. Nodes that are not linked by it keep the stored face.
void CNode::LinkLoadedLeft(std::unique_ptr<CNode> pLeft)
{
    delete m_pLeft;
    m_pLeft = nullptr;
    LinkLeft(pLeft.release());
    if (m_pLeft != nullptr && (s_nFormats == 0 || s_bPlainRecursion))
        m_pLeft->ApplyFormat(&g_DefaultFormat);
}

void CNode::LinkLoadedRight(std::unique_ptr<CNode> pRight)
{
    delete m_pRight;
    m_pRight = nullptr;
    LinkRight(pRight.release());
    if (m_pRight != nullptr && (s_nFormats == 0 || s_bPlainRecursion))
        m_pRight->ApplyFormat(&g_DefaultFormat);
}
