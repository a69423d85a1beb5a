// The table of functions that a calculation knows, with what each of them refuses.
#include "parser/calculation.h"

#include <climits>
#include <cmath>

namespace
{

constexpr double PI = 3.141592653589793;

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
    { KW_ABS,    [](double x) { return std::fabs(x); },  RefusesNothing },
    { KW_SQR,    [](double x) { return std::sqrt(x); },  RefusesNegative },
    { KW_SINH,   [](double x) { return std::sinh(x); },  RefusesNothing },
    { KW_COSH,   [](double x) { return std::cosh(x); },  RefusesNothing },
    { KW_TANH,   [](double x) { return std::tanh(x); },  RefusesNothing },
    { KW_ARCTAN, [](double x) { return std::atan(x); },  RefusesNothing },
    { KW_LN,     [](double x) { return std::log(x); },   RefusesNegative },
    { KW_LOG,    [](double x) { return std::log10(x); }, RefusesNegative },
    { KW_EXP,    [](double x) { return std::exp(x); },   [](double x) { return x > 41.0; } },
    { KW_SIN,    [](double x) { return std::sin(x); },   RefusesNothing },
    { KW_COS,    [](double x) { return std::cos(x); },   RefusesNothing },
    { KW_TAN,    [](double x) { return std::tan(x); },   [](double x) { return std::cos(x) == 0.0; } },
    { KW_ARCSIN, [](double x) { return std::asin(x); },  [](double x) { return std::fabs(x) >= 1.0; } },
    { KW_ARCCOS, [](double x) { return std::acos(x); },  [](double x) { return std::fabs(x) > 1.0; } },
    { KW_INT,    [](double x) { return static_cast<double>(TruncateTo32Bits(x)); }, RefusesNothing },
    { KW_RAD,    [](double x) { return x * PI / 180.0; }, RefusesNothing },
    { KW_DEG,    [](double x) { return x * 180.0 / PI; }, RefusesNothing },
    { KW_ARSINH, [](double x) { return std::log(x + std::sqrt(x * x + 1.0)); }, RefusesNothing },
    { KW_ARCOSH, [](double x) { return std::log(x + std::sqrt(x * x - 1.0)); },
                 [](double x) { return std::fabs(x) < 1.0; } },
    { KW_ARTANH, [](double x) { return 0.5 * std::log((1.0 + x) / (1.0 - x)); },
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
