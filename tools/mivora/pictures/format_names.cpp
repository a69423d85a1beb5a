// Asks the library's table of formats, so that a new row is offered by itself.
#include "pictures/format_names.h"

#include "picture/picture.h"

namespace
{
std::string Names(bool bHere)
{
    std::string strNames;
    for (const CPictureFormat& format : PictureFormats())
    {
        if ((format.pfnMake != nullptr) == bHere)
            strNames += (strNames.empty() ? "" : " ") + std::string(format.pszName);
    }
    return strNames;
}
}  // namespace

std::string OfferedFormats()
{
    return Names(true) + " " + g_szStoredFormat;
}

std::string FormatsElsewhere()
{
    return Names(false);
}
