// The leaves of a formula: variables, numbers and constants, and the three signs among them.
#pragma once

#include "nodes/node.h"

// A leaf that shows its symbol, as typed. The face "Symbol" is what marks a Greek letter: a node
// that has it keeps it through every format.
class CValueNode : public CNode
{
public:
    CValueNode();

    void CopyAttributes(CNode* pSource) override;
    void ApplyFormat(CBinTreeFormat* pFormat) override;
    void SerializeNode(CArchive& ar, CBinTree* pTree) override;

    double GetValue() const { return m_dValue; }
    void SetValue(double dValue) { m_dValue = dValue; }
    int GetValueAttrA() const { return m_nValueAttrA; }
    void SetValueAttrA(int n) { m_nValueAttrA = n; }
    int GetValueAttrB() const { return m_nValueAttrB; }
    void SetValueAttrB(int n) { m_nValueAttrB = n; }

    // Copied and stored, and read by nothing.
    double m_dValue;
    int m_nValueAttrA;
    int m_nValueAttrB;

protected:
    explicit CValueNode(ENodeType nType);
};

class CVariableNode : public CValueNode
{
public:
    CVariableNode();
};

class CNumberNode : public CValueNode
{
public:
    CNumberNode();
};

class CConstantNode : public CValueNode
{
public:
    CConstantNode();

protected:
    explicit CConstantNode(ENodeType nType);
};

class CInfinityNode : public CConstantNode
{
public:
    CInfinityNode();
};

class CPlanckNode : public CConstantNode
{
public:
    CPlanckNode();
};

class CLambdaNode : public CConstantNode
{
public:
    CLambdaNode();
};
