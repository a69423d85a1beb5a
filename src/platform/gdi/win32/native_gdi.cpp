// Fonts that come with the library, and files of metafiles, around the system's interface.
#include "platform/gdi/native_gdi.h"

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/base/module_path.h"
#include "platform/gdi/metafile_walk.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

namespace
{

constexpr char s_szOwnFace[] = "MT Extra";
constexpr DWORD FONT_RECORD = 82;
// Of a font record: where the LOGFONTW lies, and where the face's name begins in it.
constexpr std::size_t FACE_OFFSET = 12 + offsetof(LOGFONTW, lfFaceName);
constexpr std::size_t FACE_BYTES = sizeof LOGFONTW{}.lfFaceName;
// A record of this size ends with names and marks that nothing here sets; a longer one has a
// signature behind its names that readers look at.
constexpr std::size_t PLAIN_FONT_BYTES = 332;
constexpr std::size_t NAMES_END = FACE_OFFSET + FACE_BYTES + 192;

int CALLBACK FaceFound(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM)
{
    return 0;  // one is enough
}

bool SystemHasFace(const char* pszFace)
{
    LOGFONTA asked{};
    asked.lfCharSet = DEFAULT_CHARSET;
    std::strncpy(asked.lfFaceName, pszFace, LF_FACESIZE - 1);
    const HDC hScreen = GetDC(nullptr);
    const bool bFound = EnumFontFamiliesExA(hScreen, &asked, FaceFound, 0, 0) == 0;
    ReleaseDC(nullptr, hScreen);
    return bFound;
}

// For this process alone, until it ends.
void LoadOwnFace()
{
    static const bool s_bLoaded = []
    {
        const auto path = BesideModule({ "../share/mivora/fonts/mtextra.ttf" });
        return !SystemHasFace(s_szOwnFace) && !path.empty() &&
               AddFontResourceExW(path.c_str(), FR_PRIVATE, nullptr) > 0;
    }();
    static_cast<void>(s_bLoaded);
}

// Calls visit with each whole record.
template <class F>
void ForEachRecord(std::span<BYTE> bytes, F visit)
{
    for (std::size_t nOffset = 0; nOffset + sizeof(ENHMETARECORD) <= bytes.size();)
    {
        DWORD nSize;
        std::memcpy(&nSize, bytes.data() + nOffset + sizeof(DWORD), sizeof nSize);
        visit(bytes.subspan(nOffset, nSize));
        nOffset += nSize;
    }
}

// The system leaves what was in its memory behind the end of a face's name.
void ClearBehindFace(std::span<BYTE> record)
{
    DWORD nType;
    std::memcpy(&nType, record.data(), sizeof nType);
    if (nType != FONT_RECORD || record.size() < FACE_OFFSET + FACE_BYTES)
        return;
    wchar_t szFace[FACE_BYTES / sizeof(wchar_t)];
    std::memcpy(szFace, record.data() + FACE_OFFSET, FACE_BYTES);
    const std::size_t nUsed = FACE_OFFSET + wcsnlen(szFace, std::size(szFace)) * sizeof(wchar_t);
    const std::size_t nEnd =
        record.size() == PLAIN_FONT_BYTES ? record.size() : std::min(NAMES_END, record.size());
    std::memset(record.data() + nUsed, 0, nEnd - nUsed);
}

std::vector<BYTE> BytesOf(HENHMETAFILE hMetaFile)
{
    std::vector<BYTE> bytes(GetEnhMetaFileBits(hMetaFile, 0, nullptr));
    bytes.resize(GetEnhMetaFileBits(hMetaFile, static_cast<UINT>(bytes.size()), bytes.data()));
    return bytes;
}

// The file's bytes as far as a metafile of bearable size goes; CFileException.
std::vector<BYTE> ReadFileBytes(CFile& file)
{
    constexpr UINT STEP = 64 * 1024;
    std::vector<BYTE> bytes;
    std::size_t nWalked = 0;
    for (UINT nRead = STEP; nRead == STEP;)
    {
        const std::size_t nHave = bytes.size();
        bytes.resize(nHave + STEP);
        nRead = file.Read(bytes.data() + nHave, STEP);
        bytes.resize(nHave + nRead);
        if (!CheckHeader(bytes) || WalkRecords(bytes, &nWalked) != walkMore)
            break;
    }
    return bytes;
}

// The system believes the header: it gets one that is true.
void MendHeader(std::span<BYTE> bytes)
{
    ENHMETAHEADER header{};
    const std::size_t nFields = METAFILE_OLDEST_HEADER;
    std::memcpy(&header, bytes.data(), nFields);
    header.nBytes = static_cast<DWORD>(bytes.size());
    header.nHandles = header.nHandles != 0 ? header.nHandles : 1;
    std::memcpy(bytes.data(), &header, nFields);
}

HENHMETAFILE MakeMetafile(std::vector<BYTE> bytes)
{
    const std::size_t nWhole = CheckHeader(bytes) ? WholeRecords(bytes) : 0;
    if (nWhole == 0)
    {
        SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    }
    bytes.resize(nWhole);
    MendHeader(bytes);
    return SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
}

}  // namespace

HFONT CreateFaceFont(const LOGFONTA* pFont)
{
    if (lstrcmpiA(pFont->lfFaceName, s_szOwnFace) == 0)
        LoadOwnFace();
    return CreateFontIndirectA(pFont);
}

// The system keeps no font that was not made.
bool QuickTextExtent(HDC, const LOGFONTA&, LPCSTR, int, SIZE*)
{
    return false;
}

BOOL SaveEnhMetaFile(HENHMETAFILE hMetaFile, LPCSTR pszFile)
{
    std::vector<BYTE> bytes = BytesOf(hMetaFile);
    if (bytes.empty())
        return FALSE;
    ForEachRecord(bytes, ClearBehindFace);
    CMirrorFile file;
    CFileException error;
    if (!file.Open(pszFile, CFile::modeCreate | CFile::modeWrite, &error))
    {
        SetLastError(static_cast<DWORD>(error.m_lOsError));
        return FALSE;
    }
    try
    {
        file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        file.Close();
        return TRUE;
    }
    catch (CFileException* pError)
    {
        const auto dwError = static_cast<DWORD>(pError->m_lOsError);
        pError->Delete();
        file.Abort();
        SetLastError(dwError);
        return FALSE;
    }
}

HENHMETAFILE LoadEnhMetaFile(LPCSTR pszFile)
{
    try
    {
        CFile file(pszFile, CFile::modeRead | CFile::shareDenyNone);
        return MakeMetafile(ReadFileBytes(file));
    }
    catch (CFileException* pError)
    {
        const auto dwError = static_cast<DWORD>(pError->m_lOsError);
        pError->Delete();
        SetLastError(dwError);
        return nullptr;
    }
}
