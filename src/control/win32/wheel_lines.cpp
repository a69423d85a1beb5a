// The user's setting, asked of the system or read where it is kept.
#include "control/win32/wheel_lines.h"

#include <cstdlib>

#include "control/formula_control.h"

namespace
{

// Systems that cannot be asked have it as a text.
unsigned ReadFromRegistry()
{
    unsigned nLines = DEFAULT_WHEEL_LINES;
    HKEY hKey = nullptr;
    if (::RegOpenKeyExA(HKEY_CURRENT_USER, "Control Panel\\Desktop", 0, KEY_QUERY_VALUE, &hKey) !=
        ERROR_SUCCESS)
        return nLines;
    char szValue[128] = "";
    DWORD nBytes = sizeof szValue - 1;
    if (::RegQueryValueExA(hKey, "WheelScrollLines", nullptr, nullptr,
                           reinterpret_cast<BYTE*>(szValue), &nBytes) == ERROR_SUCCESS)
        nLines = static_cast<unsigned>(std::strtoul(szValue, nullptr, 10));
    ::RegCloseKey(hKey);
    return nLines;
}

}  // namespace

unsigned ReadWheelScrollLines()
{
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    const bool bKnown = ::GetVersionExA(&version) != FALSE;
    if (!bKnown ||
        (version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS && version.dwMinorVersion == 0))
        return ReadFromRegistry();
    UINT nLines = DEFAULT_WHEEL_LINES;
    ::SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &nLines, 0);
    return nLines;
}
