// Stacks for deep recursion: mapped on demand, entered by a call that changes the stack pointer.
#include "platform/base/deep_call.h"

#include <sys/mman.h>
#include <unistd.h>

#if !defined(__x86_64__) && !defined(__aarch64__)
#define MIVORA_STACK_BY_CONTEXT 1
#endif
#ifdef MIVORA_STACK_BY_CONTEXT
#include <ucontext.h>
#endif

#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/base/exception.h"
#include "platform/base/sanitizer.h"

#ifdef MIVORA_ADDRESS_SANITIZER
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
constexpr std::size_t nBytesPerLevel = 32 * 1024;
#else
constexpr std::size_t nBytesPerLevel = 8 * 1024;
#endif
// Beside the levels: what the deepest one calls in libraries.
constexpr std::size_t nReserve = 1024 * 1024;
// (Above 64 MB the address sanitizer would not clean up behind an exception.)
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
    ~CStack() { munmap(m_pMemory, nStackBytes + m_nGuard); }
    CStack(const CStack&) = delete;
    CStack& operator=(const CStack&) = delete;

    char* Bottom() const { return m_pMemory + m_nGuard; }

private:
    std::size_t m_nGuard;
    char* m_pMemory = nullptr;
};

// Stacks that the next ones in need take. They keep their pages: fresh ones would cost a deep
// formula more than all else that is done with it.
struct CSpares
{
    static constexpr std::size_t nMost = 8;
    CStack* apStacks[nMost] = {};
    std::size_t nStacks = 0;

    ~CSpares()
    {
        while (nStacks > 0)
        {
            delete apStacks[--nStacks];
        }
    }
};
CSpares g_spares;

CStack* TakeStack()
{
    if (g_spares.nStacks > 0)
    {
        return g_spares.apStacks[--g_spares.nStacks];
    }
    auto* pStack = new (std::nothrow) CStack;
    if (pStack == nullptr)
    {
        AfxThrowMemoryException();
    }
    return pStack;
}

void GiveBackStack(CStack* pStack)
{
    if (g_spares.nStacks < CSpares::nMost)
    {
        g_spares.apStacks[g_spares.nStacks++] = pStack;
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
#ifdef MIVORA_ADDRESS_SANITIZER
    void* pFakeStack = nullptr;
    const void* pCallerBottom = nullptr;
    std::size_t nCallerBytes = 0;
#endif
};

// The first function of a stack. No exception leaves it: it is carried over.
void RunCrossing(void* pArgument)
{
    auto* pCrossing = static_cast<CCrossing*>(pArgument);
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
}  // namespace

#ifdef MIVORA_STACK_BY_CONTEXT

static void CallRunCrossing(unsigned nHigh, unsigned nLow)
{
    RunCrossing(reinterpret_cast<void*>(
        static_cast<std::uintptr_t>((static_cast<std::uint64_t>(nHigh) << 32) | nLow)));
}

static void CallOnStack(void* pArgument, char* pBottom)
{
    ucontext_t caller;
    ucontext_t callee;
    getcontext(&callee);
    callee.uc_stack.ss_sp = pBottom;
    callee.uc_stack.ss_size = nStackBytes;
    callee.uc_link = &caller;
    const auto nAddress = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pArgument));
    makecontext(&callee, reinterpret_cast<void (*)()>(CallRunCrossing), 2,
                static_cast<unsigned>(nAddress >> 32), static_cast<unsigned>(nAddress));
    swapcontext(&caller, &callee);
}

#else

// mivora_call_on_stack(argument, function, top): calls function(argument) with its frames below
// top. The contexts of the C library would do the same with three system calls, which is too dear
// for an operation that goes to and fro at the boundary. Debuggers see through it by the frame.
#ifdef __x86_64__
asm(R"(
    .pushsection .text
    .p2align 4
    .globl mivora_call_on_stack
    .hidden mivora_call_on_stack
    .type mivora_call_on_stack, @function
mivora_call_on_stack:
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    movq %rdx, %rsp
    callq *%rsi
    movq %rbp, %rsp
    popq %rbp
    .cfi_def_cfa %rsp, 8
    retq
    .cfi_endproc
    .size mivora_call_on_stack, .-mivora_call_on_stack
    .popsection
)");
#else
asm(R"(
    .pushsection .text
    .p2align 4
    .globl mivora_call_on_stack
    .hidden mivora_call_on_stack
    .type mivora_call_on_stack, %function
mivora_call_on_stack:
    .cfi_startproc
    stp x29, x30, [sp, #-16]!
    .cfi_def_cfa_offset 16
    .cfi_offset x29, -16
    .cfi_offset x30, -8
    mov x29, sp
    .cfi_def_cfa_register x29
    mov sp, x2
    blr x1
    mov sp, x29
    .cfi_def_cfa_register sp
    ldp x29, x30, [sp], #16
    .cfi_def_cfa_offset 0
    ret
    .cfi_endproc
    .size mivora_call_on_stack, .-mivora_call_on_stack
    .popsection
)");
#endif

extern "C" void mivora_call_on_stack(void* pArgument, void (*pfn)(void*), char* pTop);

static void CallOnStack(void* pArgument, char* pBottom)
{
    mivora_call_on_stack(pArgument, RunCrossing, pBottom + nStackBytes);
}

#endif

namespace
{
void Cross(CCrossing& crossing, const CStack& stack)
{
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_start_switch_fiber(&crossing.pFakeStack, stack.Bottom(), nStackBytes);
#endif
    CallOnStack(&crossing, stack.Bottom());
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
