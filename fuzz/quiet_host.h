// A host for fuzzers: message boxes are taken and dropped.
#pragma once

#include "platform/base/app.h"

inline void BeQuiet()
{
    AfxSetMessageBoxHandler([](const char*, unsigned, void*) { return 1; }, nullptr);
}
