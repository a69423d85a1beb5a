// Colours that a picture must have, written as lines of text.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/gdi/gdi.h"

// Gradients of the system are not exact to the bit.
constexpr int NEARLY = 9;

inline bool IsNear(COLORREF a, COLORREF b, int nMost)
{
    return std::abs(GetRValue(a) - GetRValue(b)) <= nMost &&
           std::abs(GetGValue(a) - GetGValue(b)) <= nMost &&
           std::abs(GetBValue(a) - GetBValue(b)) <= nMost;
}

// Points of a device context, each as "x y colour", the colour in hexadecimal digits; each part of
// a colour may be off by nMost.
inline void ExpectPixels(HDC hDC, const std::string& strPoints, int nMost = 0)
{
    std::istringstream words(strPoints);
    COLORREF colour = 0;
    for (int x = 0, y = 0; words >> std::dec >> x >> y >> std::hex >> colour;)
        EXPECT_PRED3(IsNear, ::GetPixel(hDC, x, y), colour, nMost) << x << ' ' << y;
    EXPECT_TRUE(words.eof()) << strPoints;
}
