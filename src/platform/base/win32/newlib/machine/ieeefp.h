// What the sources of newlib ask of the machine.
#pragma once

#define __IEEE_LITTLE_ENDIAN 1
#define __OBSOLETE_MATH 0
#define __P(arguments) arguments
typedef int __int32_t;
typedef unsigned __uint32_t;
