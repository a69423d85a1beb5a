// What lies beside the module, or where the host or the user says that it lies.
#include "platform/base/module_path.h"

#include <array>
#include <string>
#include <system_error>

#include "platform/base/install_place.h"

namespace
{
namespace fs = std::filesystem;

struct CPrefixes
{
    std::string strSet;
    std::string strBuilt;
};

// Hosts tell the one that they were built with before main.
CPrefixes& Prefixes()
{
    static CPrefixes s_prefixes;
    return s_prefixes;
}

// The folder in which the module would lie.
fs::path FolderBelow(const fs::path& prefix)
{
    return prefix.empty() ? fs::path() : prefix / "bin";
}

fs::path FromUtf8(const std::string& strFolder)
{
    return fs::path(std::u8string(strFolder.begin(), strFolder.end()));
}
}  // namespace

fs::path BesideModule(std::initializer_list<const char*> relativePaths)
{
    const std::array<fs::path, 4> folders = { FolderBelow(FromUtf8(Prefixes().strSet)),
                                              FolderBelow(EnvironmentPath("MIVORA_PREFIX")),
                                              ModulePath().parent_path(),
                                              FolderBelow(FromUtf8(Prefixes().strBuilt)) };
    for (const fs::path& folder : folders)
    {
        for (const char* pszRelative : relativePaths)
        {
            std::error_code error;
            fs::path path = (folder / pszRelative).lexically_normal();
            if (!folder.empty() && fs::exists(path, error))
                return path;
        }
    }
    return {};
}

void AfxSetInstallPrefix(const char* pszFolder)
{
    Prefixes().strSet = pszFolder != nullptr ? pszFolder : "";
}

void AfxSetBuiltInstallPrefix(const char* pszFolder)
{
    Prefixes().strBuilt = pszFolder;
}
