// Where this code lies on the disk: what belongs to the library is found from there.
#pragma once

#include <filesystem>
#include <initializer_list>

// The file of the module (library or program) that holds the platform, links resolved, absolute;
// empty if the system does not tell. Does not depend on the working directory.
const std::filesystem::path& ModulePath();

// The first of some paths, relative to the module's folder, that exists; empty if none does.
std::filesystem::path BesideModule(std::initializer_list<const char*> relativePaths);
