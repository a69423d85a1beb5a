// The document through which a formula is saved as a compound file.
#pragma once

#include "platform/base/cstring.h"
#include "platform/doc/ole_document.h"

class CBinTree;
class CBinTreeFormat;

// Borrows the tree and the table for the time of a save; has no views and no template.
class CFormulaDoc : public COleDocument
{
    DECLARE_DYNCREATE(CFormulaDoc)
    DECLARE_MESSAGE_MAP()

public:
    CFormulaDoc();
    ~CFormulaDoc() override;

    // Text, tree, format table; what is not lent is left out. Exceptions of the archive reach
    // the caller.
    void Serialize(CArchive& ar) override;

    CBinTree* m_pTree;          // not owned; set before each save or load
    CBinTreeFormat* m_pFormat;  // not owned; set before each save or load
    CString m_strFormula;
};
