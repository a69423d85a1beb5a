// The system's questions for files.
#pragma once

#include <optional>
#include <string>

#include <mivora/mivora.h>

class CWnd;

// Kinds of files to choose from. The first one's extension goes to names that have none, until the
// user chooses another.
class CFileKinds
{
public:
    void Add(const CString& strName, const CString& strExtension);

    const wchar_t* Filter() const { return m_filter.c_str(); }
    const wchar_t* FirstExtension() const { return m_firstExtension.c_str(); }

private:
    std::wstring m_filter;  // pairs of texts, each with an end mark
    std::wstring m_firstExtension;
};

// Paths in UTF-8; nothing where the user gave up.
std::optional<CString> AskForFileToOpen(CWnd* pOwner, const CFileKinds& kinds);
// Asks before an old file is overwritten. strName is what is offered.
std::optional<CString> AskForFileToSave(CWnd* pOwner, const CFileKinds& kinds,
                                        const CString& strName);
