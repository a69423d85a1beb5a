#include "service/library_lock.h"

#include <mutex>

namespace
{
// Never destroyed: a thread of the host may still be inside when the process ends.
std::recursive_mutex& Mutex()
{
    static auto* const s_pMutex = new std::recursive_mutex;
    return *s_pMutex;
}
}  // namespace

CLibraryLock::CLibraryLock()
{
    Mutex().lock();
}

CLibraryLock::~CLibraryLock()
{
    Mutex().unlock();
}
