// All formats: cairo writes PDF here.
#include "picture/formats.h"

namespace
{
constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, false, MakeMetafile }, { "emf", false, false, MakeMetafile },
    { "bmp", true, false, MakeBmp },       { "png", true, false, MakePng },
    { "svg", true, true, MakeSvg },        { "pdf", true, false, MakePdf },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
