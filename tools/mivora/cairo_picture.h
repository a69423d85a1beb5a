// The formats that are drawn through cairo. A formula is laid out as on the screen and enlarged as
// a whole, so that a picture has the same shape in every resolution.
#pragma once

#include <string>

#include "picture.h"

// All throw CFailure.
void WriteBmp(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WritePng(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WriteSvg(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WritePdf(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
