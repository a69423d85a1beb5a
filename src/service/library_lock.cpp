// One lock for the process, which survives copies of it.
#include "service/library_lock.h"

#include <mutex>
#include <new>

#include "platform/base/native_fork.h"

namespace
{
std::recursive_mutex* MakeMutex();

// Never destroyed: a thread of the host may still be inside when the process ends.
std::recursive_mutex& Mutex()
{
    static auto* const s_pMutex = MakeMutex();
    return *s_pMutex;
}

// A copy of the process is made while no call runs: the copy would wait for its end for ever. What
// is locked there belongs to a thread of another process, which alone could unlock it.
std::recursive_mutex* MakeMutex()
{
    auto* const pMutex = new std::recursive_mutex;
    CallAroundForks([] { Mutex().lock(); }, [] { Mutex().unlock(); },
                    [] { new (&Mutex()) std::recursive_mutex; });
    return pMutex;
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
