// The text that travels in a metafile's comment.
#pragma once

#include "platform/base/cstring.h"

// What the last reading of a metafile found. Written into the comment of every metafile, whatever
// formula that shows: a text comes back from a file only if it was read from a file before.
extern CString g_strMetaComment;
