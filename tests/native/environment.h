// The environment of the process.
#pragma once

#include <string>

// An empty value takes the name away.
void SetEnvironment(const char* pszName, const std::string& strValue);
