// Rounding as device coordinates need it. What does not fit stays at the end of the range.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

constexpr int SaturateToInt(std::int64_t nValue)
{
    return static_cast<int>(std::clamp<std::int64_t>(nValue, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

// Width or height of a rectangle that may be any: wraps around as 32-bit arithmetic does.
constexpr int WrapSubtract(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
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
