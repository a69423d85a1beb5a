// Which file stands for a face: a table for the faces that formulas use, the system's fonts for
// others, and a substitute, told once, for those that are nowhere.
#include "platform/gdi/linux/fonts/font_face.h"

#include "platform/base/code_page.h"
#include "platform/gdi/linux/fonts/font_files.h"
#include "platform/gdi/linux/fonts/font_reader.h"

#include <strings.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <span>

namespace
{

constexpr int s_nBold = 1;  // bits of a style
constexpr int s_nItalic = 2;
constexpr int s_nStyleCount = 4;
constexpr const char* s_apszStyles[s_nStyleCount] = { "", " Bold", " Italic", " Bold Italic" };
constexpr std::size_t s_nNameLimit = 512;  // of unknown faces that are remembered

enum CFamilyIndex
{
    SERIF,
    SANS,
    MONO,
    SYMBOL,
    MT_EXTRA,
    FAMILY_COUNT
};

struct CFamily
{
    const char* m_pszFace;
    const char* m_pszFree;  // free font of the same widths, as the system may know it
    CTextCoding m_coding;
    const char* m_apszFiles[s_nStyleCount];  // in the folder, by style
};

#define TEXT_FILES(name)                                                                  \
    {                                                                                     \
        name "-Regular.ttf", name "-Bold.ttf", name "-Italic.ttf", name "-BoldItalic.ttf" \
    }

constexpr CFamily s_aFamilies[FAMILY_COUNT] = {
    { "Times New Roman", "Liberation Serif", CTextCoding::text, TEXT_FILES("LiberationSerif") },
    { "Arial", "Liberation Sans", CTextCoding::text, TEXT_FILES("LiberationSans") },
    { "Courier New", "Liberation Mono", CTextCoding::text, TEXT_FILES("LiberationMono") },
    { "Symbol", "Symbol", CTextCoding::symbol, { "symbol.ttf" } },
    { "MT Extra", "MT Extra", CTextCoding::mtExtra, { "mtextra.ttf" } },
};

#undef TEXT_FILES

struct CAlias
{
    const char* m_pszFace;
    CFamilyIndex m_nFamily;
};

constexpr CAlias s_aAliases[] = {
    { "Times", SERIF },        { "Liberation Serif", SERIF },
    { "Helvetica", SANS },     { "Liberation Sans", SANS },
    { "System", SANS },  // the stock fonts
    { "MS Sans Serif", SANS }, { "MS Shell Dlg", SANS },
    { "Courier", MONO },       { "Liberation Mono", MONO },
    { "Terminal", MONO },      { "Fixedsys", MONO },
};

int FindFamily(const char* pszFace)
{
    for (int i = 0; i < FAMILY_COUNT; ++i)
    {
        if (strcasecmp(pszFace, s_aFamilies[i].m_pszFace) == 0)
            return i;
    }
    for (const CAlias& alias : s_aAliases)
    {
        if (strcasecmp(pszFace, alias.m_pszFace) == 0)
            return alias.m_nFamily;
    }
    return -1;
}

CFamilyIndex FamilyByPitch(BYTE nPitchAndFamily)
{
    if ((nPitchAndFamily & 3) == FIXED_PITCH)
        return MONO;
    return (nPitchAndFamily & 0xF0) == FF_ROMAN ? SERIF : SANS;
}

// A name from a damaged file is shown in one line of readable text.
std::string Printable(const char* pszFace)
{
    std::string strFace = pszFace;
    for (char& ch : strFace)
    {
        const auto nCode = static_cast<unsigned char>(ch);
        if (nCode < 0x20 || nCode == 0x7F)
            ch = '?';
    }
    return Windows1252ToUtf8(strFace);
}

void ReportSubstitute(const char* pszFace, const char* pszSubstitute)
{
    static std::set<std::string> s_told;
    if (s_told.size() < s_nNameLimit && s_told.insert(pszFace).second)
    {
        std::fprintf(stderr, "mivora: the font \"%s\" is missing; %s is used in its place\n",
                     Printable(pszFace).c_str(), pszSubstitute);
    }
}

// Takes a font of the system if it can be read; what the file has not of the style is left to the
// drawing.
bool UseSystemFont(CFontFace& face, const std::optional<CFontLocation>& location, int nStyle)
{
    if (!location)
        return false;
    CFontFace found = face;
    found.m_strFile = location->m_strFile;
    found.m_nIndex = location->m_nIndex;
    found.m_bFakeBold = (nStyle & s_nBold) && !location->m_bBold;
    found.m_bFakeItalic = (nStyle & s_nItalic) && !location->m_bItalic;
    if (!ReadFontFile(found))
        return false;
    face = std::move(found);
    return true;
}

// A file of the folder; a style that has no file of its own takes the regular one.
bool UseFolderFont(CFontFace& face, const CFamily& family, int nFileStyle, int nStyle)
{
    int nMissing = nStyle & ~nFileStyle;
    const char* pszFile = family.m_apszFiles[nFileStyle];
    if (!pszFile)
        return false;
    CFontFace found = face;
    found.m_strFile = FileInFontFolder(pszFile);
    found.m_coding = family.m_coding;
    found.m_bFakeBold = nMissing & s_nBold;
    found.m_bFakeItalic = nMissing & s_nItalic;
    if (found.m_strFile.empty() || !ReadFontFile(found))
        return false;
    face = std::move(found);
    return true;
}

bool UseFamily(CFontFace& face, const CFamily& family, int nStyle)
{
    bool bOneFile = !family.m_apszFiles[s_nBold];  // all styles come from it
    return UseFolderFont(face, family, bOneFile ? 0 : nStyle, nStyle) ||
           UseSystemFont(face,
                         FindSystemFont(family.m_pszFace, nStyle & s_nBold, nStyle & s_nItalic),
                         nStyle) ||
           UseSystemFont(face,
                         FindSystemFont(family.m_pszFree, nStyle & s_nBold, nStyle & s_nItalic),
                         nStyle) ||
           UseFolderFont(face, family, 0, nStyle);
}

// Numbers that are no font's, so that everything still has a place and a size.
void MakeUp(CFontFace& face)
{
    face.m_coding = CTextCoding::text;
    face.m_anAdvances.fill(face.m_nUnitsPerEm / 2);
}

std::unique_ptr<CFontFace> LoadFamily(int nFamily, int nStyle)
{
    const CFamily& family = s_aFamilies[nFamily];
    auto pFace = std::make_unique<CFontFace>();
    pFace->m_coding = family.m_coding;
    pFace->m_bPrivateCodes = family.m_coding != CTextCoding::text;
    if (UseFamily(*pFace, family, nStyle))
        return pFace;

    pFace->m_coding = CTextCoding::text;
    for (int nOther : { SERIF, SANS, MONO })
    {
        if (nOther == nFamily || !UseFolderFont(*pFace, s_aFamilies[nOther], nStyle, nStyle))
            continue;
        ReportSubstitute(family.m_pszFace, s_aFamilies[nOther].m_pszFree);
        return pFace;
    }
    if (UseSystemFont(*pFace,
                      FindAnySystemFont(family.m_pszFree, nStyle & s_nBold, nStyle & s_nItalic),
                      nStyle))
    {
        ReportSubstitute(family.m_pszFace, pFace->m_strFile.c_str());
        return pFace;
    }
    MakeUp(*pFace);
    ReportSubstitute(family.m_pszFace, "a size without glyphs");
    return pFace;
}

// All faces by number: the table's, four styles each, then those of the system.
std::vector<std::unique_ptr<CFontFace>>& Faces()
{
    static auto* s_pFaces =
        new std::vector<std::unique_ptr<CFontFace>>(FAMILY_COUNT * s_nStyleCount);
    return *s_pFaces;
}

int AddSystemFace(CFontFace face)
{
    auto& faces = Faces();
    for (std::size_t i = FAMILY_COUNT * s_nStyleCount; i < faces.size(); ++i)
    {
        if (faces[i]->m_strFile == face.m_strFile && faces[i]->m_nIndex == face.m_nIndex &&
            faces[i]->m_bFakeBold == face.m_bFakeBold &&
            faces[i]->m_bFakeItalic == face.m_bFakeItalic)
            return static_cast<int>(i);
    }
    faces.push_back(std::make_unique<CFontFace>(std::move(face)));
    return static_cast<int>(faces.size()) - 1;
}

// A face that the table does not name. Asking the system is dear, so that answers are kept.
int FindUnknownFace(const char* pszFace, int nStyle, BYTE nPitchAndFamily)
{
    int nSubstitute = FamilyByPitch(nPitchAndFamily);
    int nSubstituteId = nSubstitute * s_nStyleCount + nStyle;
    if (!*pszFace)
        return nSubstituteId;  // any face will do
    constexpr int nNowhere = -1;
    static std::map<std::pair<std::string, int>, int> s_known;
    if (s_known.size() >= s_nNameLimit)
        s_known.clear();
    auto [it, bNew] = s_known.try_emplace({ pszFace, nStyle }, nNowhere);
    if (bNew)
    {
        CFontFace face;
        if (UseSystemFont(
                face,
                FindSystemFont(Windows1252ToUtf8(pszFace), nStyle & s_nBold, nStyle & s_nItalic),
                nStyle))
        {
            face.m_bPrivateCodes = face.m_coding == CTextCoding::mapped;
            it->second = AddSystemFace(std::move(face));
        }
        else
        {
            ReportSubstitute(pszFace, s_aFamilies[nSubstitute].m_pszFree);
        }
    }
    return it->second != nNowhere ? it->second : nSubstituteId;
}

// A face name as words: compared and hashed without a call.
using CFaceWords = std::array<std::uint64_t, LF_FACESIZE / 8>;

// What was found for the names that were asked last; a slot for each remainder of their hash.
struct CRecentFace
{
    CFaceWords m_anFace{};
    int m_nStyle = 0;
    BYTE m_nPitchAndFamily = 0;
    int m_nFaceId = -1;  // empty
};
CRecentFace s_aRecentFaces[64];

CRecentFace& RecentFace(const CFaceWords& face, int nStyle)
{
    constexpr std::uint64_t anFactors[] = { 0x9E3779B97F4A7C15u, 0xC2B2AE3D27D4EB4Fu,
                                            0xFF51AFD7ED558CCDu, 0x165667B19E3779F9u };
    std::uint64_t nHash = static_cast<std::uint64_t>(nStyle) << 58;
    for (std::size_t i = 0; i < face.size(); ++i)
        nHash ^= face[i] * anFactors[i];
    return s_aRecentFaces[nHash >> 58];
}

}  // namespace

int FindFontFace(const LOGFONTA& font)
{
    CFaceWords face;
    std::memcpy(face.data(), font.lfFaceName, LF_FACESIZE);
    int nStyle = (font.lfWeight >= LIGHTEST_BOLD ? s_nBold : 0) | (font.lfItalic ? s_nItalic : 0);
    CRecentFace& recent = RecentFace(face, nStyle);
    if (recent.m_nFaceId >= 0 && recent.m_nStyle == nStyle &&
        recent.m_nPitchAndFamily == font.lfPitchAndFamily && recent.m_anFace == face)
        return recent.m_nFaceId;

    int nFamily = FindFamily(font.lfFaceName);
    int nFaceId = nFamily >= 0 ? nFamily * s_nStyleCount + nStyle
                               : FindUnknownFace(font.lfFaceName, nStyle, font.lfPitchAndFamily);
    recent = { face, nStyle, font.lfPitchAndFamily, nFaceId };
    return nFaceId;
}

const CFontFace& FontFaceById(int nFaceId)
{
    auto& pFace = Faces()[static_cast<std::size_t>(nFaceId)];
    if (!pFace)
        pFace = LoadFamily(nFaceId / s_nStyleCount, nFaceId % s_nStyleCount);
    return *pFace;
}

bool TakesPrivateCodes(const CFontFace& face, BYTE nCharSet)
{
    return face.m_bPrivateCodes &&
           (face.m_coding != CTextCoding::mtExtra || nCharSet == SYMBOL_CHARSET);
}

std::vector<std::pair<std::string, std::string>> ListFontFaces()
{
    std::vector<std::pair<std::string, std::string>> list;
    for (const CFamily& family : s_aFamilies)
    {
        for (int nStyle = 0; nStyle < s_nStyleCount && family.m_apszFiles[nStyle]; ++nStyle)
        {
            CFontFace face;
            face.m_coding = family.m_coding;
            bool bFound = UseFamily(face, family, nStyle);
            list.emplace_back(std::string(family.m_pszFace) + s_apszStyles[nStyle],
                              bFound ? face.m_strFile : std::string());
        }
    }
    return list;
}
