// Documents: CDocument, and COleDocument, which keeps its archive in a compound file.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/cstring.h"
#include "platform/base/install_place.h"
#include "platform/base/types.h"

class CArchive;
class CException;
class CFile;

// Data with a path and a "modified" mark, without views or templates.
class CDocument : public CCmdTarget
{
    DECLARE_DYNAMIC(CDocument)

public:
    CDocument();
    ~CDocument() override;

    const CString& GetPathName() const { return m_strPathName; }
    BOOL IsModified() const { return m_bModified; }
    void SetModifiedFlag(BOOL bModified = TRUE) { m_bModified = bModified; }

    // Empties the document and marks it as unmodified. Nonzero.
    virtual BOOL OnNewDocument();

    // Empties the document without destroying it.
    virtual void DeleteContents();

    // Writes the document to a path; if bReplace is nonzero the document has that path from then
    // on. 0, after a message box, if that failed: the old file is then as it was.
    virtual BOOL DoSave(LPCSTR pszPathName, BOOL bReplace = TRUE);

    // Writes the document through Serialize. 0 after ReportSaveLoadException.
    virtual BOOL OnSaveDocument(LPCSTR pszPathName) = 0;

    // Reads the document through Serialize, and has that path from then on. 0 after
    // ReportSaveLoadException: path and mark stay, and so does what Serialize had not replaced.
    virtual BOOL OnOpenDocument(LPCSTR pszPathName) = 0;

    // Tells in a message box what could not be saved or opened, and why. The exception stays the
    // caller's.
    virtual void ReportSaveLoadException(LPCSTR pszPathName, CException* pException, BOOL bSaving);

protected:
    // The document is what stands at that path. Nonzero.
    BOOL TakePath(LPCSTR pszPathName);

    CString m_strPathName;
    BOOL m_bModified;
};

// A document whose file is a compound file with one archive, the stream "Contents".
class COleDocument : public CDocument
{
    DECLARE_DYNAMIC(COleDocument)

public:
    COleDocument();
    ~COleDocument() override;

    // Chooses the compound file; a document that has not chosen it can neither be saved nor opened.
    void EnableCompoundFile(BOOL bEnable = TRUE) { m_bCompoundFile = bEnable; }

    BOOL OnSaveDocument(LPCSTR pszPathName) override;
    BOOL OnOpenDocument(LPCSTR pszPathName) override;

    // The same for an open file, at its present position: always a compound file, path and mark
    // stay. Exceptions reach the caller; CArchiveException (badIndex) if it is no such file.
    void StoreInto(CFile& file);
    void LoadOutOf(CFile& file);

private:
    BOOL m_bCompoundFile;
};
