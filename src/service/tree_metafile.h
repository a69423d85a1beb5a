// A tree as an enhanced metafile in memory, and the text that one carries.
#pragma once

#include "platform/gdi/gdi.h"

class CBinTree;

// What CBinTree::WriteMetafile writes, the caller's. Null, after a message box, if the system
// cannot record, and null if memory ends while it does.
HENHMETAFILE RecordMetafile(CBinTree& tree);

// Takes the text out of a metafile's comment into g_strMetaComment, and deletes the metafile. False
// if it carries none of ours; the comment is then what was found, if anything.
bool TakeMetafileText(HENHMETAFILE hPicture);
