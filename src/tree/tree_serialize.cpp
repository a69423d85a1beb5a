// The archive form of a tree: rectangle, name, and the root's type in front of its record.
#include "tree/bin_tree.h"

#include <memory>

#include "format/tree_format.h"
#include "nodes/node.h"
#include "platform/base/archive.h"

namespace
{

constexpr LONG s_nEmptyMark = 0;  // stands in the place of type and record

void StoreRect(CArchive& ar, const CRect& rect)
{
    ar << rect.left << rect.top << rect.right << rect.bottom;
}

CRect LoadRect(CArchive& ar)
{
    CRect rect;
    ar >> rect.left >> rect.top >> rect.right >> rect.bottom;
    return rect;
}

}  // namespace

void CBinTree::Serialize(CArchive& ar)
{
    m_pSelected = nullptr;
    if (ar.IsLoading())
    {
        LoadTree(ar);
        return;
    }
    StoreRect(ar, m_rectFormula);
    ar << m_strName;
    if (m_pRoot == nullptr)
    {
        ar << s_nEmptyMark;
        return;
    }
    ar << m_pRoot->m_strType;
    m_pRoot->SerializeNode(ar, this);
}

// A load that fails half way is rolled back whole: all is read into new objects, and the tree's own
// rectangle, name and nodes are replaced only when nothing can fail any more. The empty type name
// of an empty tree is the first byte of its mark; the other three stay unread.
void CBinTree::LoadTree(CArchive& ar)
{
    const CRect rect = LoadRect(ar);
    CString strName;
    CString strType;
    ar >> strName >> strType;
    if (!strType.IsEmpty())
    {
        std::unique_ptr<CNode> pRoot(CreateStoredNode(strType));
        pRoot->ApplyFormat(&g_DefaultFormat);
        pRoot->SerializeNode(ar, this);
        DeleteContents();
        m_pRoot = pRoot.release();
    }
    m_rectFormula = rect;
    m_strName = strName;
}
