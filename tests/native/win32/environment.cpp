#include "native/environment.h"

#include <windows.h>

void SetEnvironment(const char* pszName, const std::string& strValue)
{
    SetEnvironmentVariableA(pszName, strValue.empty() ? nullptr : strValue.c_str());
}
