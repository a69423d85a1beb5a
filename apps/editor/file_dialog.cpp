// Wide dialogs: a path may have letters that the system's code page lacks.
#include "file_dialog.h"

#include <mivora/platform/win/window.h>

#include <commdlg.h>

#include <vector>

#include "messages.h"

void CFileKinds::Add(const CString& strName, const CString& strExtension)
{
    const std::wstring extension = ToWide(strExtension);
    if (m_filter.empty())
        m_firstExtension = extension;
    m_filter += ToWide(strName) + L" (*." + extension + L')' + L'\0' + L"*." + extension + L'\0';
}

namespace
{
constexpr DWORD s_nMaxPathUnits = 32768;  // the longest that the system has

std::optional<CString> Ask(BOOL(WINAPI* pfnAsk)(LPOPENFILENAMEW), CWnd* pOwner,
                           const CFileKinds& kinds, const CString& strName, DWORD dwFlags)
{
    std::vector<wchar_t> path(s_nMaxPathUnits, L'\0');
    ToWide(strName).copy(path.data(), s_nMaxPathUnits - 1);
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = pOwner->GetSafeHwnd();
    question.lpstrFilter = kinds.Filter();
    question.lpstrFile = path.data();
    question.nMaxFile = s_nMaxPathUnits;
    question.lpstrDefExt = kinds.FirstExtension();
    question.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | dwFlags;
    if (!pfnAsk(&question))
        return std::nullopt;
    return ToUtf8(path.data());
}
}  // namespace

std::optional<CString> AskForFileToOpen(CWnd* pOwner, const CFileKinds& kinds)
{
    return Ask(::GetOpenFileNameW, pOwner, kinds, "", OFN_FILEMUSTEXIST);
}

std::optional<CString> AskForFileToSave(CWnd* pOwner, const CFileKinds& kinds,
                                        const CString& strName)
{
    return Ask(::GetSaveFileNameW, pOwner, kinds, strName, OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST);
}
