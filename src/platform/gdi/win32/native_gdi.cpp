// Fonts that come with the library, and files of metafiles, around the system's interface.
#include "platform/gdi/native_gdi.h"

#include "platform/base/code_page.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/base/module_path.h"
#include "platform/gdi/metafile_walk.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <new>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr char s_szOwnFace[] = "MT Extra";
// Of a font record: where the LOGFONTW lies, and where the face's name begins in it.
constexpr std::size_t s_nFaceOffset = 12 + offsetof(LOGFONTW, lfFaceName);
constexpr std::size_t s_nFaceBytes = sizeof LOGFONTW{}.lfFaceName;
// A record of this size ends with names and marks that nothing here sets; a longer one has a
// signature behind its names that readers look at.
constexpr std::size_t s_nPlainFontBytes = 332;
constexpr std::size_t s_nNamesEnd = s_nFaceOffset + s_nFaceBytes + 192;

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

// The face that comes in the place of one that is missing.
std::string SubstituteOf(const LOGFONTA& font)
{
    char szFace[LF_FACESIZE] = "";
    const HDC hDC = CreateCompatibleDC(nullptr);
    const HFONT hFont = CreateFontIndirectA(&font);
    const HGDIOBJ hOld = SelectObject(hDC, hFont);
    GetTextFaceA(hDC, LF_FACESIZE, szFace);
    SelectObject(hDC, hOld);
    DeleteObject(hFont);
    DeleteDC(hDC);
    return szFace;
}

void TellIfMissing(const LOGFONTA& font, const std::string& strFace)
{
    if (strFace.empty() || SystemHasFace(strFace.c_str()))
        return;
    std::string strShown = strFace;
    for (char& ch : strShown)
        ch = static_cast<unsigned char>(ch) < 0x20 || ch == 0x7F ? '?' : ch;
    std::fprintf(stderr, "mivora: the font \"%s\" is missing; %s is used in its place\n",
                 Windows1252ToUtf8(strShown).c_str(), SubstituteOf(font).c_str());
}

// What has to be done when a face is first asked for.
void PrepareFace(const LOGFONTA& font)
{
    constexpr std::size_t nMostNames = 1000;  // a damaged file may have any number
    static std::set<std::string, std::less<>> s_seen;
    const std::string_view face(font.lfFaceName, strnlen(font.lfFaceName, LF_FACESIZE - 1));
    if (s_seen.size() >= nMostNames || s_seen.find(face) != s_seen.end())
        return;
    const std::string strFace(*s_seen.emplace(face).first);
    if (lstrcmpiA(strFace.c_str(), s_szOwnFace) == 0)
        LoadOwnFace();
    TellIfMissing(font, strFace);
}

// Calls visit with each whole record.
template <class F>
void ForEachRecord(std::span<BYTE> bytes, F visit)
{
    for (std::size_t nOffset = 0; nOffset < bytes.size();)
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
    if (nType != EMR_EXTCREATEFONTINDIRECTW || record.size() < s_nFaceOffset + s_nFaceBytes)
        return;
    wchar_t szFace[s_nFaceBytes / sizeof(wchar_t)];
    std::memcpy(szFace, record.data() + s_nFaceOffset, s_nFaceBytes);
    const std::size_t nUsed = s_nFaceOffset + wcsnlen(szFace, std::size(szFace)) * sizeof(wchar_t);
    const std::size_t nEnd =
        record.size() == s_nPlainFontBytes ? record.size() : std::min(s_nNamesEnd, record.size());
    std::memset(record.data() + nUsed, 0, nEnd - nUsed);
}

std::vector<BYTE> BytesOf(HENHMETAFILE hMetaFile)
{
    std::vector<BYTE> bytes(GetEnhMetaFileBits(hMetaFile, 0, nullptr));
    bytes.resize(GetEnhMetaFileBits(hMetaFile, static_cast<UINT>(bytes.size()), bytes.data()));
    return bytes;
}

class CMetafileFile : public CFile
{
public:
    explicit CMetafileFile(LPCSTR pszFile) : CFile(pszFile, modeRead | shareDenyNone) {}
    bool IsOnDisk() const
    {
        return GetFileType(reinterpret_cast<HANDLE>(m_hFile)) == FILE_TYPE_DISK;
    }
};

// How many bytes the piece that was begun still lacks: the header, the head of a record or the rest
// of one. nWalked bytes of the others are whole records.
std::size_t MissingBytes(std::span<const BYTE> bytes, std::size_t nWalked)
{
    constexpr std::size_t nHead = 2 * sizeof(DWORD);
    if (bytes.size() < METAFILE_OLDEST_HEADER)
        return METAFILE_OLDEST_HEADER - bytes.size();
    const std::size_t nBegun = bytes.size() - nWalked;
    if (nBegun < nHead)
        return nHead - nBegun;
    DWORD nSize;
    std::memcpy(&nSize, bytes.data() + nWalked + sizeof(DWORD), sizeof nSize);
    return nSize - nBegun;
}

// The file's bytes as far as a metafile of bearable size goes; CFileException. From a pipe no byte
// is waited for that need not come.
std::vector<BYTE> ReadFileBytes(CMetafileFile& file)
{
    constexpr std::size_t nMostAtOnce = 64 * 1024;
    const bool bOnDisk = file.IsOnDisk();
    std::vector<BYTE> bytes;
    std::size_t nWalked = 0;
    for (;;)
    {
        const std::size_t nHave = bytes.size();
        const std::size_t nStep =
            bOnDisk ? nMostAtOnce : std::min(nMostAtOnce, MissingBytes(bytes, nWalked));
        bytes.resize(nHave + nStep);
        const UINT nRead = file.Read(bytes.data() + nHave, static_cast<UINT>(nStep));
        bytes.resize(nHave + nRead);
        if (nRead < nStep || !CheckHeader(bytes) || WalkRecords(bytes, &nWalked) != walkMore)
            return bytes;
    }
}

// The system believes the header: it gets one that is true.
void MendHeader(std::span<BYTE> bytes, DWORD nRecords)
{
    ENHMETAHEADER header{};
    const std::size_t nFields = METAFILE_OLDEST_HEADER;
    std::memcpy(&header, bytes.data(), nFields);
    header.nBytes = static_cast<DWORD>(bytes.size());
    header.nRecords = nRecords;
    header.nHandles = header.nHandles != 0 ? header.nHandles : 1;
    std::memcpy(bytes.data(), &header, nFields);
}

// Appends a record; a comment gets room for its length, which says no more than its record has.
void AppendRecord(std::vector<BYTE>& bytes, std::span<const BYTE> record)
{
    constexpr std::size_t nCommentHead = 3 * sizeof(DWORD);
    const std::size_t nStart = bytes.size();
    bytes.insert(bytes.end(), record.begin(), record.end());
    DWORD anHead[3] = {};
    std::memcpy(anHead, record.data(), std::min(record.size(), nCommentHead));
    if (anHead[0] != EMR_GDICOMMENT)
        return;
    const std::size_t nSize = std::max(record.size(), nCommentHead);
    anHead[1] = static_cast<DWORD>(nSize);
    anHead[2] = std::min(anHead[2], static_cast<DWORD>(nSize - nCommentHead));
    bytes.resize(nStart + nSize);
    std::memcpy(bytes.data() + nStart, anHead, nCommentHead);
}

HENHMETAFILE MakeMetafile(std::span<BYTE> bytes)
{
    const std::size_t nWhole = CheckHeader(bytes) ? WholeRecords(bytes) : 0;
    if (nWhole == 0)
    {
        SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    }
    std::vector<BYTE> mended;
    mended.reserve(nWhole);
    DWORD nRecords = 0;
    ForEachRecord(bytes.first(nWhole),
                  [&](std::span<const BYTE> record)
                  {
                      AppendRecord(mended, record);
                      ++nRecords;
                  });
    MendHeader(mended, nRecords);
    return SetEnhMetaFileBits(static_cast<UINT>(mended.size()), mended.data());
}

// What fails for want of memory gives FALSE or null like any other failure.
template <class Job>
auto WithErrors(Job job) -> decltype(job())
{
    DWORD dwError = ERROR_NOT_ENOUGH_MEMORY;
    try
    {
        return job();
    }
    catch (CFileException* pError)
    {
        dwError = static_cast<DWORD>(pError->m_lOsError);
        pError->Delete();
    }
    catch (CMemoryException* pError)
    {
        pError->Delete();
    }
    catch (const std::bad_alloc&)
    {
    }
    SetLastError(dwError);
    return {};
}

}  // namespace

HFONT CreateFaceFont(const LOGFONTA* pFont)
{
    if (pFont == nullptr)
        return nullptr;
    PrepareFace(*pFont);
    return CreateFontIndirectA(pFont);
}

// The system keeps no font that was not made.
bool QuickTextExtent(HDC, const LOGFONTA&, LPCSTR, int, SIZE*)
{
    return false;
}

// The picture of a letter is made whole, whatever is seen of it: one beyond 32-bit sizes was seen
// to end the process, one near them takes gigabytes.
bool CanDrawLetters(HDC hDC)
{
    constexpr double fMostPixels = 1 << 28;
    TEXTMETRICA metrics{};
    if (GetObjectType(hDC) == OBJ_ENHMETADC || !GetTextMetricsA(hDC, &metrics))
        return true;
    POINT aCorners[] = { { 0, 0 }, { metrics.tmMaxCharWidth, metrics.tmHeight } };
    LPtoDP(hDC, aCorners, 2);
    const double fWidth = static_cast<double>(aCorners[1].x) - static_cast<double>(aCorners[0].x);
    const double fHeight = static_cast<double>(aCorners[1].y) - static_cast<double>(aCorners[0].y);
    return std::fabs(fWidth * fHeight) <= fMostPixels;
}

int DrawLetters(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat)
{
    if ((nFormat & DT_CALCRECT) != 0 || CanDrawLetters(hDC))
        return DrawTextA(hDC, pszText, nCount, pRect, nFormat);
    RECT measured = *pRect;
    return DrawTextA(hDC, pszText, nCount, &measured, nFormat | DT_CALCRECT);
}

bool IsLastErrorOfMemory()
{
    return GetLastError() == ERROR_NOT_ENOUGH_MEMORY;
}

std::vector<BYTE> EnhMetaFileBytes(HENHMETAFILE hMetaFile)
{
    return WithErrors(
        [=]
        {
            std::vector<BYTE> bytes = BytesOf(hMetaFile);
            ForEachRecord(std::span<BYTE>(bytes), ClearBehindFace);
            return bytes;
        });
}

BOOL SaveEnhMetaFile(HENHMETAFILE hMetaFile, LPCSTR pszFile)
{
    const std::vector<BYTE> bytes = EnhMetaFileBytes(hMetaFile);
    const auto write = [&]
    {
        const LONG lError = WriteWholeFile(pszFile, { bytes });
        if (lError != 0)
            SetLastError(static_cast<DWORD>(lError));
        return lError == 0;
    };
    return !bytes.empty() && WithErrors(write);
}

HENHMETAFILE MakeEnhMetaFile(std::span<const BYTE> bytes)
{
    return WithErrors(
        [=]
        {
            std::vector<BYTE> copy(bytes.begin(), bytes.end());
            return MakeMetafile(copy);
        });
}

HENHMETAFILE LoadEnhMetaFile(LPCSTR pszFile)
{
    if (pszFile == nullptr)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return WithErrors(
        [=]
        {
            CMetafileFile file(pszFile);
            std::vector<BYTE> bytes = ReadFileBytes(file);
            return MakeMetafile(bytes);
        });
}
