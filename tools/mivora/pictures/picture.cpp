// Options of the command line as those of pictures, with what each format refuses.
#include "pictures/picture.h"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "facade/colour_name.h"
#include "facade/formula_words.h"
#include "nodes/node.h"
#include "pictures/format_names.h"
#include "platform/base/system.h"
#include "report.h"
#include "stored/stored_formula.h"
#include "system/output_file.h"
#include "texts/text_input.h"
#include "words/arguments.h"

namespace
{
// With their points.
std::string FormatList()
{
    std::string strList = "." + OfferedFormats();
    for (size_t n = strList.find(' '); n != std::string::npos; n = strList.find(' ', n + 2))
        strList.insert(n + 1, ".");
    return strList;
}

bool IsStored(const std::string& strExtension)
{
    return CString(strExtension.c_str()).CompareNoCase(g_szStoredFormat) == 0;
}

// The node at the end of the letters, null if there is none.
CNode* FollowPath(CNode* pNode, const std::string& strSteps)
{
    for (char ch : strSteps)
    {
        if (pNode == nullptr)
            return nullptr;
        pNode = ch == 'L' ? pNode->GetLeft() : pNode->GetRight();
    }
    return pNode;
}

// Sets the selection of a tree by a path such as "LR:2".
void SelectNode(CBinTree& tree, const CDrawOptions& options)
{
    const std::string& strPath = options.strSelect;
    const UINT nGrayed = options.bGrayed ? PF_GRAYED : 0;
    if (strPath.empty())
    {
        tree.SetSelection(nullptr, static_cast<int>(nGrayed));
        return;
    }
    const size_t nColon = strPath.find(':');
    const std::string strMode = nColon == std::string::npos ? "" : strPath.substr(nColon + 1);
    const std::string strSteps = strPath.substr(0, nColon);
    if ((strMode != "1" && strMode != "2") || strSteps.find_first_not_of("LR") != std::string::npos)
        throw CUsageError{ "--select takes letters L and R, then :1 or :2, not " + strPath };
    CNode* pNode = FollowPath(tree.GetRootNode(), strSteps);
    if (pNode == nullptr)
        throw CFailure{ "the formula has no node at " + strPath };
    tree.SetSelection(pNode, static_cast<int>((strMode == "1" ? PF_NODE : PF_SUBTREE) | nGrayed));
}

// Options that only some formats know.
void CheckOptions(const CArguments& arguments, const CFileFormat& format)
{
    static constexpr EOption s_aOfLook[] = { OPT_BOXES,       OPT_DPI,   OPT_MARGIN,    OPT_EXACT,
                                             OPT_TRANSPARENT, OPT_COLOR, OPT_BACKGROUND };
    for (const EOption nId : s_aOfLook)
    {
        if (!format.HasLook() && arguments.Has(nId))
        {
            throw CUsageError{ std::string("--") + OptionOf(nId).pszLong +
                               " is not for metafiles and stored formulas" };
        }
    }
    for (const EOption nId : { OPT_EMBED, OPT_NO_EMBED, OPT_JSON })
    {
        if (format.Picture() == nullptr && arguments.Has(nId))
        {
            throw CUsageError{ std::string("--") + OptionOf(nId).pszLong +
                               " is not for stored formulas" };
        }
    }
    for (const auto& [nFirst, nSecond] :
         { std::pair(OPT_TRANSPARENT, OPT_BACKGROUND), std::pair(OPT_EMBED, OPT_NO_EMBED) })
    {
        if (arguments.Has(nFirst) && arguments.Has(nSecond))
        {
            throw CUsageError{ std::string("--") + OptionOf(nFirst).pszLong + " and --" +
                               OptionOf(nSecond).pszLong + " exclude each other" };
        }
    }
}

COLORREF ColourOf(const CArguments& arguments, EOption nId)
{
    const std::string strName = arguments.Value(nId);
    const std::optional<COLORREF> colour = FindColour(strName);
    if (!colour)
    {
        throw CUsageError{ std::string("--") + OptionOf(nId).pszLong +
                           " takes a name, #rgb or #rrggbb, not " + strName };
    }
    return *colour;
}

void TakeColours(const CArguments& arguments, const CFileFormat& format, CPictureOptions& options)
{
    constexpr char s_szPageColour[] = "currentColor";
    options.bTransparent = arguments.Has(OPT_TRANSPARENT);
    if (arguments.Has(OPT_BACKGROUND))
        options.background = ColourOf(arguments, OPT_BACKGROUND);
    if (!arguments.Has(OPT_COLOR))
        return;
    options.bPageColour =
        CString(arguments.Value(OPT_COLOR).c_str()).CompareNoCase(s_szPageColour) == 0;
    if (options.bPageColour && !format.TakesPageColour())
        throw CUsageError{ std::string("--color ") + s_szPageColour + " is for .svg only" };
    options.colour = options.bPageColour ? 0 : ColourOf(arguments, OPT_COLOR);
}

CPictureFile Make(CFormulaOut& formula, const CPictureFormat& format, const std::string& strPath,
                  const CDrawOptions& options)
{
    CPictureOptions picture = options.picture;
    if (format.bLook ? options.bEmbed : options.bEmbedInMetafile)
    {
        picture.strSource = Utf8FromText(formula.m_strFormula);
        picture.strTitle = WordsOf(formula);
    }
    try
    {
        return MakePicture(formula, format, picture);
    }
    catch (const CPictureFailure& failure)
    {
        throw CFailure{ "cannot draw " + strPath + ": " + failure.strReason };
    }
}
}  // namespace

CFileFormat CFileFormat::Writable(const CPictureFormat* pPicture)
{
    if (pPicture->pfnMake == nullptr)
    {
        throw CUsageError{ std::string(".") + pPicture->pszName + " " + pPicture->pszElsewhere +
                           "; here there are " + FormatList() };
    }
    return CFileFormat(pPicture);
}

CFileFormat CFileFormat::OfName(const std::string& strExtension)
{
    if (IsStored(strExtension))
        return CFileFormat(nullptr);
    const CPictureFormat* pFormat = FindPictureFormat(strExtension);
    if (pFormat == nullptr)
        throw CUsageError{ "the format " + strExtension + " is none of " + FormatList() };
    return Writable(pFormat);
}

CFileFormat CFileFormat::OfPath(const std::string& strPath)
{
    const size_t nPoint = strPath.rfind('.');
    const std::string strExtension = nPoint == std::string::npos ? "" : strPath.substr(nPoint + 1);
    if (IsStored(strExtension))
        return CFileFormat(nullptr);
    const CPictureFormat* pFormat = FindPictureFormat(strExtension);
    if (pFormat == nullptr)
        throw CUsageError{ "the name " + strPath + " ends in none of " + FormatList() };
    return Writable(pFormat);
}

const char* CFileFormat::Extension() const
{
    return m_pPicture != nullptr ? m_pPicture->pszName : g_szStoredFormat;
}

CFileFormat FormatOf(const CArguments& arguments)
{
    const std::string strPath = arguments.Value(OPT_OUTPUT);
    const bool bPipe = strPath == STANDARD_OUTPUT;
    if (bPipe && !arguments.Has(OPT_FORMAT))
        throw CUsageError{ "-o - needs --format, which is one of " + FormatList() };
    const CFileFormat format = arguments.Has(OPT_FORMAT)
                                   ? CFileFormat::OfName(arguments.Value(OPT_FORMAT))
                                   : CFileFormat::OfPath(strPath);
    if (bPipe && format.Picture() == nullptr)
        throw CUsageError{ "a stored formula is written to a file, not to standard output" };
    if (bPipe && arguments.Has(OPT_JSON))
        throw CUsageError{ "--json and -o - exclude each other" };
    return format;
}

CDrawOptions MeasureOptionsOf(const CArguments& arguments)
{
    CDrawOptions options;
    options.picture.nDpi = arguments.Number(OPT_DPI, options.picture.nDpi);
    options.picture.nMargin = arguments.Number(OPT_MARGIN, 0);
    options.picture.bExact = arguments.Has(OPT_EXACT);
    options.look.nPoints = arguments.Number(OPT_POINTS, 0);
    if (arguments.Has(OPT_FONT))
    {
        const CString strFace = TextFromUtf8(arguments.Value(OPT_FONT));
        if (strFace.IsEmpty() || strFace.GetLength() > LONGEST_FACE)
        {
            throw CUsageError{ "--font takes a name of 1 to " + std::to_string(LONGEST_FACE) +
                               " letters" };
        }
        options.look.strFace = strFace.View();
    }
    return options;
}

CDrawOptions DrawOptionsOf(const CArguments& arguments, const CFileFormat& format)
{
    CheckOptions(arguments, format);
    CDrawOptions options = MeasureOptionsOf(arguments);
    options.picture.bBoxes = arguments.Has(OPT_BOXES);
    TakeColours(arguments, format, options.picture);
    options.bGrayed = arguments.Has(OPT_GRAYED);
    options.strSelect = arguments.Value(OPT_SELECT);
    if (arguments.Has(OPT_SELECT) && options.strSelect.empty())
        options.strSelect = ":";  // no path
    options.bEmbed = !arguments.Has(OPT_NO_EMBED);
    options.bEmbedInMetafile = arguments.Has(OPT_EMBED);
    return options;
}

CPictureSize WriteFormula(CFormulaOut& formula, const CFileFormat& format,
                          const std::string& strPath, const CDrawOptions& options)
{
    ApplyLook(formula, options.look);
    SelectNode(formula.m_Tree, options);
    if (format.Picture() == nullptr)
    {
        SaveStored(formula, strPath);
        return {};
    }
    const CPictureFile picture = Make(formula, *format.Picture(), strPath, options);
    WriteOutput(strPath, picture.strBytes);
    return picture.size;
}

std::string SizeAsJson(const CPictureSize& size)
{
    // Thousandths of an em are less than can be seen.
    const auto inEm = [&](double f)
    {
        return std::round(f / size.fEm * 1000) / 1000;
    };
    nlohmann::ordered_json json;
    json["width"] = size.nWidth;
    json["height"] = size.nHeight;
    json["axis"] = size.fAxis;
    json["depth"] = size.fDepth;
    json["em"] = { { "size", size.fEm },
                   { "width", inEm(size.nWidth) },
                   { "height", inEm(size.nHeight) },
                   { "axis", inEm(size.fAxis) },
                   { "depth", inEm(size.fDepth) } };
    return json.dump();
}
