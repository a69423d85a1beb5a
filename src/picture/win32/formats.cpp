// All formats but PDF, for which this system has no writer.
#include "picture/formats.h"

namespace
{
constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, MakeMetafile }, { "emf", false, MakeMetafile },
    { "bmp", true, MakeBmp },       { "png", true, MakePng },
    { "svg", true, MakeSvg },       { "pdf", true, nullptr, "is made on Linux only" },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
