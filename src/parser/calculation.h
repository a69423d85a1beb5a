// The functions of the calculation.
#pragma once

#include "parser/keywords.h"

// The value of a keyword's function, angles in radians. An operand that the function refuses comes
// back as it is, and so does the operand of a keyword without a function.
double ApplyFunction(EKeyword nKeyword, double x);

// Cut off towards zero; what 32 bits cannot hold gives the smallest number.
int TruncateTo32Bits(double x);
