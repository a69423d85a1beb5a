// The system's OLE headers, and what a drag does with its data.
#pragma once

#include "platform/base/types.h"

#include <ole2.h>

// DROPEFFECT_NONE, or bits of DROPEFFECT_COPY, _MOVE, _LINK and _SCROLL.
using DROPEFFECT = DWORD;
