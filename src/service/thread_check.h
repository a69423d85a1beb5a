// The library belongs to one thread at a time; debug builds stop where two are inside at once.
#pragma once

#include "platform/base/object.h"

// Stands at the start of every exported operation.
class CInsideLibrary
{
public:
    CInsideLibrary() { ASSERT(Enter()); }
    ~CInsideLibrary() { ASSERT(Leave()); }
    CInsideLibrary(const CInsideLibrary&) = delete;
    CInsideLibrary& operator=(const CInsideLibrary&) = delete;

private:
    // False if another thread is inside.
    static bool Enter();
    static bool Leave();
};
