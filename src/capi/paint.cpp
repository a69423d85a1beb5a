// Checks the options of C callers one by one.
#include "capi/paint.h"

#include <string>

#include "facade/colour_name.h"
#include "platform/base/cstring.h"

namespace
{
int InRange(const char* pszName, int nValue, int nLeast, int nMost)
{
    if (nValue < nLeast || nValue > nMost)
    {
        RefuseArgument(std::string(pszName) + " is " + std::to_string(nLeast) + " to " +
                       std::to_string(nMost) + ", not " + std::to_string(nValue));
    }
    return nValue;
}

COLORREF ColourOf(const char* pszField, const char* pszName)
{
    const std::optional<COLORREF> colour = FindColour(pszName);
    if (!colour)
        RefuseArgument(std::string(pszField) + " is a name, #rgb or #rrggbb, not " + pszName);
    return *colour;
}

bool HasLookOptions(const mivora_paint& paint)
{
    return paint.dpi != 0 || paint.margin != 0 || paint.exact != 0 || paint.boxes != 0 ||
           paint.transparent != 0 || paint.color != nullptr || paint.background != nullptr;
}

void TakeColours(const mivora_paint& paint, const CPictureFormat* pFormat, CPictureOptions& options)
{
    constexpr char s_szPageColour[] = "currentColor";
    options.bTransparent = paint.transparent != 0;
    if (paint.background != nullptr)
    {
        if (options.bTransparent)
            RefuseArgument("transparent and background exclude each other");
        options.background = ColourOf("background", paint.background);
    }
    if (paint.color == nullptr)
        return;
    options.bPageColour = CString(paint.color).CompareNoCase(s_szPageColour) == 0;
    if (options.bPageColour && pFormat != nullptr && !pFormat->bPageColour)
        RefuseArgument("the color currentColor is for svg only");
    options.colour = options.bPageColour ? 0 : ColourOf("color", paint.color);
}
}  // namespace

const CPictureFormat& FormatOf(const char* pszName)
{
    NeedPointers(pszName);
    const CPictureFormat* pFormat = FindPictureFormat(pszName);
    if (pFormat == nullptr)
    {
        std::string strList;
        for (const CPictureFormat& format : PictureFormats())
            strList += (strList.empty() ? "" : ", ") + std::string(format.pszName);
        RefuseArgument(std::string("the format ") + pszName + " is none of " + strList);
    }
    if (pFormat->pfnMake == nullptr)
    {
        throw CCallFailure{ MIVORA_UNSUPPORTED,
                            std::string(pFormat->pszName) + " " + pFormat->pszElsewhere };
    }
    return *pFormat;
}

CPictureOptions PaintOptions(const mivora_paint& paint, const CPictureFormat* pFormat)
{
    if (pFormat != nullptr && !pFormat->bLook && HasLookOptions(paint))
        RefuseArgument("a metafile knows no option but grayed and no_source");
    CPictureOptions options;
    if (paint.dpi != 0)
        options.nDpi = InRange("dpi", paint.dpi, LEAST_DPI, MOST_DPI);
    options.nMargin = InRange("margin", paint.margin, 0, MOST_MARGIN);
    options.bExact = paint.exact != 0;
    options.bBoxes = paint.boxes != 0;
    TakeColours(paint, pFormat, options);
    return options;
}
