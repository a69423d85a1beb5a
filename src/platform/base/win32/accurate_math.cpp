// The run-time library of the system is off by a unit in the last place here and there, and differs
// from version to version. Powers, logarithms and what is made of exponentials come from newlib;
// the functions of angles are rounded once from the processor's numbers of 64 bits.
#include "platform/base/accurate_math.h"

extern "C"
{
    double newlib_pow_fma(double x, double y);
    double newlib_pow_plain(double x, double y);
    double newlib_exp_fma(double x);
    double newlib_exp_plain(double x);
    double newlib_log_fma(double x);
    double newlib_log_plain(double x);
    double newlib_log10(double x);
    double newlib_sinh(double x);
    double newlib_cosh(double x);
    double newlib_tanh(double x);
    // Gives the quarters of a turn, and what is left in two parts.
    int newlib_rem_pio2(double x, double* pRest);

    // For the sources of newlib, too.
    double newlib_exp(double x);
    double newlib_log(double x);
}

namespace
{
// The Linux C library chooses by the same two.
const bool s_bFma = __builtin_cpu_supports("fma") && __builtin_cpu_supports("avx2");

// Threads begin with numbers of 53 bits.
class CExtendedPrecision
{
public:
    CExtendedPrecision()
    {
        asm volatile("fnstcw %0" : "=m"(m_nOld) : : "memory");
        const unsigned short nExtended = m_nOld | 0x300;
        asm volatile("fldcw %0" : : "m"(nExtended) : "memory");
    }
    ~CExtendedPrecision() { asm volatile("fldcw %0" : : "m"(m_nOld) : "memory"); }
    CExtendedPrecision(const CExtendedPrecision&) = delete;
    CExtendedPrecision& operator=(const CExtendedPrecision&) = delete;

private:
    unsigned short m_nOld;
};

// What stands around it stays around it.
using CFunction = double (*)(double);
double Extended(CFunction pfn, double x)
{
    const CExtendedPrecision precision;
    return pfn(x);
}

// Beyond this the parts of a quarter below are too short.
constexpr double s_fLargestAngle = 2147483648.0;

struct CAngle
{
    long double fRest;  // at most an eighth of a turn, and a little
    int nQuarters;      // 0 to 3
};

CAngle ReducedFromFar(double x)
{
    double aRest[2];
    const int nQuarters = newlib_rem_pio2(x, aRest);
    return { static_cast<long double>(aRest[0]) + aRest[1], nQuarters & 3 };
}

// A quarter of a turn in three parts; the products with the first two are exact.
CAngle Reduced(double x)
{
    if (!(std::fabs(x) < s_fLargestAngle))
        return ReducedFromFar(x);
    constexpr long double fFirst = 0x1.921fb544p+0L;
    constexpr long double fSecond = 0x1.0b4611a6p-34L;
    constexpr long double fThird = 0x1.3198a2e037073p-69L;
    const double dQuarters = std::nearbyint(x * 0x1.45f306dc9c883p-1);
    if (dQuarters == 0.0)
        return { x, 0 };
    const long double n = dQuarters;
    return { ((x - n * fFirst) - n * fSecond) - n * fThird,
             static_cast<int>(static_cast<long long>(dQuarters) & 3) };
}

[[gnu::noipa]] double Sine(double x)
{
    const CAngle angle = Reduced(x);
    const long double f =
        (angle.nQuarters & 1) != 0 ? std::cos(angle.fRest) : std::sin(angle.fRest);
    return static_cast<double>((angle.nQuarters & 2) != 0 ? -f : f);
}

[[gnu::noipa]] double Cosine(double x)
{
    const CAngle angle = Reduced(x);
    const long double f =
        (angle.nQuarters & 1) != 0 ? -std::sin(angle.fRest) : std::cos(angle.fRest);
    return static_cast<double>((angle.nQuarters & 2) != 0 ? -f : f);
}

[[gnu::noipa]] double Tangent(double x)
{
    const CAngle angle = Reduced(x);
    const long double fSine = std::sin(angle.fRest);
    const long double fCosine = std::cos(angle.fRest);
    return static_cast<double>((angle.nQuarters & 1) != 0 ? -fCosine / fSine : fSine / fCosine);
}

long double Cathetus(long double x)
{
    return std::sqrt((1 - x) * (1 + x));
}

[[gnu::noipa]] double ArcSine(double x)
{
    return static_cast<double>(std::atan2(static_cast<long double>(x), Cathetus(x)));
}

[[gnu::noipa]] double ArcCosine(double x)
{
    return static_cast<double>(std::atan2(Cathetus(x), static_cast<long double>(x)));
}

[[gnu::noipa]] double ArcTangent(double x)
{
    return static_cast<double>(std::atan(static_cast<long double>(x)));
}
}  // namespace

extern "C" double newlib_exp(double x)
{
    return s_bFma ? newlib_exp_fma(x) : newlib_exp_plain(x);
}

extern "C" double newlib_log(double x)
{
    return s_bFma ? newlib_log_fma(x) : newlib_log_plain(x);
}

namespace accurate
{
double pow(double x, double y)
{
    return s_bFma ? newlib_pow_fma(x, y) : newlib_pow_plain(x, y);
}

double exp(double x)
{
    return newlib_exp(x);
}

double log(double x)
{
    return newlib_log(x);
}

double log10(double x)
{
    return newlib_log10(x);
}

double sinh(double x)
{
    return newlib_sinh(x);
}

double cosh(double x)
{
    return newlib_cosh(x);
}

double tanh(double x)
{
    return newlib_tanh(x);
}

double sin(double x)
{
    return Extended(Sine, x);
}

double cos(double x)
{
    return Extended(Cosine, x);
}

double tan(double x)
{
    return Extended(Tangent, x);
}

double asin(double x)
{
    return Extended(ArcSine, x);
}

double acos(double x)
{
    return Extended(ArcCosine, x);
}

double atan(double x)
{
    return Extended(ArcTangent, x);
}
}  // namespace accurate
