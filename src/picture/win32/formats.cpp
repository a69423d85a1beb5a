// All formats but PDF, for which this system has no writer.
#include "picture/formats.h"

namespace
{
constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, false, MakeMetafile }, { "emf", false, false, MakeMetafile },
    { "bmp", true, false, MakeBmp },       { "png", true, false, MakePng },
    { "svg", true, true, MakeSvg },        { "pdf", true, false, nullptr, "is made on Linux only" },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
