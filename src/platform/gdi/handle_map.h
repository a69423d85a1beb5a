// Finds the wrapper of a handle. Wrappers are links of the chains themselves: nothing is allocated.
#pragma once

#include <cstddef>
#include <cstdint>

template <class T>
class CHandleMap
{
public:
    template <class H>
    static T* Find(H handle)
    {
        for (T* p = Slot(handle); p; p = p->m_pNextInMap)
        {
            if (p->MapKey() == handle)
                return p;
        }
        return nullptr;
    }
    static void Insert(T* pWrapper)
    {
        T*& pFirst = Slot(pWrapper->MapKey());
        pWrapper->m_pNextInMap = pFirst;
        pFirst = pWrapper;
    }
    // While the wrapper still has its handle.
    static void Remove(T* pWrapper)
    {
        T** ppLink = &Slot(pWrapper->MapKey());
        while (*ppLink && *ppLink != pWrapper)
            ppLink = &(*ppLink)->m_pNextInMap;
        if (*ppLink)
            *ppLink = pWrapper->m_pNextInMap;
        pWrapper->m_pNextInMap = nullptr;
    }

    // A wrapper that owns nothing. There are TEMPORARIES of each class U, used in turn.
    template <class U, class H>
    static U* MakeTemporary(H handle, H U::*pField)
    {
        static U s_aTemporaries[TEMPORARIES];
        static std::size_t s_nNext = 0;
        U* pWrapper = &s_aTemporaries[s_nNext++ % TEMPORARIES];
        if (pWrapper->*pField)
            Remove(pWrapper);
        pWrapper->m_bTemporary = true;
        pWrapper->*pField = handle;
        Insert(pWrapper);
        return pWrapper;
    }

private:
    static constexpr std::size_t SLOTS = 64;
    static constexpr std::size_t TEMPORARIES = 64;

    template <class H>
    static T*& Slot(H handle)
    {
        static T* s_apSlots[SLOTS];
        auto nKey = reinterpret_cast<std::uintptr_t>(handle);
        return s_apSlots[(nKey ^ nKey >> 6 ^ nKey >> 12) % SLOTS];
    }
};
