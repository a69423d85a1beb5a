// Texts between UTF-8, wide and the system's code page, and the boxes that show them.
#include "messages.h"

#include <mivora/platform/win/app_pump.h>
#include <mivora/platform/win/window.h>

#include <algorithm>

std::wstring ToWide(const CString& strUtf8)
{
    const int nBytes = strUtf8.GetLength();
    std::wstring wide(static_cast<size_t>(nBytes), L'\0');  // never fewer bytes than units
    const int nUnits = ::MultiByteToWideChar(CP_UTF8, 0, strUtf8, nBytes, wide.data(), nBytes);
    wide.resize(static_cast<size_t>(nUnits));
    return wide;
}

namespace
{
CString FromWide(const wchar_t* pszText, UINT nCodePage)
{
    CString strText;
    const int nSize =
        ::WideCharToMultiByte(nCodePage, 0, pszText, -1, nullptr, 0, nullptr, nullptr);
    ::WideCharToMultiByte(nCodePage, 0, pszText, -1, strText.GetBuffer(nSize), nSize, nullptr,
                          nullptr);
    strText.ReleaseBuffer();
    return strText;
}
}  // namespace

CString ToUtf8(const wchar_t* pszText)
{
    return FromWide(pszText, CP_UTF8);
}

CString ToNarrow(const CString& strUtf8)
{
    return FromWide(ToWide(strUtf8).c_str(), CP_ACP);
}

int ShowMessage(const CString& strUtf8, UINT nType)
{
    const CWnd* pMain = AfxGetMainWnd();
    return ::MessageBoxW(pMain != nullptr ? pMain->GetSafeHwnd() : nullptr, ToWide(strUtf8).c_str(),
                         L"Mivora Editor", nType);
}

CString FileName(const CString& strPath)
{
    return strPath.Mid(std::max(strPath.ReverseFind('\\'), strPath.ReverseFind('/')) + 1);
}
