// Processes of this system do not copy themselves.
#include "platform/base/native_fork.h"

void CallAroundForks(void (*)(), void (*)(), void (*)()) {}
