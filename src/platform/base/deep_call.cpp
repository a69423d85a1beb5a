// Levels are counted; past a stack's last one the call goes on to a further stack.
#include "platform/base/deep_call.h"

#include <memory>
#include <new>

#include "platform/base/exception.h"
#include "platform/base/native_stack.h"
#include "platform/base/sanitizer.h"

namespace deep_call
{
constinit int g_nLevel = 0;
constinit int g_nLimit = nFirstLevels;
}  // namespace deep_call

namespace
{
constexpr std::size_t nBytesPerLevel = (g_bAddressSanitizer ? 32 : 8) * 1024;
// Beside the levels: what the deepest one calls in libraries.
constexpr std::size_t nReserve = 1024 * 1024;
// (Above 64 MB the address sanitizer would not clean up behind an exception.)
constexpr std::size_t nStackBytes = deep_call::nLevelsPerStack * nBytesPerLevel + nReserve;

// Stacks that the next ones in need take. They keep their pages: fresh ones would cost a deep
// formula more than all else that is done with it.
struct CSpares
{
    static constexpr std::size_t nMost = 8;
    CNativeStack* apStacks[nMost] = {};
    std::size_t nStacks = 0;

    ~CSpares()
    {
        while (nStacks > 0)
            delete apStacks[--nStacks];
    }
};
CSpares g_spares;

struct CGiveBack
{
    void operator()(CNativeStack* pStack) const
    {
        if (g_spares.nStacks < CSpares::nMost)
            g_spares.apStacks[g_spares.nStacks++] = pStack;
        else
            delete pStack;
    }
};
using CStackPtr = std::unique_ptr<CNativeStack, CGiveBack>;

CStackPtr TakeStack()
{
    if (g_spares.nStacks > 0)
        return CStackPtr(g_spares.apStacks[--g_spares.nStacks]);
    auto* pStack = new (std::nothrow) CNativeStack(nStackBytes);
    if (pStack == nullptr)
        AfxThrowMemoryException();
    return CStackPtr(pStack);
}

struct CCrossing
{
    void (*pfn)(void*);
    void* pContext;
    std::exception_ptr pThrown;
};

// The first function of a stack. No exception leaves it: it is carried over.
void RunCrossing(void* pArgument)
{
    auto* pCrossing = static_cast<CCrossing*>(pArgument);
    try
    {
        pCrossing->pfn(pCrossing->pContext);
    }
    catch (...)
    {
        pCrossing->pThrown = std::current_exception();
    }
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
    CCrossing crossing{ pfn, pContext, nullptr };
    {
        const CLimitScope limit;
        TakeStack()->Call(RunCrossing, &crossing);
    }
    if (crossing.pThrown != nullptr)
        std::rethrow_exception(crossing.pThrown);
}
