// Memory that ends: the allocation of a test program, for one of its files to include.
#pragma once

#include <cstdlib>
#include <new>

inline int g_nUntilFailure = -1;  // allocations that still succeed; negative: all
inline bool g_bFailOnce = false;  // one fails, and those behind it succeed

[[gnu::noinline]] void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept
{
    if (g_nUntilFailure == 0)
    {
        g_nUntilFailure = g_bFailOnce ? -1 : 0;
        return nullptr;
    }
    if (g_nUntilFailure > 0)
        --g_nUntilFailure;
    return std::malloc(nSize);
}

[[gnu::noinline]] void* operator new(std::size_t nSize)
{
    void* p = operator new(nSize, std::nothrow);
    if (p == nullptr)
        throw std::bad_alloc();
    return p;
}

[[gnu::noinline]] void operator delete(void* p) noexcept
{
    std::free(p);
}

[[gnu::noinline]] void operator delete(void* p, std::size_t) noexcept
{
    std::free(p);
}
