// Nodes that come in kinds.
#include "nodes/typed_node.h"

#include "platform/base/archive.h"

CKindTable::CKindTable(std::span<const CKindRow> rows)
{
    for (const CKindRow& row : rows)
    {
        m_saSymbols.Add(CString::Immortal(row.pszSymbol));
        m_saFonts.Add(CString::Immortal(row.pszFont));
        if (row.pszText != nullptr)
            m_saTextOwn.Add(CString::Immortal(row.pszText));
    }
    m_saSymbols.MakeImmortal();
    m_saFonts.MakeImmortal();
    m_saTextOwn.MakeImmortal();
}

CTypedNode::CTypedNode() : CTypedNode(NTI_STANDARD) {}

CTypedNode::CTypedNode(ENodeType nType) : CNode(nType), m_nKind(0) {}

void CTypedNode::CopyAttributes(CNode* pSource)
{
    CNode::CopyAttributes(pSource);
    // A loaded node can bear the type name of another class.
    if (const auto* pTyped = dynamic_cast<const CTypedNode*>(pSource))
        m_nKind = pTyped->m_nKind;
}

void CTypedNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    CNode::SerializeNode(ar, pTree);
    if (ar.IsStoring())
        ar << m_nKind;
    else
        ar >> m_nKind;
}

void CTypedNode::TakeKinds(const CKindTable& table)
{
    m_saSymbols = table.m_saSymbols;
    m_saFonts = table.m_saFonts;
    m_saTextOwn[0] = table.m_saTextOwn;
}

void CTypedNode::SelectKind()
{
    m_strSymbol = m_saSymbols[m_nKind];
    SetFontName(m_saFonts[m_nKind]);
}

void CTypedNode::SelectText(int nForm)
{
    if (m_saTextOwn[nForm].GetSize() == 0)
        return;
    if (m_saTextFormat[nForm].GetSize() != 0)
        m_strTextFormat[nForm] = m_saTextFormat[nForm][m_nKind];
    m_strTextOwn[nForm] = m_saTextOwn[nForm][m_nKind];
}

COpNode::COpNode() : COpNode(NTI_STANDARD) {}

COpNode::COpNode(ENodeType nType) : CTypedNode(nType) {}

CFunctionNode::CFunctionNode() : CFunctionNode(NTI_STANDARD) {}

CFunctionNode::CFunctionNode(ENodeType nType) : CTypedNode(nType) {}
