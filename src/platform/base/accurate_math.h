// Functions of numbers that give the same on every system. Those of the Linux C library are the
// measure; where another one is less accurate, its own stand behind the same names.
#pragma once

#include <cmath>

namespace accurate
{

#ifdef _WIN32
double pow(double x, double y);
double exp(double x);
double log(double x);
double log10(double x);
double sin(double x);
double cos(double x);
double tan(double x);
double asin(double x);
double acos(double x);
double atan(double x);
double sinh(double x);
double cosh(double x);
double tanh(double x);
#else
using std::acos;
using std::asin;
using std::atan;
using std::cos;
using std::cosh;
using std::exp;
using std::log;
using std::log10;
using std::pow;
using std::sin;
using std::sinh;
using std::tan;
using std::tanh;
#endif

}  // namespace accurate
