// A host with narrow characters that includes the system's headers last.
#include <mivora/mivora.h>

#include <windows.h>

#define MIVORA_HOST_SUITE NarrowHost
#include "names_host.h"

static_assert(sizeof(TCHAR) == 1);
