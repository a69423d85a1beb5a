// The platform's exceptions. They are thrown as pointers; who catches one and does not pass it on
// calls Delete().
#pragma once

#include "platform/base/cstring.h"
#include "platform/base/object.h"

class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    // bAutoDelete: the object was made with new and Delete() ends it.
    explicit CException(BOOL bAutoDelete = TRUE) : m_bAutoDelete(bAutoDelete) {}

    void Delete();

    // Writes an English text of at most nMaxError - 1 bytes; a path in it is in the encoding of
    // paths. FALSE, and an empty text, if the exception has none.
    virtual BOOL GetErrorMessage(char* pszError, UINT nMaxError,
                                 UINT* pnHelpContext = nullptr) const;

    // Shows the text with AfxPathMessageBox and returns its result.
    virtual int ReportError(UINT nType = 0, UINT nMessageID = 0);

protected:
    // What GetErrorMessage does with a text.
    static BOOL CopyText(std::string_view text, char* pszError, UINT nMaxError,
                         UINT* pnHelpContext);

private:
    BOOL m_bAutoDelete;
};

class CSimpleException : public CException
{
    DECLARE_DYNAMIC(CSimpleException)

public:
    explicit CSimpleException(const char* pszText, BOOL bAutoDelete = FALSE)
        : CException(bAutoDelete), m_pszText(pszText)
    {
    }

    BOOL GetErrorMessage(char* pszError, UINT nMaxError,
                         UINT* pnHelpContext = nullptr) const override;

private:
    const char* m_pszText;  // static text: telling it needs no memory
};

class CMemoryException : public CSimpleException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    CMemoryException();
};

class CNotSupportedException : public CSimpleException
{
    DECLARE_DYNAMIC(CNotSupportedException)

public:
    CNotSupportedException();
};

class CResourceException : public CSimpleException
{
    DECLARE_DYNAMIC(CResourceException)

public:
    CResourceException();
};

class CInvalidArgException : public CSimpleException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    CInvalidArgException();
    explicit CInvalidArgException(const char* pszText);
};

class CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int nCause = none, LONG lOsError = -1,
                            const char* pszFileName = nullptr);

    static int OsErrorToException(LONG lOsError);

    BOOL GetErrorMessage(char* pszError, UINT nMaxError,
                         UINT* pnHelpContext = nullptr) const override;

    int m_cause;
    LONG m_lOsError;  // the system's number (errno on Linux), -1 if there is none
    CString m_strFileName;
};

class CArchiveException : public CException
{
    DECLARE_DYNAMIC(CArchiveException)

public:
    enum
    {
        none,
        genericException,
        readOnly,
        endOfFile,
        writeOnly,
        badIndex,
        badClass,
        badSchema,
        bufferFull
    };

    explicit CArchiveException(int nCause = none, const char* pszFileName = nullptr,
                               BOOL bAutoDelete = TRUE);

    BOOL GetErrorMessage(char* pszError, UINT nMaxError,
                         UINT* pnHelpContext = nullptr) const override;

    int m_cause;
    CString m_strFileName;
};

// The objects of the first group are static: one that is caught and forgotten leaks nothing.
[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowNotSupportedException();
[[noreturn]] void AfxThrowResourceException();
[[noreturn]] void AfxThrowInvalidArgException();
// CInvalidArgException: a text is longer than its reader can address.
[[noreturn]] void AfxThrowTextTooLongException();
// CArchiveException with cause badIndex: more levels or characters than any sound archive has.
[[noreturn]] void AfxThrowArchiveLimitException();

[[noreturn]] void AfxThrowFileException(int nCause, LONG lOsError = -1,
                                        const char* pszFileName = nullptr);
[[noreturn]] void AfxThrowArchiveException(int nCause, const char* pszFileName = nullptr);
