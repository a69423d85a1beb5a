// The names of keys that stand for commands.
#pragma once

#include <string>

#include "platform/base/types.h"

// A tab and the first keys of the table that give the command, as in "\tCtrl+S"; empty if none do.
std::wstring AcceleratorText(HACCEL hAccelerators, UINT nCommand);
