// Arithmetic with colours, channel by channel. Quotients are rounded as MulDiv rounds; the mean of
// GreyColour and the quotient of BlendColours are cut.
#pragma once

#include "platform/base/types.h"

COLORREF DarkenColour(COLORREF colour, int nAmount);   // 255: black
COLORREF LightenColour(COLORREF colour, int nAmount);  // 255: white
COLORREF AddToColour(COLORREF colour, int nAmount);
// Nearly a, with a touch of b: 86 to 14 parts.
COLORREF TintColour(COLORREF a, COLORREF b);
// 70 to 30 parts.
COLORREF MixColours(COLORREF a, COLORREF b);
// From a to b by nWeight of 255.
COLORREF BlendColours(COLORREF a, COLORREF b, int nWeight);
COLORREF GreyColour(COLORREF colour);
// What a shadow of this colour is drawn with: bluish, and darker.
COLORREF DimColour(COLORREF colour);
bool IsBright(COLORREF colour);

// The colour of band nBand of nBands on the way from the first colour to the last.
COLORREF BandColour(COLORREF first, COLORREF last, int nBand, int nBands);
