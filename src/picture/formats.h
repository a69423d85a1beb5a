// How each format is made; which of them there are is the system's affair.
#pragma once

#include "picture/picture.h"

CPictureFile MakeMetafile(CFormulaOut& formula, const CPictureOptions& options);
CPictureFile MakeBmp(CFormulaOut& formula, const CPictureOptions& options);
CPictureFile MakePng(CFormulaOut& formula, const CPictureOptions& options);
CPictureFile MakeSvg(CFormulaOut& formula, const CPictureOptions& options);
CPictureFile MakePdf(CFormulaOut& formula, const CPictureOptions& options);
