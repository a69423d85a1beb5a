// The names of the formats of files, as options take them: those of pictures, and stored formulas.
#pragma once

#include <string>

constexpr char g_szStoredFormat[] = "fml";

// Those that can be made here, in the order in which they are told, separated by blanks.
std::string OfferedFormats();
// Those of other systems.
std::string FormatsElsewhere();
