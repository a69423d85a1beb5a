// The faces that formulas are set in, and the files that they come from.
#pragma once

#include <string>
#include <utility>
#include <vector>

// Each face with the path of its file (UTF-8): empty if there is none and another is put in its
// place, or if the system does not tell.
std::vector<std::pair<std::string, std::string>> FacesAndFiles();
