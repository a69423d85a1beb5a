// The file of a stored formula in memory instead of on a disk.
#include "facade/stored_bytes.h"

#include <climits>

#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "service/formula_out.h"

CStoredFormulaDoc::CStoredFormulaDoc(CFormulaOut& formula)
{
    m_pTree = &formula.m_Tree;
    m_pFormat = &formula.m_Format;
    m_strFormula = formula.m_strFormula;
}

void CStoredFormulaDoc::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
    {
        CFormulaDoc::Serialize(ar);
        return;
    }
    ar >> m_strFormula;
    m_pTree->Serialize(ar);
    if (m_pTree->GetRootNode() == nullptr)
    {
        BYTE aRestOfMark[3];
        ar.EnsureRead(aRestOfMark, sizeof aRestOfMark);
    }
    m_pFormat->Serialize(ar);
}

std::string StoredBytes(CFormulaOut& formula)
{
    constexpr UINT s_nGrowBytes = 8192;
    CMemFile file(s_nGrowBytes);
    CStoredFormulaDoc(formula).StoreInto(file);
    return { reinterpret_cast<const char*>(file.GetData()), static_cast<size_t>(file.GetLength()) };
}

void LoadStoredBytes(CFormulaOut& formula, std::string_view bytes)
{
    if (bytes.size() > INT_MAX)
        AfxThrowArchiveLimitException();
    // It only reads: the file cannot grow.
    CMemFile file(const_cast<BYTE*>(reinterpret_cast<const BYTE*>(bytes.data())),
                  static_cast<UINT>(bytes.size()));
    formula.ResetTree();
    CStoredFormulaDoc doc(formula);
    doc.LoadOutOf(file);
    formula.m_strFormula = doc.m_strFormula;
}
