// The module by the loader, or by the kernel where the loader knows a relative name only.
#include "platform/base/module_path.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <system_error>

namespace
{
namespace fs = std::filesystem;

// The file whose code is mapped at an address. The loader may know a module by a relative name,
// which says nothing once the working directory has changed; the kernel knows the true one.
std::string MappedFile(std::uintptr_t nAddress)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string strLine; std::getline(maps, strLine);)
    {
        unsigned long nFrom = 0;
        unsigned long nTo = 0;
        int nPath = 0;
        if (std::sscanf(strLine.c_str(), "%lx-%lx %*s %*s %*s %*s %n", &nFrom, &nTo, &nPath) == 2 &&
            nFrom <= nAddress && nAddress < nTo && nPath > 0)
            return strLine.substr(static_cast<std::size_t>(nPath));
    }
    return {};
}

fs::path FindModulePath()
{
    Dl_info info{};
    void* pHere = reinterpret_cast<void*>(&FindModulePath);
    const bool bAbsolute = dladdr(pHere, &info) && info.dli_fname && info.dli_fname[0] == '/';
    const std::string strFile =
        bAbsolute ? info.dli_fname : MappedFile(reinterpret_cast<std::uintptr_t>(pHere));
    std::error_code error;
    fs::path path = fs::canonical(strFile, error);
    return error ? fs::path() : path;
}
}  // namespace

const fs::path& ModulePath()
{
    static const fs::path s_path = FindModulePath();
    return s_path;
}

fs::path EnvironmentPath(const char* pszName)
{
    const char* pszValue = secure_getenv(pszName);
    return pszValue != nullptr ? pszValue : "";
}
