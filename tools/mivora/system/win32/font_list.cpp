// The system tells no font's file: the font's bytes are looked for in the files that are installed.
#include "system/font_list.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>

#include "platform/base/module_path.h"
#include "platform/base/win32/wide_text.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/native_gdi.h"

namespace
{
struct CFace
{
    const char* pszFace;
    bool bStyles;  // bold and italic have files of their own
};
constexpr CFace s_aFaces[] = { { "Times New Roman", true },
                               { "Arial", true },
                               { "Courier New", true },
                               { "Symbol", false },
                               { "MT Extra", false } };

struct CStyle
{
    const char* pszName;
    LONG nWeight;
    BYTE bItalic;
};
constexpr CStyle s_aStyles[] = { { "", FW_NORMAL, 0 },
                                 { " Bold", FW_BOLD, 0 },
                                 { " Italic", FW_NORMAL, 1 },
                                 { " Bold Italic", FW_BOLD, 1 } };

// The table of general facts about a font; it holds a sum over the whole file.
using CHeadTable = std::array<unsigned char, 54>;
constexpr char s_szHead[] = "head";

unsigned BigEndian(const unsigned char* p, int nBytes)
{
    unsigned n = 0;
    for (int i = 0; i < nBytes; ++i)
        n = n << 8 | p[i];
    return n;
}

// The head of the font whose table directory begins at nOffset.
std::optional<CHeadTable> HeadAt(std::ifstream& file, unsigned nOffset)
{
    unsigned char aStart[12];
    unsigned char aEntry[16];
    file.seekg(nOffset);
    if (!file.read(reinterpret_cast<char*>(aStart), sizeof aStart))
        return std::nullopt;
    for (unsigned nLeft = BigEndian(aStart + 4, 2); nLeft > 0; --nLeft)
    {
        if (!file.read(reinterpret_cast<char*>(aEntry), sizeof aEntry))
            return std::nullopt;
        if (std::memcmp(aEntry, s_szHead, 4) != 0)
            continue;
        CHeadTable head;
        file.seekg(BigEndian(aEntry + 8, 4));
        if (!file.read(reinterpret_cast<char*>(head.data()), head.size()))
            return std::nullopt;
        return head;
    }
    return std::nullopt;
}

// Of all fonts in a file: a collection has several.
std::vector<CHeadTable> HeadsOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<unsigned> offsets = { 0 };
    unsigned char aStart[12];
    if (file.read(reinterpret_cast<char*>(aStart), sizeof aStart) &&
        std::memcmp(aStart, "ttcf", 4) == 0)
    {
        offsets.clear();
        unsigned char aOffset[4];
        for (unsigned nLeft = BigEndian(aStart + 8, 4);
             nLeft > 0 && file.read(reinterpret_cast<char*>(aOffset), sizeof aOffset); --nLeft)
        {
            offsets.push_back(BigEndian(aOffset, 4));
        }
    }
    std::vector<CHeadTable> heads;
    for (const unsigned nOffset : offsets)
    {
        file.clear();
        if (const std::optional<CHeadTable> head = HeadAt(file, nOffset))
            heads.push_back(*head);
    }
    return heads;
}

void AddFolder(const std::filesystem::path& folder, std::vector<std::filesystem::path>& files)
{
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
        files.push_back(entry.path());
}

// Fonts that lie elsewhere, by their full paths.
void AddRegistered(HKEY hRoot, std::vector<std::filesystem::path>& files)
{
    HKEY hKey = nullptr;
    if (RegOpenKeyExW(hRoot, L"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", 0, KEY_READ,
                      &hKey) != ERROR_SUCCESS)
        return;
    wchar_t szName[1024];
    wchar_t szFile[1024];
    for (DWORD n = 0;; ++n)
    {
        DWORD nName = static_cast<DWORD>(std::size(szName));
        DWORD nBytes = sizeof szFile - sizeof(wchar_t);
        DWORD nType = 0;
        const LONG nResult = RegEnumValueW(hKey, n, szName, &nName, nullptr, &nType,
                                           reinterpret_cast<BYTE*>(szFile), &nBytes);
        if (nResult == ERROR_NO_MORE_ITEMS)
            break;
        szFile[nBytes / sizeof(wchar_t)] = L'\0';
        if (nResult == ERROR_SUCCESS && nType == REG_SZ &&
            std::filesystem::path(szFile).is_absolute())
            files.push_back(szFile);
    }
    RegCloseKey(hKey);
}

struct CFontFile
{
    std::filesystem::path path;
    std::vector<CHeadTable> heads;
};

std::vector<CFontFile> InstalledFiles()
{
    std::vector<std::filesystem::path> paths;
    const std::filesystem::path own = BesideModule({ "../share/mivora/fonts" });
    wchar_t szWindows[MAX_PATH] = L"";
    GetWindowsDirectoryW(szWindows, MAX_PATH);
    AddFolder(std::filesystem::path(szWindows) / L"Fonts", paths);
    AddRegistered(HKEY_LOCAL_MACHINE, paths);
    AddRegistered(HKEY_CURRENT_USER, paths);
    if (!own.empty())
        AddFolder(own, paths);
    std::vector<CFontFile> files;
    for (const std::filesystem::path& path : paths)
        files.push_back({ path, HeadsOf(path) });
    return files;
}

// The head of the font that the system takes; nothing if that has another face.
std::optional<CHeadTable> HeadOfFace(CDC& dc, const CFace& face, const CStyle& style)
{
    LOGFONTA asked{};
    asked.lfHeight = -16;
    asked.lfWeight = style.nWeight;
    asked.lfItalic = style.bItalic;
    asked.lfCharSet = DEFAULT_CHARSET;
    std::strncpy(asked.lfFaceName, face.pszFace, LF_FACESIZE - 1);
    CFont font;
    font.Attach(CreateFaceFont(&asked));
    const CSelectScope scope(&dc, &font);
    char szTaken[LF_FACESIZE] = "";
    GetTextFaceA(dc, LF_FACESIZE, szTaken);
    CHeadTable head;
    DWORD nTag;
    std::memcpy(&nTag, s_szHead, sizeof nTag);
    if (lstrcmpiA(szTaken, face.pszFace) != 0 ||
        GetFontData(dc, nTag, 0, head.data(), static_cast<DWORD>(head.size())) != head.size())
        return std::nullopt;
    return head;
}

std::string FileOf(const std::optional<CHeadTable>& head, const std::vector<CFontFile>& files)
{
    const auto it = std::find_if(files.begin(), files.end(),
                                 [&](const CFontFile& file) {
                                     return head && std::find(file.heads.begin(), file.heads.end(),
                                                              *head) != file.heads.end();
                                 });
    if (it == files.end())
        return {};
    std::filesystem::path path = it->path;
    return FromWide(path.lexically_normal().make_preferred().native(), CP_UTF8)
        .value_or(std::string());
}
}  // namespace

std::vector<std::pair<std::string, std::string>> FacesAndFiles()
{
    const std::vector<CFontFile> files = InstalledFiles();
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    std::vector<std::pair<std::string, std::string>> list;
    for (const CFace& face : s_aFaces)
    {
        const size_t nStyles = face.bStyles ? std::size(s_aStyles) : 1;
        for (const CStyle& style : std::span(s_aStyles, nStyles))
        {
            list.emplace_back(std::string(face.pszFace) + style.pszName,
                              FileOf(HeadOfFace(dc, face, style), files));
        }
    }
    return list;
}
