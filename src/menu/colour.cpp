// Arithmetic with colours.
#include "menu/colour.h"

#include "platform/base/system.h"

#include <algorithm>

namespace
{
template <class F, class... C>
COLORREF PerChannel(F channel, C... colours)
{
    const auto byte = [](int n)
    {
        return static_cast<BYTE>(std::clamp(n, 0, 255));
    };
    return RGB(byte(channel(GetRValue(colours)...)), byte(channel(GetGValue(colours)...)),
               byte(channel(GetBValue(colours)...)));
}
}  // namespace

COLORREF DarkenColour(COLORREF colour, int nAmount)
{
    return PerChannel([=](int c) { return MulDiv(c, 255 - nAmount, 255); }, colour);
}

COLORREF LightenColour(COLORREF colour, int nAmount)
{
    return PerChannel([=](int c) { return c + MulDiv(255 - c, nAmount, 255); }, colour);
}

COLORREF AddToColour(COLORREF colour, int nAmount)
{
    return PerChannel([=](int c) { return c + nAmount; }, colour);
}

COLORREF TintColour(COLORREF a, COLORREF b)
{
    return PerChannel([](int c, int d) { return MulDiv(86, c, 100) + MulDiv(14, d, 100); }, a, b);
}

COLORREF MixColours(COLORREF a, COLORREF b)
{
    return PerChannel([](int c, int d) { return MulDiv(7, c, 10) + MulDiv(3, d, 10); }, a, b);
}

COLORREF BlendColours(COLORREF a, COLORREF b, int nWeight)
{
    return PerChannel([=](int c, int d) { return (nWeight * d + (255 - nWeight) * c) / 256; }, a,
                      b);
}

COLORREF GreyColour(COLORREF colour)
{
    const int nMean = (GetRValue(colour) + GetGValue(colour) + GetBValue(colour)) / 3;
    return PerChannel([=](int) { return nMean; }, colour);
}

COLORREF DimColour(COLORREF colour)
{
    constexpr int nMoreBlue = 55;
    const auto dim = [](int c)
    {
        return static_cast<BYTE>(MulDiv(c, 7, 10));
    };
    return RGB(dim(GetRValue(colour)), dim(GetGValue(colour)), dim(GetBValue(colour) + nMoreBlue));
}

bool IsBright(COLORREF colour)
{
    constexpr int nMiddle = 384;  // of the three channels together
    return GetRValue(colour) + GetGValue(colour) + GetBValue(colour) > nMiddle;
}

COLORREF BandColour(COLORREF first, COLORREF last, int nBand, int nBands)
{
    return PerChannel([=](int c, int d) { return c + MulDiv(d - c, nBand, nBands); }, first, last);
}
