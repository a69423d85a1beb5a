// Reads what the system has set.
#include "menu/win32/windows_system.h"

#include "menu/win32/system_library.h"

namespace
{
EWindowsVersion ReadVersion()
{
    constexpr DWORD nNotNt = 0x80000000;
    OSVERSIONINFOA info = {};
    info.dwOSVersionInfoSize = sizeof info;
    const bool bNT = (::GetVersion() & nNotNt) == 0;
    if (!::GetVersionExA(&info))
        return EWindowsVersion::old;
    return ClassifyWindows(bNT, static_cast<int>(info.dwMajorVersion),
                           static_cast<int>(info.dwMinorVersion));
}

int ReadColourCount()
{
    const HDC hDC = ::GetDC(nullptr);
    const int nColours = ::GetDeviceCaps(hDC, NUMCOLORS);
    ::ReleaseDC(nullptr, hDC);
    return CountColours(nColours);
}

// Where the system does not know the question, it is answered with no.
bool IsOn(UINT nQuestion)
{
    BOOL bOn = FALSE;
    return ::SystemParametersInfoA(nQuestion, 0, &bOn, 0) && bOn;
}

bool IsHighContrast()
{
    HIGHCONTRASTA contrast = {};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}
}  // namespace

bool RunsOnWine()
{
    static const bool s_bWine =
        ::GetProcAddress(::GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name") != nullptr;
    return s_bWine;
}

CMenuSystem ReadMenuSystem()
{
    static const EWindowsVersion s_version = ReadVersion();
    static const int s_nColours = ReadColourCount();
    CMenuSystem system;
    for (int nIndex = 0; nIndex < CMenuSystem::COLOURS; ++nIndex)
        system.m_colours[static_cast<std::size_t>(nIndex)] = ::GetSysColor(nIndex);
    system.m_nColours = s_nColours;
    system.m_nMenuHeight = ::GetSystemMetrics(SM_CYMENU);
    system.m_bHighContrast = IsHighContrast();
    system.m_bDropShadow = IsOn(SPI_GETDROPSHADOW);
    system.m_bHidesPrefixes =
        s_version >= EWindowsVersion::windows2000 && !IsOn(SPI_GETKEYBOARDCUES);
    system.m_bFlatBar = IsOn(SPI_GETFLATMENU);
    system.m_bTheme = ReadVisualTheme(&system.m_crTheme);
    system.m_bWine = RunsOnWine();
    system.m_version = s_version;
    return system;
}
