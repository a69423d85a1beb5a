// The public face of the library: text in, a measured tree that can be painted, written and saved.
#pragma once

#include "format/tree_format.h"
#include "parser/formula_parser.h"
#include "platform/base/cstring.h"
#include "platform/base/geometry.h"
#include "service/formula_doc.h"
#include "tree/bin_tree.h"

class CArchive;
class CDC;

// One formula. All objects share the default format, the gap of products and the metafile
// comment, so that they belong to one thread at a time; debug builds assert it. What goes wrong
// is told in message boxes.
class CFormulaOut
{
public:
    CFormulaOut();
    virtual ~CFormulaOut();

    // Forms the tree of the other object's text; neither tree nor format is copied.
    CFormulaOut& operator=(const CFormulaOut& other);

    // Parses a text (bytes of Windows-1252) and measures it. The old tree is gone in any case.
    // 1, also if only the start of the text could be understood; 0, after a message box and
    // without a tree, if an exception stopped it.
    int FormTree(CString strText);

    // Paints with the formula's top left corner at that of rect, in logical units of pDC.
    void DrawTree(CDC* pDC, CRect rect);

    // Extent at (0, 0) in logical units of pDC, worked out afresh; empty without a tree.
    CRect GetFormulaRect(CDC* pDC);

    // Puts the table behind GetTreeFormatPtr on the present tree; a FormTree starts over from
    // the default format.
    void ReformatNodes();

    // Deletes the tree and keeps the text.
    void ResetTree();

    int IsRootNodeNULL();

    // This object's table, at defaults to begin with; the caller may change it. Valid for the
    // object's life.
    CBinTreeFormat* GetTreeFormatPtr();

    // Writes an enhanced metafile; the path must end in "wmf", in any case. 1, or 0 on failure.
    int WriteFormulaToWMF(CString strPath);

    // Takes the text out of a metafile's comment and keeps it; the tree stays as it is until
    // operator= forms it. 1, or 0 after a message box.
    int ReadFormulaFromWMF(CString strPath);

    // Paints the formula, laid out for the screen, on pDC through a bitmap. 1, or 0 on failure.
    int PrintDDB(CDC* pDC);

    // Stores or loads tree and format table. Exceptions of the archive reach the caller.
    void SaveTree(CArchive& ar);

    // Saves text, tree and format table as a compound file, and drops the selection. Always 1: a
    // failure is told in a message box.
    int SaveToFML(CString strPath);

    CBinTree m_Tree;
    CFormulaParser m_Parser;
    CBinTreeFormat m_Format;  // not the table that nodes get when they are made
    CFormulaDoc m_Doc;
    CString m_strFormula;  // text of the last tree formed, or what was read from a metafile
};

// The plain C function; include/mivora/mivora.h tells its contract.
extern "C" int StringToEMFFormula(const char* pszFormula, const char* pszPath, float* pfWidth,
                                  float* pfHeight);
