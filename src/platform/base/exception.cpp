// The exceptions, their texts and the operations that throw them.
#include "platform/base/exception.h"

#include <algorithm>
#include <new>

#include "platform/base/app.h"
#include "platform/base/code_page.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)

namespace
{
// By CFileException's cause; %s is the file.
constexpr const char* s_apszFileTexts[] = {
    "Nothing failed with %s.",
    "An operation on %s failed.",
    "There is no file %s.",
    "The path of %s leads nowhere.",
    "Too many files are open to open %s.",
    "Access to %s is denied.",
    "The handle of %s is not that of an open file.",
    "The current directory %s cannot be removed.",
    "The directory of %s is full.",
    "There is no such position in %s.",
    "The device of %s failed.",
    "%s is in use elsewhere.",
    "A part of %s is locked.",
    "The disk is full; %s could not be written.",
    "%s has no more data.",
};

// By CArchiveException's cause.
constexpr const char* s_apszArchiveTexts[] = {
    "Nothing failed with %s.",
    "An operation on the archive %s failed.",
    "The archive %s is open for reading and cannot be written.",
    "The archive %s ends too early.",
    "The archive %s is open for writing and cannot be read.",
    "The archive %s is damaged.",
    "The archive %s holds an object of an unknown class.",
    "The archive %s holds an object of another version.",
    "The buffer of the archive %s is full.",
};

template <std::size_t N>
CString CauseText(const char* const (&apszTexts)[N], int nCause, const CString& strFileName)
{
    const bool bKnown = nCause >= 0 && nCause < static_cast<int>(N);
    CString text;
    text.Format(apszTexts[bKnown ? nCause : 1],
                strFileName.IsEmpty() ? CString("(unnamed)") : strFileName);
    return text;
}

// How much of a text fits into nMost bytes without a torn character at the end, should it be UTF-8.
std::size_t WholeCharacters(std::string_view text, std::size_t nMost)
{
    if (text.size() <= nMost)
        return text.size();
    std::size_t n = nMost;
    while (n > 0 && nMost - n < 3 && IsUtf8Tail(text[n]))
        --n;
    return n;
}

// An object that is never destroyed, so that it can be thrown at any time, and is nobody's leak.
template <class T, class... Args>
T* StaticException(Args... args)
{
    alignas(T) static unsigned char s_aPlace[sizeof(T)];
    static T* const s_pException = ::new (static_cast<void*>(s_aPlace)) T(args...);
    return s_pException;
}
}  // namespace

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::CopyText(std::string_view text, char* pszError, UINT nMaxError,
                          UINT* pnHelpContext)
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    if (pszError == nullptr || nMaxError == 0)
        return FALSE;
    pszError[text.copy(pszError, WholeCharacters(text, nMaxError - 1))] = '\0';
    return !text.empty();
}

BOOL CException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    return CopyText({}, pszError, nMaxError, pnHelpContext);
}

int CException::ReportError(UINT nType, UINT nMessageID)
{
    char szText[512];
    return AfxPathMessageBox(
        GetErrorMessage(szText, sizeof(szText)) ? szText : "The operation failed.", nType,
        nMessageID);
}

BOOL CSimpleException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    return CopyText(m_pszText, pszError, nMaxError, pnHelpContext);
}

CMemoryException::CMemoryException() : CSimpleException("There is not enough memory.") {}
CNotSupportedException::CNotSupportedException()
    : CSimpleException("The operation is not supported.")
{
}
CResourceException::CResourceException() : CSimpleException("A resource is not available.") {}
CInvalidArgException::CInvalidArgException() : CInvalidArgException("An argument is not valid.") {}
CInvalidArgException::CInvalidArgException(const char* pszText) : CSimpleException(pszText) {}

CFileException::CFileException(int nCause, LONG lOsError, const char* pszFileName)
    : m_cause(nCause), m_lOsError(lOsError), m_strFileName(pszFileName)
{
}

BOOL CFileException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    return CopyText(CauseText(s_apszFileTexts, m_cause, m_strFileName).View(), pszError, nMaxError,
                    pnHelpContext);
}

CArchiveException::CArchiveException(int nCause, const char* pszFileName, BOOL bAutoDelete)
    : CException(bAutoDelete), m_cause(nCause), m_strFileName(pszFileName)
{
}

BOOL CArchiveException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    return CopyText(CauseText(s_apszArchiveTexts, m_cause, m_strFileName).View(), pszError,
                    nMaxError, pnHelpContext);
}

void AfxThrowMemoryException()
{
    throw StaticException<CMemoryException>();
}
void AfxThrowNotSupportedException()
{
    throw StaticException<CNotSupportedException>();
}
void AfxThrowResourceException()
{
    throw StaticException<CResourceException>();
}
void AfxThrowInvalidArgException()
{
    throw StaticException<CInvalidArgException>();
}

void AfxThrowTextTooLongException()
{
    throw StaticException<CInvalidArgException>("The text is too long.");
}

void AfxThrowArchiveLimitException()
{
    throw StaticException<CArchiveException>(static_cast<int>(CArchiveException::badIndex),
                                             static_cast<const char*>(nullptr), FALSE);
}

void AfxThrowFileException(int nCause, LONG lOsError, const char* pszFileName)
{
    throw new CFileException(nCause, lOsError, pszFileName);
}

void AfxThrowArchiveException(int nCause, const char* pszFileName)
{
    throw new CArchiveException(nCause, pszFileName);
}
