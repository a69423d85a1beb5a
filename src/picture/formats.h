// How each format is made; which of them there are is the system's affair.
#pragma once

#include "picture/picture.h"

CPicture MakeMetafile(CFormulaOut& formula, const CPictureOptions& options);
CPicture MakeBmp(CFormulaOut& formula, const CPictureOptions& options);
CPicture MakePng(CFormulaOut& formula, const CPictureOptions& options);
CPicture MakeSvg(CFormulaOut& formula, const CPictureOptions& options);
CPicture MakePdf(CFormulaOut& formula, const CPictureOptions& options);
