#include "picture_formats.h"

#include "stored_formula.h"

namespace
{
constexpr char s_szLinux[] = "is made on Linux only";

constexpr CPictureFormat s_aFormats[] = {
    { "wmf", false, WriteMetafile },     { "emf", false, WriteMetafile },
    { "bmp", true, WriteBitmap },        { "png", true, WritePng },
    { "svg", true, nullptr, s_szLinux }, { "pdf", true, nullptr, s_szLinux },
    { "fml", false, SaveStored },
};
}  // namespace

std::span<const CPictureFormat> PictureFormats()
{
    return s_aFormats;
}
