// The formats of the system at hand, and the writers that they are put together from.
#pragma once

#include <span>

#include "picture.h"

// In the order in which they are told.
std::span<const CPictureFormat> PictureFormats();

// Throw CFailure. The first two are the library's; the enlarged ones of each system are laid out as
// on the screen and enlarged as a whole, so that a picture has the same shape in every resolution.
void WriteMetafile(CFormulaOut& formula, const std::string& strPath,
                   const CPictureOptions& options);
void WriteBitmap(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WriteBmp(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WritePng(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
