// The faces that fontconfig gives for those of the library.
#include "system/font_list.h"

#include "platform/gdi/linux/fonts/font_face.h"

std::vector<std::pair<std::string, std::string>> FacesAndFiles()
{
    return ListFontFaces();
}
