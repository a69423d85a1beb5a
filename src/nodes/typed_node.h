// Nodes that come in kinds: sign, face and generated text are rows of a table of the class.
#pragma once

#include <span>

#include "nodes/node.h"
#include "platform/base/collections.h"

// One kind. The texts live as long as the program.
struct CKindRow
{
    const char* pszSymbol;
    const char* pszFont;
    const char* pszText = nullptr;  // generated text; null in all rows if the kinds share one
};

// The table of a class, made once: nodes share its arrays until they change them.
class CKindTable
{
public:
    explicit CKindTable(std::span<const CKindRow> rows);

    CStringArray m_saSymbols;
    CStringArray m_saFonts;
    CStringArray m_saTextOwn;  // empty if no row has a text
};

class CTypedNode : public CNode
{
public:
    CTypedNode();

    void CopyAttributes(CNode* pSource) override;
    void SerializeNode(CArchive& ar, CBinTree* pTree) override;

    int GetKind() const { return m_nKind; }
    void SetKind(int nKind) { m_nKind = nKind; }

    CStringArray m_saSymbols;                 // by kind
    CStringArray m_saFonts;                   // by kind: face name
    int m_nKind;                              // row of the tables, not checked before its use
    CStringArray m_saTextOwn[TEXT_FORMS];     // by kind; may be empty
    CStringArray m_saTextFormat[TEXT_FORMS];  // by kind; may be empty

protected:
    explicit CTypedNode(ENodeType nType);

    // Takes over the rows of a class; they stay shared until one is set.
    void TakeKinds(const CKindTable& table);

    // Takes sign and face of the kind. CInvalidArgException if the kind is outside the table.
    void SelectKind();

    void SelectText(int nForm) override;
};

// What stands between operands.
class COpNode : public CTypedNode
{
public:
    COpNode();

protected:
    explicit COpNode(ENodeType nType);
};

// What stands in front of its argument.
class CFunctionNode : public CTypedNode
{
public:
    CFunctionNode();

protected:
    explicit CFunctionNode(ENodeType nType);
};
