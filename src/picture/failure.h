// Why there is no picture.
#pragma once

#include <string>

// Thrown by value: half a sentence for the user, in UTF-8.
struct CPictureFailure
{
    std::string strReason;
    bool bNoMemory = false;
};
