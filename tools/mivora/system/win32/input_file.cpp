// Input by handles of the system; what is typed at a console comes as wide characters.
#include "system/input_file.h"

#include "platform/base/win32/wide_text.h"
#include "report.h"
#include "system/interruption.h"
#include "system/system_calls.h"

namespace
{
constexpr wchar_t s_chEnd = 0x1A;  // Ctrl+Z at the start of a line

bool IsConsole(HANDLE hFile)
{
    DWORD nMode = 0;
    return GetConsoleMode(hFile, &nMode) != 0;
}

// Its line comes as UTF-8.
bool ReadConsoleLine(HANDLE hConsole, char* pchBuffer, std::size_t nSize, DWORD& nRead)
{
    std::wstring line(nSize / 3, L'\0');  // a wide character has at most three bytes
    DWORD nWide = 0;
    if (!ReadConsoleW(hConsole, line.data(), static_cast<DWORD>(line.size()), &nWide, nullptr))
        return false;
    line.resize(nWide > 0 && line[0] == s_chEnd ? 0 : nWide);
    const std::string bytes = FromWide(line, CP_UTF8).value_or(std::string());
    nRead = static_cast<DWORD>(bytes.copy(pchBuffer, nSize));
    return true;
}
}  // namespace

struct CInputFile::CNative
{
    HANDLE hFile;
    bool bOwned;
};

CInputFile::CInputFile()
    : m_strPath("-"), m_pNative(new CNative{ GetStdHandle(STD_INPUT_HANDLE), false })
{
}

CInputFile::CInputFile(const std::string& strPath)
    : m_strPath(strPath),
      m_pNative(new CNative{ CreateFileW(ToWide(strPath, CP_UTF8).c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                         nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr),
                             true })
{
    if (m_pNative->hFile == INVALID_HANDLE_VALUE)
        throw CFailure{ "cannot open " + strPath + ": " + LastErrorText() };
}

CInputFile::~CInputFile()
{
    if (m_pNative->bOwned)
        CloseHandle(m_pNative->hFile);
}

std::size_t CInputFile::Read(char* pchBuffer, std::size_t nSize)
{
    if (IsInterrupted())
        return 0;
    DWORD nRead = 0;
    const bool bRead = IsConsole(m_pNative->hFile)
                           ? ReadConsoleLine(m_pNative->hFile, pchBuffer, nSize, nRead)
                           : ReadFile(m_pNative->hFile, pchBuffer, static_cast<DWORD>(nSize),
                                      &nRead, nullptr) != 0;
    // A pipe whose writer has ended is at its end.
    if (!bRead && GetLastError() != ERROR_BROKEN_PIPE && !IsInterrupted())
        throw CFailure{ "cannot read " + m_strPath + ": " + LastErrorText() };
    return nRead;
}

unsigned long long CInputFile::Size() const
{
    LARGE_INTEGER size{};
    if (GetFileType(m_pNative->hFile) != FILE_TYPE_DISK || !GetFileSizeEx(m_pNative->hFile, &size))
        return 0;
    return static_cast<unsigned long long>(size.QuadPart);
}
