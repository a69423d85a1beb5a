#include "native/environment.h"

#include <cstdlib>

void SetEnvironment(const char* pszName, const std::string& strValue)
{
    if (strValue.empty())
        unsetenv(pszName);
    else
        setenv(pszName, strValue.c_str(), 1);
}
