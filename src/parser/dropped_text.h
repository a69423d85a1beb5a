// Text that a parse read and that no node shows.
#pragma once

#include "platform/base/types.h"

struct CDroppedText
{
    WORD nPosition;  // of its first character: 1-based in the trimmed text
    WORD nLength;    // characters
};
