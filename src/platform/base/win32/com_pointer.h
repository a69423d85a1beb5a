// Owners of what COM and global memory hand out.
#pragma once

#include <memory>

#include "platform/base/types.h"

#include <objbase.h>

struct CReleaseObject
{
    void operator()(IUnknown* pObject) const { pObject->Release(); }
};
// One reference.
template <class T>
using CObjectPtr = std::unique_ptr<T, CReleaseObject>;

// A reference of our own to an object that somebody else holds too.
template <class T>
CObjectPtr<T> ShareObject(T* pObject)
{
    if (pObject != nullptr)
        pObject->AddRef();
    return CObjectPtr<T>(pObject);
}

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
