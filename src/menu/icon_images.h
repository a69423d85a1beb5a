// The three pictures of an icon: as it is, darkened, and for a disabled item.
#pragma once

#include <vector>

#include "platform/base/geometry.h"

// Pixels in rows from the top. Those of the mask's colour are not drawn, and stay what they are.
struct CIconImage
{
    CSize m_size;
    std::vector<COLORREF> m_pixels;
};
constexpr int IMAGES_OF_ICON = 3;

CIconImage DarkenedIcon(const CIconImage& icon, COLORREF mask, int nDarkening);
// Grey, and lightened by half.
CIconImage DisabledIcon(const CIconImage& icon, COLORREF mask);
// Icon nIndex of a strip of icons of this size, side by side.
CIconImage IconOfStrip(const CIconImage& strip, CSize size, int nIndex);
