// All formats: cairo writes PDF here.
#include "picture/formats.h"

namespace
{
constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, MakeMetafile }, { "emf", false, MakeMetafile }, { "bmp", true, MakeBmp },
    { "png", true, MakePng },       { "svg", true, MakeSvg },       { "pdf", true, MakePdf },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
