// The archive form of sums, products and integrals.
#include "nodes/big_operator_archive.h"

#include "nodes/node_archive.h"
#include "platform/base/archive.h"

namespace
{
// Whatever type the archive names, the record is read into the range that is there. It is not
// linked anew, and so not formatted by this node.
void LoadRange(CNode& range, CArchive& ar, CBinTree* pTree)
{
    CString strType;
    ar >> strType;
    if (!strType.IsEmpty())
        LoadRecord(range, ar, pTree);
}
}  // namespace

void SerializeBigOperator(CNode& node, CArchive& ar, CBinTree* pTree, int* pKind)
{
    if (ar.IsStoring())
    {
        StoreChild(ar, pTree, node.m_pLeft);
        StoreChild(ar, pTree, node.m_pRight);
        StoreCommon(node, ar);
        if (pKind != nullptr)
            ar << *pKind;
        return;
    }
    if (node.m_pLeft == nullptr)
        LinkLoadedLeft(node, LoadChild(ar, pTree));
    else
        LoadRange(*node.m_pLeft, ar, pTree);
    std::unique_ptr<CNode> pRight = LoadChild(ar, pTree);
    LoadCommon(node, ar);
    if (pKind != nullptr)
        ar >> *pKind;
    LinkLoadedRight(node, std::move(pRight));
}
