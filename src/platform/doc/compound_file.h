// Compound files with one stream: packed into bytes and taken out of them again.
#pragma once

#include "platform/base/file.h"

// Writes a whole compound file that holds one stream to an open file, at its present position.
// Throws CFileException (of the file, or generic if there is no compound file service).
void PackCompoundFile(CFile& file, const char* pszStream, const CMemFile& content);

// The content of one stream of a compound file, put into an empty memory file that is then at its
// beginning. FALSE if the file is no compound file, is damaged, or has no such stream. Throws
// CFileException if it cannot be read, or there is no compound file service.
BOOL UnpackCompoundFile(CFile& file, const char* pszStream, CMemFile& content);
