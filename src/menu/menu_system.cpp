// Versions and counts of systems.
#include "menu/menu_system.h"

EWindowsVersion ClassifyWindows(bool bNT, int nMajor, int nMinor)
{
    if (!bNT)
    {
        return nMajor < 4    ? EWindowsVersion::old
               : nMinor < 10 ? EWindowsVersion::windows95
               : nMinor < 90 ? EWindowsVersion::windows98
                             : EWindowsVersion::windowsMe;
    }
    if (nMajor < 5)
        return nMajor < 4 ? EWindowsVersion::ntBelow4 : EWindowsVersion::nt4;
    return nMajor == 5 && nMinor == 0 ? EWindowsVersion::windows2000 : EWindowsVersion::later;
}

int CountColours(int nNumColours)
{
    constexpr int nMany = 64000;
    return nNumColours == -1 ? nMany : nNumColours;
}
