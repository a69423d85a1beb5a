#include "native/effort.h"

const unsigned TEST_EFFORT = 5;
