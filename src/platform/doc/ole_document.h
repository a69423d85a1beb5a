// Documents: CDocument, and COleDocument, which keeps its archive in a compound file.
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/base/cstring.h"
#include "platform/base/types.h"

class CArchive;

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
    virtual BOOL DoSave(LPCTSTR pszPathName, BOOL bReplace = TRUE);

    // Writes the document through Serialize; here the archive alone is the file. 0 after a
    // message box.
    virtual BOOL OnSaveDocument(LPCTSTR pszPathName);

protected:
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

    // Chooses the compound file; without it the archive alone is the file.
    void EnableCompoundFile(BOOL bEnable = TRUE) { m_bCompoundFile = bEnable; }

    BOOL OnSaveDocument(LPCTSTR pszPathName) override;

private:
    BOOL m_bCompoundFile;
};
