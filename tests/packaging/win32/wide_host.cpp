// A host with wide characters that includes the system's headers first.
#include <windows.h>

#include <mivora/mivora.h>

#define MIVORA_HOST_SUITE WideHost
#include "names_host.h"

static_assert(sizeof(TCHAR) == 2);
