// Formulas in files of their own, whole: text, tree and format table.
#pragma once

#include <mivora/mivora.h>

// Both give false after a message to the user: an old file is then as it was. Where loading fails,
// the formula is of no more use.
bool SaveFormula(CFormulaOut& formula, const CString& strPath);
bool LoadFormula(CFormulaOut& formula, const CString& strPath);

// Takes the selection away and gives it back at the end: files and pictures are to show none.
class CUnselected
{
public:
    explicit CUnselected(CBinTree& tree);
    ~CUnselected();
    CUnselected(const CUnselected&) = delete;
    CUnselected& operator=(const CUnselected&) = delete;

private:
    CBinTree& m_tree;
    CNode* m_pSelected;  // not owned
    int m_nMode;
};
