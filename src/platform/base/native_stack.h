// A stack beside the caller's, by the means of the system.
#pragma once

#include <cstddef>

class CNativeStack
{
public:
    // Takes address space for so many bytes; the memory comes as it is used. CMemoryException if
    // there is none.
    explicit CNativeStack(std::size_t nBytes);
    ~CNativeStack();
    CNativeStack(const CNativeStack&) = delete;
    CNativeStack& operator=(const CNativeStack&) = delete;

    // Runs pfn(pContext), which must not throw, with its frames on this stack. CMemoryException,
    // and nothing run, if the system lacks the means.
    void Call(void (*pfn)(void*), void* pContext);

private:
    std::size_t m_nBytes;
    void* m_pSystem = nullptr;  // mapped memory, or a fiber
    void* m_pCaller = nullptr;  // the fiber to go back to
    void (*m_pfn)(void*) = nullptr;
    void* m_pContext = nullptr;

    friend struct CFiberEntry;
};
