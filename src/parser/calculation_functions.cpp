// The table of functions that a calculation knows, with what each of them refuses.
#include "parser/calculation.h"

#include <climits>
#include <cmath>

#include "platform/base/accurate_math.h"

namespace
{

constexpr double s_fPi = 3.141592653589793;

struct CFunction
{
    EKeyword nKeyword;
    double (*pfnValue)(double x);
    bool (*pfnRefuses)(double x);
};

bool RefusesNothing(double)
{
    return false;
}

bool RefusesNegative(double x)
{
    return x < 0.0;
}

// The limits differ from function to function, and from what mathematics asks for: they are
// settled as they stand.
// clang-format off
constexpr CFunction s_aFunctions[] = {
    { KW_ABS,    std::fabs,       RefusesNothing },
    { KW_SQR,    std::sqrt,       RefusesNegative },
    { KW_SINH,   accurate::sinh,  RefusesNothing },
    { KW_COSH,   accurate::cosh,  RefusesNothing },
    { KW_TANH,   accurate::tanh,  RefusesNothing },
    { KW_ARCTAN, accurate::atan,  RefusesNothing },
    { KW_LN,     accurate::log,   RefusesNegative },
    { KW_LOG,    accurate::log10, RefusesNegative },
    { KW_EXP,    accurate::exp,   [](double x) { return x > 41.0; } },
    { KW_SIN,    accurate::sin,   RefusesNothing },
    { KW_COS,    accurate::cos,   RefusesNothing },
    { KW_TAN,    accurate::tan,   [](double x) { return accurate::cos(x) == 0.0; } },
    { KW_ARCSIN, accurate::asin,  [](double x) { return std::fabs(x) >= 1.0; } },
    { KW_ARCCOS, accurate::acos,  [](double x) { return std::fabs(x) > 1.0; } },
    { KW_INT,    [](double x) { return static_cast<double>(TruncateTo32Bits(x)); }, RefusesNothing },
    { KW_RAD,    [](double x) { return x * s_fPi / 180.0; }, RefusesNothing },
    { KW_DEG,    [](double x) { return x * 180.0 / s_fPi; }, RefusesNothing },
    { KW_ARSINH, [](double x) { return accurate::log(x + std::sqrt(x * x + 1.0)); }, RefusesNothing },
    { KW_ARCOSH, [](double x) { return accurate::log(x + std::sqrt(x * x - 1.0)); },
                 [](double x) { return std::fabs(x) < 1.0; } },
    { KW_ARTANH, [](double x) { return 0.5 * accurate::log((1.0 + x) / (1.0 - x)); },
                 [](double x) { return std::fabs(x) > 1.0; } },
};
// clang-format on

}  // namespace

double ApplyFunction(EKeyword nKeyword, double x)
{
    for (const CFunction& function : s_aFunctions)
    {
        if (function.nKeyword == nKeyword)
            return function.pfnRefuses(x) ? x : function.pfnValue(x);
    }
    return x;
}

int TruncateTo32Bits(double x)
{
    constexpr double dBelow = -2147483649.0;
    constexpr double dAbove = 2147483648.0;
    return x > dBelow && x < dAbove ? static_cast<int>(x) : INT_MIN;
}
