// The system that Wine runs on: it starts its programs, but gives no handle to wait for, so that a
// command tells by a file that it has ended.
#include "native/build_machine.h"

#include <windows.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace
{
constexpr DWORD s_nMostMilliseconds = 60000;

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

bool StartShell(const std::filesystem::path& script)
{
    std::wstring line = L"sh \"" + std::filesystem::path(NativePath(script)).wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    return CreateProcessW(L"\\\\?\\unix\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          nullptr, &startup, &process) != 0;
}
}  // namespace

CCommandResult RunCommand(const std::string& strCommand)
{
    static int s_nNumber = 0;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        ("command-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(s_nNumber++));
    std::filesystem::create_directories(folder);
    const std::filesystem::path done = folder / "done";
    std::ofstream(folder / "script", std::ios::binary)
        << "cd '" << NativePath(folder) << "'\n( " << strCommand << "\n) >output 2>&1 "
        << "</dev/null\necho $? >status\nmv status done\n";
    const DWORD nStart = GetTickCount();
    bool bGoing = StartShell(folder / "script");
    while (bGoing && !std::filesystem::exists(done))
    {
        Sleep(2);
        bGoing = GetTickCount() - nStart <= s_nMostMilliseconds;
    }
    CCommandResult result;
    if (bGoing)
        result = { std::atoi(ReadText(done).c_str()), ReadText(folder / "output") };
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return result;
}

std::string NativePath(const std::filesystem::path& path)
{
    using UnixName = char*(CDECL*)(const WCHAR*);
    const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleA("kernel32"), "wine_get_unix_file_name")));
    char* pszName =
        unixName != nullptr ? unixName(std::filesystem::absolute(path).c_str()) : nullptr;
    if (pszName == nullptr)
        return path.string();
    std::string strName = pszName;
    HeapFree(GetProcessHeap(), 0, pszName);
    return strName;
}

bool SetCommaLocale(const std::filesystem::path&)
{
    return std::setlocale(LC_ALL, "German") != nullptr && *std::localeconv()->decimal_point == ',';
}
