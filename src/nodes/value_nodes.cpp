// The leaves of a formula.
#include "nodes/value_nodes.h"

#include <cstring>

#include "platform/base/archive.h"

CValueNode::CValueNode() : CValueNode(NTI_STANDARD) {}

CValueNode::CValueNode(ENodeType nType)
    : CNode(nType), m_dValue(0), m_nValueAttrA(1), m_nValueAttrB(1)
{
}

void CValueNode::CopyAttributes(CNode* pSource)
{
    CNode::CopyAttributes(pSource);
    // A loaded node can bear the type name of another class.
    if (const auto* pValue = dynamic_cast<const CValueNode*>(pSource))
    {
        m_dValue = pValue->m_dValue;
        m_nValueAttrA = pValue->m_nValueAttrA;
        m_nValueAttrB = pValue->m_nValueAttrB;
    }
}

void CValueNode::ApplyFormat(CBinTreeFormat* pFormat)
{
    const bool bGreek = std::strcmp(m_logFont.lfFaceName, "Symbol") == 0;
    CNode::ApplyFormat(pFormat);
    if (bGreek)
        SetFontName(CString::Immortal("Symbol"));
}

void CValueNode::SerializeNode(CArchive& ar, CBinTree* pTree)
{
    CNode::SerializeNode(ar, pTree);
    if (ar.IsStoring())
        ar << m_dValue << m_nValueAttrA << m_nValueAttrB;
    else
        ar >> m_dValue >> m_nValueAttrA >> m_nValueAttrB;
}

CVariableNode::CVariableNode() : CValueNode(NTI_VARIABLE) {}

CNumberNode::CNumberNode() : CValueNode(NTI_NUMBER) {}

CConstantNode::CConstantNode() : CConstantNode(NTI_CONSTANT) {}

CConstantNode::CConstantNode(ENodeType nType) : CValueNode(nType) {}

CInfinityNode::CInfinityNode() : CConstantNode(NTI_INFINITY) {}

CPlanckNode::CPlanckNode() : CConstantNode(NTI_PLANCK) {}

CLambdaNode::CLambdaNode() : CConstantNode(NTI_LAMBDA) {}
