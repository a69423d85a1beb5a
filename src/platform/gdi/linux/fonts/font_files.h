// Where font files are: the folder beside the library first, then whatever the system has.
#pragma once

#include <optional>
#include <string>

struct CFontLocation
{
    std::string m_strFile;
    int m_nIndex = 0;  // of the face in a file that holds several
    bool m_bBold = false;
    bool m_bItalic = false;
};

// The folder with the library's own fonts, found from where the library itself lies; empty if
// there is none.
const std::string& FontFolder();

// The file of that name in the folder, or an empty string.
std::string FileInFontFolder(const char* pszName);

// A scalable font of exactly this family (UTF-8, any case), the style as near as there is one.
// The first call reads the system's font configuration, which takes some milliseconds.
std::optional<CFontLocation> FindSystemFont(const std::string& strFamily, bool bBold, bool bItalic);

// What the system thinks nearest to a family that it may not have.
std::optional<CFontLocation> FindAnySystemFont(const std::string& strFamily, bool bBold,
                                               bool bItalic);
