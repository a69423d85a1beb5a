// Where this code lies on the disk: what belongs to the library is found from there.
#pragma once

#include <filesystem>
#include <initializer_list>

// The file of the module (library or program) that holds the platform, links resolved, absolute;
// empty if the system does not tell. Does not depend on the working directory.
const std::filesystem::path& ModulePath();

// A path that the environment holds; empty if it holds none, or if the process has rights that its
// user has not.
std::filesystem::path EnvironmentPath(const char* pszName);

// The first of some paths that exists; empty if none does. They are relative to the module's
// folder, or to a folder "bin" in a place that is told (install_place.h).
std::filesystem::path BesideModule(std::initializer_list<const char*> relativePaths);
