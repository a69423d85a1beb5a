// Who is inside: one thread, with calls within calls.
#include "service/thread_check.h"

#include <atomic>
#include <thread>

namespace
{
std::atomic<std::thread::id> s_inside;  // none: nobody is
int s_nDepth = 0;                       // calls of that thread within each other
}  // namespace

bool CInsideLibrary::Enter()
{
    const std::thread::id self = std::this_thread::get_id();
    std::thread::id owner;
    if (!s_inside.compare_exchange_strong(owner, self) && owner != self)
        return false;
    ++s_nDepth;
    return true;
}

bool CInsideLibrary::Leave()
{
    if (--s_nDepth == 0)
        s_inside = std::thread::id();
    return true;
}
