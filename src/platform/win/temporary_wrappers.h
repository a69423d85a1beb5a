// Wrappers of handles that nobody has attached: made when asked for, the same one each time, and
// gone when the message loop has nothing to do.
#pragma once

#include "platform/gdi/handle_map.h"

#include <memory>
#include <vector>

template <class T>
class CTemporaryWrappers
{
public:
    // The wrapper of the handle, made if there is none. Null for null.
    template <class H>
    static T* Find(H handle, H T::*pField)
    {
        if (!handle)
            return nullptr;
        if (T* pFound = CHandleMap<T>::Find(handle))
            return pFound;
        auto pWrapper = std::make_unique<T>();
        pWrapper->m_bTemporary = true;
        pWrapper.get()->*pField = handle;
        List().push_back(std::move(pWrapper));
        CHandleMap<T>::Insert(List().back().get());
        return List().back().get();
    }
    // The wrapper that somebody has attached to the handle; null if nobody has.
    template <class H>
    static T* FindPermanent(H handle)
    {
        T* pFound = handle ? CHandleMap<T>::Find(handle) : nullptr;
        return pFound && !pFound->m_bTemporary ? pFound : nullptr;
    }
    static void Clear()
    {
        for (const auto& pWrapper : List())
            CHandleMap<T>::Remove(pWrapper.get());
        List().clear();
    }

private:
    // Never freed: objects that end with the program may still ask.
    static std::vector<std::unique_ptr<T>>& List()
    {
        static auto& s_list = *new std::vector<std::unique_ptr<T>>;
        return s_list;
    }
};
