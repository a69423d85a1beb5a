// What lies beside the module.
#include "platform/base/module_path.h"

#include <system_error>

std::filesystem::path BesideModule(std::initializer_list<const char*> relativePaths)
{
    const std::filesystem::path folder = ModulePath().parent_path();
    if (folder.empty())
        return {};
    for (const char* pszRelative : relativePaths)
    {
        std::error_code error;
        std::filesystem::path path = (folder / pszRelative).lexically_normal();
        if (std::filesystem::exists(path, error))
            return path;
    }
    return {};
}
