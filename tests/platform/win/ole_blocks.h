// Blocks of known content, and a format to offer them in.
#pragma once

#include "platform/base/exception.h"
#include "platform/base/global_memory.h"
#include "platform/win/ole_data_object.h"
#include "platform/win/ole_data_source.h"
#include "platform/win/ole_init.h"

constexpr SIZE_T s_nBlock = 3001;

inline BYTE ByteAt(SIZE_T nIndex, SIZE_T nSize)
{
    return static_cast<BYTE>(nIndex * 31 + nSize + (nIndex >> 8));
}

// Its bytes tell its size. The caller's.
inline HGLOBAL MakeBlock(SIZE_T nSize = s_nBlock)
{
    HGLOBAL hMemory = GlobalAlloc(GMEM_MOVEABLE, nSize);
    const CGlobalLock lock(hMemory);
    for (SIZE_T i = 0; i < nSize; ++i)
        lock.Data()[i] = ByteAt(i, nSize);
    return hMemory;
}

// To the byte.
inline bool IsBlock(HGLOBAL hMemory, SIZE_T nSize = s_nBlock)
{
    if (hMemory == nullptr || GlobalSize(hMemory) != nSize)
        return false;
    const CGlobalLock lock(hMemory);
    SIZE_T nSame = 0;
    while (nSame < nSize && lock.Data()[nSame] == ByteAt(nSame, nSize))
        ++nSame;
    return nSame == nSize;
}

inline CLIPFORMAT TestFormat()
{
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatA("Mivora OLE test"));
}
