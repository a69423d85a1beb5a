// Owners of global memory. (On Windows the address of a function of the system is no constant, so
// that it cannot be an argument of CFreeBy.)
#pragma once

#include <memory>

#include "platform/base/system.h"

struct CFreeGlobal
{
    void operator()(void* hMemory) const { GlobalFree(hMemory); }
};
// A block of global memory, by its handle.
using CGlobalPtr = std::unique_ptr<void, CFreeGlobal>;

// Keeps a block of global memory at its place.
class CGlobalLock
{
public:
    explicit CGlobalLock(HGLOBAL hMemory)
        : m_hMemory(hMemory), m_pData(static_cast<BYTE*>(GlobalLock(hMemory)))
    {
    }
    ~CGlobalLock()
    {
        if (m_pData != nullptr)
            GlobalUnlock(m_hMemory);
    }
    CGlobalLock(const CGlobalLock&) = delete;
    CGlobalLock& operator=(const CGlobalLock&) = delete;

    BYTE* Data() const { return m_pData; }  // null: it could not be locked

private:
    HGLOBAL m_hMemory;
    BYTE* m_pData;
};
