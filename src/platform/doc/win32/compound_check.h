// Whether a compound file can be given to a reader that trusts what it reads.
#pragma once

#include "platform/base/types.h"

#include <span>

// True if every chain of sectors that the file's directory leads to ends, stays inside the file and
// holds as much as is claimed for it, and the directory is a tree. Takes time and memory that grow
// with the size of the file and with nothing that the file says.
bool IsSoundCompoundFile(std::span<const BYTE> bytes);
