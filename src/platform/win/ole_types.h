// The system's OLE headers, and what a drag does with its data.
#pragma once

#include "platform/base/input_codes.h"

#include <ole2.h>
