// The order in which a stored formula has its parts.
#include "service/formula_doc.h"

#include "format/tree_format.h"
#include "platform/base/archive.h"
#include "tree/bin_tree.h"

IMPLEMENT_DYNCREATE(CFormulaDoc, COleDocument)

BEGIN_MESSAGE_MAP(CFormulaDoc, COleDocument)
END_MESSAGE_MAP()

CFormulaDoc::CFormulaDoc() : m_pTree(nullptr), m_pFormat(nullptr)
{
    EnableCompoundFile(TRUE);
}

CFormulaDoc::~CFormulaDoc() = default;

void CFormulaDoc::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        ar << m_strFormula;
    else
        ar >> m_strFormula;
    if (m_pTree != nullptr)
        m_pTree->Serialize(ar);
    if (m_pFormat != nullptr)
        m_pFormat->Serialize(ar);
}
