// The faces by their names: the system keeps to itself which files they come from.
#include "system/font_list.h"

std::vector<std::pair<std::string, std::string>> FacesAndFiles()
{
    std::vector<std::pair<std::string, std::string>> list;
    for (const std::string strFace : { "Times New Roman", "Arial", "Courier New" })
    {
        for (const char* pszStyle : { "", " Bold", " Italic", " Bold Italic" })
            list.emplace_back(strFace + pszStyle, "");
    }
    for (const char* pszFace : { "Symbol", "MT Extra" })
        list.emplace_back(pszFace, "");
    return list;
}
