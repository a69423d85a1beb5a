// Shades of icons.
#include "menu/icon_images.h"

#include "menu/colour.h"

namespace
{
template <class F>
CIconImage Shaded(const CIconImage& icon, COLORREF mask, F shade)
{
    CIconImage shaded = icon;
    for (COLORREF& pixel : shaded.m_pixels)
    {
        if (pixel != mask)
            pixel = shade(pixel);
    }
    return shaded;
}
}  // namespace

CIconImage DarkenedIcon(const CIconImage& icon, COLORREF mask, int nDarkening)
{
    return Shaded(icon, mask, [=](COLORREF c) { return DarkenColour(c, nDarkening); });
}

CIconImage DisabledIcon(const CIconImage& icon, COLORREF mask)
{
    constexpr int nHalf = 128;
    return Shaded(icon, mask, [](COLORREF c) { return LightenColour(GreyColour(c), nHalf); });
}

CIconImage IconOfStrip(const CIconImage& strip, CSize size, int nIndex)
{
    CIconImage icon{ size, {} };
    icon.m_pixels.reserve(static_cast<std::size_t>(size.cx * size.cy));
    for (int y = 0; y < size.cy; ++y)
    {
        for (int x = 0; x < size.cx; ++x)
        {
            icon.m_pixels.push_back(strip.m_pixels[static_cast<std::size_t>(y * strip.m_size.cx +
                                                                            nIndex * size.cx + x)]);
        }
    }
    return icon;
}
