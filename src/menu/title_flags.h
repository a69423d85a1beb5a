// How a heading in a menu looks.
#pragma once

#include "platform/base/types.h"

enum : UINT
{
    TITLE_VERTICAL = 1,
    TITLE_GRADIENT = 2,
    TITLE_RAISED = 4,
    TITLE_LINE = 8,
    TITLE_ROUNDED = 16,
    TITLE_CENTRED = 32
};
