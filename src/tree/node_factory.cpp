// How a node is made from its type: one row for each type, in the order of the types.
#include "tree/node_factory.h"

#include "nodes/big_operator_nodes.h"
#include "nodes/brace_nodes.h"
#include "nodes/fraction_nodes.h"
#include "nodes/function_nodes.h"
#include "nodes/limit_nodes.h"
#include "nodes/operator_nodes.h"
#include "nodes/power_nodes.h"
#include "nodes/range_node.h"
#include "nodes/root_nodes.h"
#include "nodes/structure_nodes.h"
#include "nodes/symbol_nodes.h"
#include "nodes/value_nodes.h"
#include "nodes/vector_node.h"

namespace
{

// The base class marks a new node as replaceable; the root of a formula and the empty places in
// it are not.
constexpr UINT s_nStandardFlags = NF_TEXTEDIT;

template <class T>
CNode* Make()
{
    return new T;
}

template <class T>
CNode* MakeUnowned()
{
    return new T(nullptr);
}

CNode* MakeStandard()
{
    CNode* pNode = new CNode;
    pNode->SetFlags(pNode->GetFlags() & s_nStandardFlags);
    return pNode;
}

struct CMaker
{
    ENodeType nType;
    CNode* (*pfnMake)();
};

constexpr CMaker s_aMakers[] = {
    { NTI_STANDARD, MakeStandard },
    { NTI_DIVISION, Make<CDivisionNode> },
    { NTI_NTHROOT, Make<CNthRootNode> },
    { NTI_ROOT, Make<CSquareRootNode> },
    { NTI_POWERTO, Make<CPowerToNode> },
    { NTI_PLACEHOLDER, Make<CPlaceHolderNode> },
    { NTI_BRACE, Make<CBraceNode> },
    { NTI_EQUATION, Make<CEquationNode> },
    { NTI_PLUS, Make<CPlusNode> },
    { NTI_MINUS, Make<CMinusNode> },
    { NTI_TIMES, Make<CTimesNode> },
    { NTI_NUMBER, Make<CNumberNode> },
    { NTI_PARTDERIVE, Make<CPartialDerivativeNode> },
    { NTI_DERIVE, Make<CDerivativeNode> },
    { NTI_SUM, Make<CSumNode> },
    { NTI_PROD, Make<CProdNode> },
    { NTI_RANGE, MakeUnowned<CRangeNode> },
    { NTI_INTEGRAL, Make<CIntegralNode> },
    { NTI_INTEGRAND, Make<CIntegrandNode> },
    { NTI_FUNC, Make<CFuncNode> },
    { NTI_USERFUNC, Make<CUserFuncNode> },
    { NTI_EXTFUNC, Make<CExtFuncNode> },
    { NTI_POISON, Make<CPoisonNode> },
    { NTI_INDEX, MakeUnowned<CIndexNode> },
    { NTI_VECTOR, Make<CVectorNode> },
    { NTI_CONSTANT, Make<CConstantNode> },
    { NTI_VARIABLE, Make<CVariableNode> },
    { NTI_LIMES, Make<CLimesNode> },
    { NTI_OPERATOR, Make<COperatorNode> },
    { NTI_ARROWS, Make<CArrowNode> },
    { NTI_BINOMIAL, Make<CBinomialNode> },
    { NTI_MATRIX, Make<CMatrixNode> },
    { NTI_LINE, Make<CLineNode> },
    { NTI_ELEMENT, Make<CElementNode> },
    { NTI_NABLA, Make<CNablaNode> },
    { NTI_LAPLACE, Make<CLaplaceNode> },
    { NTI_INFINITY, Make<CInfinityNode> },
    { NTI_PLANCK, Make<CPlanckNode> },
    { NTI_LAMBDA, Make<CLambdaNode> },
    { NTI_CROSS, Make<CCrossNode> },
    { NTI_LABEL, Make<CLabelNode> },
};

static_assert(IsInOrder(s_aMakers, &CMaker::nType, NTI_COUNT), "a type is looked up by its number");

}  // namespace

CNode* MakeNode(ENodeType nType)
{
    CNode* pNode = s_aMakers[nType].pfnMake();
    pNode->m_strType = NodeTypeName(nType);
    return pNode;
}

CNode* MakeNode(const CString& strType)
{
    const ENodeType nType = FindNodeType(strType);
    if (nType != NTI_COUNT)
        return MakeNode(nType);
    CNode* pNode = new CNode;
    pNode->m_strType = strType;
    return pNode;
}
