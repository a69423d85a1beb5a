// Asks the folder and fontconfig; the latter's configuration is loaded only when it is needed.
#include "platform/gdi/linux/fonts/font_files.h"

#include "platform/base/free_by.h"
#include "platform/base/module_path.h"
#include "platform/base/sanitizer.h"

#include <fontconfig/fontconfig.h>
#include <unistd.h>

#include <memory>

#ifdef MIVORA_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

// Reads the system's configuration once. The reader of its files loses a few hundred bytes.
void LoadConfiguration()
{
    static const bool s_bLoaded = []
    {
#ifdef MIVORA_ADDRESS_SANITIZER
        __lsan::ScopedDisabler disabler;
#endif
        return FcInit() == FcTrue;
    }();
    static_cast<void>(s_bLoaded);
}

using CPatternPtr = std::unique_ptr<FcPattern, CFreeBy<FcPatternDestroy>>;

int Value(const CPatternPtr& pPattern, const char* pszKey, int nDefault)
{
    int nValue = nDefault;
    FcPatternGetInteger(pPattern.get(), pszKey, 0, &nValue);
    return nValue;
}

bool HasFamily(const CPatternPtr& pPattern, const std::string& strFamily)
{
    FcChar8* pszFamily = nullptr;
    for (int i = 0; FcPatternGetString(pPattern.get(), FC_FAMILY, i, &pszFamily) == FcResultMatch;
         ++i)
        if (FcStrCmpIgnoreCase(pszFamily, reinterpret_cast<const FcChar8*>(strFamily.c_str())) == 0)
            return true;
    return false;
}

CPatternPtr Match(const std::string& strFamily, bool bBold, bool bItalic)
{
    LoadConfiguration();
    CPatternPtr pAsked(FcPatternCreate());
    if (!pAsked)
        return nullptr;
    FcPatternAddString(pAsked.get(), FC_FAMILY,
                       reinterpret_cast<const FcChar8*>(strFamily.c_str()));
    FcPatternAddInteger(pAsked.get(), FC_WEIGHT, bBold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pAsked.get(), FC_SLANT, bItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pAsked.get(), FC_SCALABLE, FcTrue);
    // The answer is the nearest face there is, never none: who wants this very one compares names.
    FcConfigSubstitute(nullptr, pAsked.get(), FcMatchPattern);
    FcDefaultSubstitute(pAsked.get());
    FcResult nResult = FcResultNoMatch;
    return CPatternPtr(FcFontMatch(nullptr, pAsked.get(), &nResult));
}

std::optional<CFontLocation> Location(const CPatternPtr& pFound)
{
    FcChar8* pszFile = nullptr;
    if (!pFound || FcPatternGetString(pFound.get(), FC_FILE, 0, &pszFile) != FcResultMatch)
        return std::nullopt;
    CFontLocation location;
    location.m_strFile = reinterpret_cast<const char*>(pszFile);
    location.m_nIndex = Value(pFound, FC_INDEX, 0) & 0xFFFF;  // above: a named instance
    location.m_bBold = Value(pFound, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_DEMIBOLD;
    location.m_bItalic = Value(pFound, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    return location;
}

}  // namespace

const std::string& FontFolder()
{
    static const std::string s_strFolder =
        BesideModule({ "../share/mivora/fonts", "../../share/mivora/fonts" }).string();
    return s_strFolder;
}

std::string FileInFontFolder(const char* pszName)
{
    if (FontFolder().empty())
        return {};
    std::string strFile = FontFolder() + '/' + pszName;
    return access(strFile.c_str(), R_OK) == 0 ? strFile : std::string();
}

std::optional<CFontLocation> FindSystemFont(const std::string& strFamily, bool bBold, bool bItalic)
{
    CPatternPtr pFound = Match(strFamily, bBold, bItalic);
    return pFound && HasFamily(pFound, strFamily) ? Location(pFound) : std::nullopt;
}

std::optional<CFontLocation> FindAnySystemFont(const std::string& strFamily, bool bBold,
                                               bool bItalic)
{
    return Location(Match(strFamily, bBold, bItalic));
}
