// Included ahead of each source of newlib: its functions get names of their own beside those of the
// system's run-time library. NEWLIB_VARIANT is fma, for machines that multiply and add in one step,
// plain, or not defined, for what calls whichever of the two the machine has.
#pragma once

#include <math.h>
#include <stdint.h>

#define WANT_ERRNO 0

double newlib_exp(double x);
double newlib_log(double x);
double newlib_expm1(double x);

#ifdef NEWLIB_VARIANT
#define NEWLIB_JOINED(name, variant) newlib_##name##_##variant
#define NEWLIB_NAMED(name, variant) NEWLIB_JOINED(name, variant)
#define NEWLIB_NAME(name) NEWLIB_NAMED(name, NEWLIB_VARIANT)
#else
#define NEWLIB_NAME(name) newlib_##name
#endif

#define pow NEWLIB_NAME(pow)
#define exp NEWLIB_NAME(exp)
#define log NEWLIB_NAME(log)
#define expm1 NEWLIB_NAME(expm1)
#define tanh NEWLIB_NAME(tanh)
#define __ieee754_log10 newlib_log10
#define __ieee754_sinh newlib_sinh
#define __ieee754_cosh newlib_cosh
#define __ieee754_rem_pio2 newlib_rem_pio2
#define __kernel_rem_pio2 newlib_kernel_rem_pio2
#define __ieee754_sqrt sqrt
#define __exp_data NEWLIB_NAME(exp_data)
#define __log_data NEWLIB_NAME(log_data)
#define __pow_log_data NEWLIB_NAME(pow_log_data)
#define __math_oflow NEWLIB_NAME(oflow)
#define __math_uflow NEWLIB_NAME(uflow)
#define __math_may_uflow NEWLIB_NAME(may_uflow)
#define __math_divzero NEWLIB_NAME(divzero)
#define __math_invalid NEWLIB_NAME(invalid)
#define __math_check_oflow NEWLIB_NAME(check_oflow)
#define __math_check_uflow NEWLIB_NAME(check_uflow)
