// The formats that only cairo writes.
#pragma once

#include <string>

#include "picture.h"

// Throw CFailure.
void WriteSvg(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
void WritePdf(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options);
