// Bytes on their way out.
#pragma once

#include <string>

inline constexpr char STANDARD_OUTPUT[] = "-";

// To a file, which stays as it was if that fails, or to standard output. Throws CFailure.
void WriteOutput(const std::string& strPath, const std::string& strBytes);
