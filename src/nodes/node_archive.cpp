// The archive form of a node and all below it. A loaded node's children come from the tree's
// factory: the one place where this layer knows the one above.
#include "nodes/node_archive.h"

#include <cstring>

#include "format/tree_format.h"
#include "nodes/layout_pass.h"
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

// The name of a face in the form of a string, without making one.
void StoreFace(CArchive& ar, const char* pszFace)
{
    const auto nLength = static_cast<BYTE>(std::strlen(pszFace));
    ar << nLength;
    ar.Write(pszFace, nLength);
}

void LoadFont(CNode& node, CArchive& ar)
{
    CString strFace;
    int nItalic = 0;
    int nBold = 0;
    ar >> strFace >> nItalic >> nBold;
    node.SetFontName(strFace);
    node.SetItalic(nItalic);
    node.SetBold(nBold);
}

// A link of a loaded node formats what hangs below it; in the end the outermost link decides for
// all, so that only that one does it. Nodes that are not linked by it keep the stored face.
void FormatLinked(CNode* pChild)
{
    if (pChild != nullptr && (s_nFormats == 0 || CLayoutPass::s_bPlainRecursion))
        pChild->ApplyFormat(&g_DefaultFormat);
}
}  // namespace

void CNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    if (ar.IsStoring())
    {
        StoreChild(ar, pTree, m_pLeft);
        StoreChild(ar, pTree, m_pRight);
        StoreCommon(*this, ar);
        StoreFace(ar, m_logFont.lfFaceName);
        ar << IsItalic() << IsBold();
        return;
    }
    std::unique_ptr<CNode> pLeft = LoadChild(ar, pTree);
    std::unique_ptr<CNode> pRight = LoadChild(ar, pTree);
    LoadCommon(*this, ar);
    LinkLoadedLeft(*this, std::move(pLeft));
    LinkLoadedRight(*this, std::move(pRight));
    LoadFont(*this, ar);
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

std::unique_ptr<CNode> LoadChild(CArchive& ar, CBinTree* pTree)
{
    CString strType;
    ar >> strType;
    if (strType.IsEmpty())
        return nullptr;
    std::unique_ptr<CNode> pChild(pTree->CreateStoredNode(strType));
    if (CLayoutPass::s_bPlainRecursion)
        pChild->ApplyFormat(&g_DefaultFormat);
    const CCountScope format(s_nFormats);
    LoadRecord(*pChild, ar, pTree);
    return pChild;
}

void LoadRecord(CNode& node, CArchive& ar, CBinTree* pTree)
{
    if (s_nLevel == s_nMaxLevels)
        AfxThrowArchiveLimitException();
    const CCountScope level(s_nLevel);
    Descend([&] { node.SerializeNode(ar, pTree); });
}

void StoreCommon(const CNode& node, CArchive& ar)
{
    ar << node.m_nFlags << node.m_nPriority << node.m_nLevel;
    ar << node.m_nLeftLevelStep << node.m_nRightLevelStep;
    ar << node.m_strType << node.m_strSymbol << node.m_strDescription << node.m_colour;
    const CRect& rect = node.m_rect;
    ar << rect.left << rect.top << rect.right << rect.bottom << node.m_nBaseline;
}

void LoadCommon(CNode& node, CArchive& ar)
{
    ar >> node.m_nFlags >> node.m_nPriority >> node.m_nLevel;
    ar >> node.m_nLeftLevelStep >> node.m_nRightLevelStep;
    CString strType = node.m_strType;
    ar >> strType;
    const ENodeType nType = FindNodeType(strType);
    if (nType == NTI_COUNT)
        AfxThrowArchiveException(CArchiveException::badClass);
    node.m_strType = NodeTypeName(nType);
    ar >> node.m_strSymbol >> node.m_strDescription >> node.m_colour;
    CRect& rect = node.m_rect;
    ar >> rect.left >> rect.top >> rect.right >> rect.bottom >> node.m_nBaseline;
}

void LinkLoadedLeft(CNode& node, std::unique_ptr<CNode> pLeft)
{
    delete node.m_pLeft;
    node.m_pLeft = nullptr;
    node.LinkLeft(pLeft.release());
    FormatLinked(node.m_pLeft);
}

void LinkLoadedRight(CNode& node, std::unique_ptr<CNode> pRight)
{
    delete node.m_pRight;
    node.m_pRight = nullptr;
    node.LinkRight(pRight.release());
    FormatLinked(node.m_pRight);
}
