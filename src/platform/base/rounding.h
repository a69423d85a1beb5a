// Rounding to coordinates. What does not fit stays at the end of the range; geometry.h has sums
// that wrap around.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

constexpr int SaturateToInt(std::int64_t nValue)
{
    return static_cast<int>(std::clamp<std::int64_t>(nValue, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

// Towards zero.
inline int CutToInt(double fValue)
{
    if (fValue >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (fValue > std::numeric_limits<int>::min())
        return static_cast<int>(fValue);
    return std::numeric_limits<int>::min();  // also what is no number
}

// To the nearest; halves go up.
inline int RoundToInt(double fValue)
{
    double fShifted = fValue + 0.5;
    int nCut = CutToInt(fShifted);
    return nCut > fShifted && nCut != std::numeric_limits<int>::min() ? nCut - 1 : nCut;
}
