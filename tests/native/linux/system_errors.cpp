#include "system_errors.h"

#include <cerrno>

const int SYSTEM_DISK_FULL = ENOSPC;
const int SYSTEM_ACCESS_DENIED = EACCES;
