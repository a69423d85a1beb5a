#include "picture_formats.h"

#include "linux/cairo_picture.h"
#include "stored_formula.h"

namespace
{
constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, WriteMetafile }, { "emf", false, WriteMetafile }, { "bmp", true, WriteBitmap },
    { "png", true, WritePng },       { "svg", true, WriteSvg },       { "pdf", true, WritePdf },
    { "fml", false, SaveStored },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
