// A tree as an enhanced metafile in memory.
#pragma once

#include "platform/gdi/gdi.h"

class CBinTree;

// What CBinTree::WriteMetafile writes, the caller's. Null, after a message box, if the system
// cannot record, and null if memory ends while it does.
HENHMETAFILE RecordMetafile(CBinTree& tree);
