#include "system_errors.h"

#include <windows.h>

const int SYSTEM_DISK_FULL = ERROR_DISK_FULL;
const int SYSTEM_ACCESS_DENIED = ERROR_ACCESS_DENIED;
