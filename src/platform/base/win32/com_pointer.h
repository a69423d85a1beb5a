// Owners of what COM hands out.
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
