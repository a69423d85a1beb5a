// Copies of the process, by the hooks of the thread library.
#include "platform/base/native_fork.h"

#include <pthread.h>

void CallAroundForks(void (*pfnBefore)(), void (*pfnParent)(), void (*pfnChild)())
{
    pthread_atfork(pfnBefore, pfnParent, pfnChild);
}
