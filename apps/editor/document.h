// A formula on the screen, with the file that it belongs to.
#pragma once

#include <memory>

#include <mivora/mivora.h>
#include <mivora/service/form_tree.h>

// A change of formula is a new object. The control must have the new tree before the old object
// goes: it ends an edit that is still open, in the tree that it has.
class CEditorDocument
{
public:
    // An empty slot, selected: it can be typed into.
    static std::unique_ptr<CEditorDocument> MakeNew();
    // Null after a message to the user.
    static std::unique_ptr<CEditorDocument> FromFile(const CString& strPath);
    // A text, with the path of the document whose place it takes. A syntax error is told in the
    // report, and what could be understood is shown; null after a message, for a text that cannot
    // be read at all.
    static std::unique_ptr<CEditorDocument> FromText(const CString& strText,
                                                     const CEditorDocument& old,
                                                     CParseReport& report);

    // False after a message to the user.
    bool Save(const CString& strPath);

    // Whether the tree is another than that of the file, or than the one to begin with. Compared
    // afresh: not every change of the tree is notified.
    bool IsModified() const;
    bool IsEdited() const;

    CFormulaOut& Formula() { return m_Formula; }
    CBinTree& Tree() { return m_Formula.m_Tree; }
    const CString& Path() const { return m_strPath; }  // UTF-8; empty: it has none

private:
    CEditorDocument() = default;
    void Begin();

    CFormulaOut m_Formula;
    CString m_strPath;
    CString m_strFirst;  // the tree to begin with, in words
    CString m_strSaved;  // that of the file
};
