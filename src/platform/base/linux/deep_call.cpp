// Stacks for deep recursion: mapped on demand, entered with the contexts of the C library.
#include "platform/base/deep_call.h"

#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/base/exception.h"

#if defined(__SANITIZE_ADDRESS__)
#define MIVORA_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MIVORA_ADDRESS_SANITIZER 1
#endif
#endif

#ifdef MIVORA_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#include <sanitizer/common_interface_defs.h>
#endif

namespace deep_call
{
constinit int g_nLevel = 0;
constinit int g_nLimit = nFirstLevels;
}  // namespace deep_call

namespace
{
#ifdef MIVORA_ADDRESS_SANITIZER
constexpr std::size_t nBytesPerLevel = 16 * 1024;
#else
constexpr std::size_t nBytesPerLevel = 4 * 1024;
#endif
// Beside the levels: what the deepest one calls in libraries.
constexpr std::size_t nReserve = 1024 * 1024;
constexpr std::size_t nStackBytes = deep_call::nLevelsPerStack * nBytesPerLevel + nReserve;

// Memory for a stack, with a page at its low end that nobody may touch. Pages come as they are
// used.
class CStack
{
public:
    CStack() : m_nGuard(static_cast<std::size_t>(sysconf(_SC_PAGESIZE)))
    {
        void* p = mmap(nullptr, nStackBytes + m_nGuard, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
        if (p == MAP_FAILED)
        {
            AfxThrowMemoryException();
        }
        m_pMemory = static_cast<char*>(p);
        if (mprotect(m_pMemory, m_nGuard, PROT_NONE) != 0)
        {
            munmap(m_pMemory, nStackBytes + m_nGuard);
            AfxThrowMemoryException();
        }
    }
    ~CStack()
    {
#ifdef MIVORA_ADDRESS_SANITIZER
        ASAN_UNPOISON_MEMORY_REGION(m_pMemory, nStackBytes + m_nGuard);
#endif
        munmap(m_pMemory, nStackBytes + m_nGuard);
    }
    CStack(const CStack&) = delete;
    CStack& operator=(const CStack&) = delete;

    char* Bottom() const
    {
        return m_pMemory + m_nGuard;
    }

private:
    std::size_t m_nGuard;
    char* m_pMemory = nullptr;
};

// The stack that the next one in need takes. It keeps its pages.
struct CSpare
{
    CStack* pStack = nullptr;
    ~CSpare() { delete pStack; }
};
CSpare g_spare;

CStack* TakeStack()
{
    CStack* pStack = g_spare.pStack;
    g_spare.pStack = nullptr;
    if (pStack == nullptr)
    {
        pStack = new (std::nothrow) CStack;
        if (pStack == nullptr)
        {
            AfxThrowMemoryException();
        }
    }
    return pStack;
}

void GiveBackStack(CStack* pStack)
{
    if (g_spare.pStack == nullptr)
    {
        g_spare.pStack = pStack;
    }
    else
    {
        delete pStack;
    }
}

struct CCrossing
{
    void (*pfn)(void*);
    void* pContext;
    std::exception_ptr pThrown;
    ucontext_t caller;
    ucontext_t callee;
#ifdef MIVORA_ADDRESS_SANITIZER
    void* pFakeStack = nullptr;
    const void* pCallerBottom = nullptr;
    std::size_t nCallerBytes = 0;
#endif
};

// The first function of a stack. No exception may leave it, there is nothing above it to unwind.
void RunCrossing(unsigned nHigh, unsigned nLow)
{
    auto* pCrossing = reinterpret_cast<CCrossing*>(
        static_cast<std::uintptr_t>((static_cast<std::uint64_t>(nHigh) << 32) | nLow));
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_finish_switch_fiber(nullptr, &pCrossing->pCallerBottom, &pCrossing->nCallerBytes);
#endif
    try
    {
        pCrossing->pfn(pCrossing->pContext);
    }
    catch (...)
    {
        pCrossing->pThrown = std::current_exception();
    }
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_start_switch_fiber(nullptr, pCrossing->pCallerBottom, pCrossing->nCallerBytes);
#endif
}

void Cross(CCrossing& crossing, const CStack& stack)
{
    getcontext(&crossing.callee);
    crossing.callee.uc_stack.ss_sp = stack.Bottom();
    crossing.callee.uc_stack.ss_size = nStackBytes;
    crossing.callee.uc_link = &crossing.caller;
    const auto nAddress = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&crossing));
    makecontext(&crossing.callee, reinterpret_cast<void (*)()>(RunCrossing), 2,
                static_cast<unsigned>(nAddress >> 32), static_cast<unsigned>(nAddress));
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_start_switch_fiber(&crossing.pFakeStack, stack.Bottom(), nStackBytes);
#endif
    swapcontext(&crossing.caller, &crossing.callee);
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_finish_switch_fiber(crossing.pFakeStack, nullptr, nullptr);
#endif
}

// The levels that the present stack has room for, put back at the end.
struct CLimitScope
{
    CLimitScope() : m_nOld(deep_call::g_nLimit)
    {
        deep_call::g_nLimit = deep_call::g_nLevel + deep_call::nLevelsPerStack;
    }
    ~CLimitScope() { deep_call::g_nLimit = m_nOld; }
    CLimitScope(const CLimitScope&) = delete;
    CLimitScope& operator=(const CLimitScope&) = delete;

    int m_nOld;
};
}  // namespace

void deep_call::RunOnFreshStack(void (*pfn)(void*), void* pContext)
{
    const CLimitScope limit;
    CStack* pStack = TakeStack();
    CCrossing crossing{};
    crossing.pfn = pfn;
    crossing.pContext = pContext;
    Cross(crossing, *pStack);
    GiveBackStack(pStack);
    if (crossing.pThrown != nullptr)
    {
        std::rethrow_exception(crossing.pThrown);
    }
}
