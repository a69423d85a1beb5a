// The module by the loader.
#include "platform/base/module_path.h"

#include <cstring>
#include <string>

#include "platform/base/types.h"

namespace
{
std::filesystem::path FindModulePath()
{
    HMODULE hModule = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&FindModulePath), &hModule);
    constexpr DWORD nMost = 32768;  // of any path
    std::wstring path(nMost, L'\0');
    path.resize(GetModuleFileNameW(hModule, path.data(), nMost));
    return path;
}
}  // namespace

const std::filesystem::path& ModulePath()
{
    static const std::filesystem::path s_path = FindModulePath();
    return s_path;
}

std::filesystem::path EnvironmentPath(const char* pszName)
{
    const std::wstring name(pszName, pszName + strlen(pszName));
    std::wstring value(GetEnvironmentVariableW(name.c_str(), nullptr, 0), L'\0');
    value.resize(
        GetEnvironmentVariableW(name.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return value;
}
